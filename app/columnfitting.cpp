#include "app/columnfitting.h"

#include <QHash>
#include <QHeaderView>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>

#include <algorithm>

namespace brisel
{

namespace
{

/// Caches the sizes of texts. The font and the style, on which they depend, must not change during
/// its lifetime.
class MeasureOnce : public QStyledItemDelegate
{
public:
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QString text = displayText(index.data(), option.locale);
        const auto known = m_sizes.constFind(text);
        if (known != m_sizes.constEnd())
            return *known;
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        m_sizes.insert(text, size);
        return size;
    }
    int measured() const { return static_cast<int>(m_sizes.size()); }

private:
    mutable QHash<QString, QSize> m_sizes;
};

} // namespace

int fitColumns(QTableView &view, const QList<int> &columns)
{
    QAbstractItemDelegate *delegate = view.itemDelegate();
    MeasureOnce measure;
    view.setItemDelegate(&measure);
    for (const int column : columns) {
        if (!view.isColumnHidden(column))
            view.resizeColumnToContents(column);
    }
    view.setItemDelegate(delegate);
    return measure.measured();
}

void showWholeHeadings(QTableView &view)
{
    QHeaderView *header = view.horizontalHeader();
    for (int column = 0; column < header->count(); ++column) {
        const int needed = header->sectionSizeHint(column);
        if (!header->isSectionHidden(column) && header->sectionSize(column) < needed)
            header->resizeSection(column, needed);
    }
}

void narrowColumns(QTableView &view, const QList<int> &columns)
{
    QHeaderView *header = view.horizontalHeader();
    const int room =
        view.width() - 2 * view.frameWidth() - view.verticalScrollBar()->sizeHint().width();
    int others = header->length();
    for (const int column : columns)
        others -= header->sectionSize(column);
    const auto narrowed = [header](int column, int most) {
        return std::min(header->sectionSize(column),
                        std::max(most, header->sectionSizeHint(column)));
    };
    const auto fits = [&](int most) {
        int sum = others;
        for (const int column : columns)
            sum += narrowed(column, most);
        return sum <= room;
    };
    int most = std::max(header->length(), 0);
    if (fits(most))
        return;
    int least = 0;
    while (most - least > 1) {
        const int middle = (least + most) / 2;
        if (fits(middle))
            least = middle;
        else
            most = middle;
    }
    QList<int> widths;
    for (const int column : columns)
        widths.append(narrowed(column, least));
    for (qsizetype i = 0; i < columns.size(); ++i)
        view.setColumnWidth(columns.at(i), widths.at(i));
}

} // namespace brisel
