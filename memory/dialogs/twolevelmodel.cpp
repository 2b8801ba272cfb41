#include "memory/dialogs/twolevelmodel.h"

namespace brisel
{

QModelIndex TwoLevelModel::index(int row, int column, const QModelIndex &parent) const
{
    if (row < 0 || column < 0 || column >= columnCount(parent) || row >= rowCount(parent))
        return {};
    return createIndex(row, column,
                       parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : quintptr{0});
}

QModelIndex TwoLevelModel::parent(const QModelIndex &index) const
{
    return !index.isValid() || isTop(index) ? QModelIndex()
                                            : createIndex(topRow(index), 0, quintptr{0});
}

} // namespace brisel
