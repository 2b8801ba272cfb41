#include "tools/demo/librarytable.h"

#include <QMainWindow>
#include <QTableView>
#include <QTest>

namespace brisel
{

LibraryTable::LibraryTable(const QMainWindow &window)
    : m_view(window.findChild<QTableView *>(QStringLiteral("userLibraryTableView")))
{
}

int LibraryTable::rows() const
{
    if (m_view == nullptr || m_view->model() == nullptr)
        return -1;
    while (m_view->model()->canFetchMore({}))
        m_view->model()->fetchMore({});
    return m_view->model()->rowCount();
}

QString LibraryTable::text(int row, Column column) const
{
    return m_view->model()->index(row, column).data().toString();
}

int LibraryTable::status(int row) const
{
    return text(row, Status).toInt();
}

int LibraryTable::rowsWithStatus(State state) const
{
    int found = 0;
    for (int row = 0; row < rows(); ++row)
        found += status(row) == state ? 1 : 0;
    return found;
}

int LibraryTable::rowOf(const QString &path) const
{
    for (int row = 0; row < rows(); ++row) {
        if (text(row, FileName) == path)
            return row;
    }
    return -1;
}

void LibraryTable::doubleClick(int row) const
{
    const QModelIndex index = m_view->model()->index(row, Title);
    m_view->scrollTo(index);
    const QPoint place = m_view->visualRect(index).center();
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, {}, place);
}

} // namespace brisel
