#pragma once

#include <QAbstractItemModel>

namespace brisel
{

/// The indexes of a tree of two levels without objects for its rows: the id of a row of the second
/// level is the row of its parent plus one, that of a row of the first level is 0.
class TwoLevelModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;

protected:
    static bool isTop(const QModelIndex &index) { return index.internalId() == 0; }
    /// The row of the first level that \a index belongs to.
    static int topRow(const QModelIndex &index)
    {
        return isTop(index) ? index.row() : static_cast<int>(index.internalId()) - 1;
    }
};

} // namespace brisel
