#include "app/columnfitting.h"

#include <QHash>
#include <QStyledItemDelegate>
#include <QTableView>

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

} // namespace brisel
