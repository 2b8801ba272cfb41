// The removal of rows.

#include "db/usersongsreltablemodel.h"

#include <algorithm>
#include <numeric>

namespace brisel
{

namespace
{

struct RowRange {
    int first;
    int last;
};

/// \a rows in ascending order, combined.
QList<RowRange> rangesOf(const QList<int> &rows)
{
    QList<RowRange> ranges;
    for (const int row : rows) {
        if (ranges.isEmpty() || row != ranges.constLast().last + 1)
            ranges.append({row, row});
        else
            ranges.last().last = row;
    }
    return ranges;
}

} // namespace

bool UserSongsRelTableModel::removeRows(int row, int count, const QModelIndex &parent)
{
    announce();
    if (parent.isValid() || count < 1 || !isSong(row) || count > m_rows.size() - row)
        return false;
    QList<int> rows(count);
    std::iota(rows.begin(), rows.end(), row);
    return removeEach(rows);
}

bool UserSongsRelTableModel::removeEach(QList<int> rows)
{
    announce();
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    if (rows.isEmpty() || !isSong(rows.constFirst()) || !isSong(rows.constLast()))
        return false;
    qsizetype deleted = 0;
    {
        const Transaction transaction(database());
        while (deleted < rows.size() && deleteFromTable(rows.at(deleted)))
            ++deleted;
    }
    dropRows(rows.first(deleted));
    return deleted == rows.size();
}

bool UserSongsRelTableModel::deleteFromTable(int row)
{
    return run(Change::Delete, {}, {}, m_rows.at(row).at(RowStatements::idColumn)) != nullptr;
}

/// Removes \a rows, in ascending order, from the copy. Views take a pass over all rows for each
/// notification, so there are no more than a few.
void UserSongsRelTableModel::dropRows(const QList<int> &rows)
{
    constexpr qsizetype mostNotifications = 16;
    for (const int row : rows)
        countOutcome(row, -1);
    const QList<RowRange> ranges = rangesOf(rows);
    if (ranges.size() <= mostNotifications) {
        for (auto range = ranges.crbegin(); range != ranges.crend(); ++range) {
            beginRemoveRows(QModelIndex(), range->first, range->last);
            m_rows.remove(range->first, range->last - range->first + 1);
            endRemoveRows();
        }
        return;
    }
    beginResetModel();
    QList<Row> kept;
    kept.reserve(m_rows.size() - rows.size());
    qsizetype next = 0;
    for (const RowRange &range : ranges) {
        kept.append(m_rows.sliced(next, range.first - next));
        next = range.last + 1;
    }
    kept.append(m_rows.sliced(next));
    m_rows = std::move(kept);
    endResetModel();
}

} // namespace brisel
