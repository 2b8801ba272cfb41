#include "library/dialogs/markersmodel.h"

#include "base/songtext.h"
#include "library/dialogs/celltext.h"
#include "songfile/rawmidifile.h"

#include <algorithm>
#include <limits>

namespace brisel
{

namespace
{

bool isBefore(const Marker &left, const Marker &right)
{
    return left.bar < right.bar;
}

} // namespace

MarkersModel::MarkersModel(const QList<Marker> &markers, bool isWritable, QObject *parent)
    : QAbstractTableModel(parent), m_markers(sorted(markers)), m_isWritable(isWritable)
{
}

QList<Marker> MarkersModel::sorted(QList<Marker> markers)
{
    std::stable_sort(markers.begin(), markers.end(), isBefore);
    return markers;
}

int MarkersModel::addAfter(int row)
{
    constexpr int lastBar = std::numeric_limits<quint16>::max();
    const bool isRow = row >= 0 && row < m_markers.size();
    const Marker added{{}, isRow ? std::min(m_markers.at(row).bar + 1, lastBar) : 1};
    const auto place = std::upper_bound(m_markers.cbegin(), m_markers.cend(), added, isBefore);
    const int newRow = static_cast<int>(place - m_markers.cbegin());
    beginInsertRows({}, newRow, newRow);
    m_markers.insert(newRow, added);
    endInsertRows();
    return newRow;
}

void MarkersModel::removeMarkers(QList<int> rows)
{
    std::sort(rows.begin(), rows.end());
    QList<Marker> kept;
    kept.reserve(m_markers.size());
    for (int row = 0; row < m_markers.size(); ++row) {
        if (!std::binary_search(rows.cbegin(), rows.cend(), row))
            kept.append(m_markers.at(row));
    }
    beginResetModel();
    m_markers = kept;
    endResetModel();
}

int MarkersModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_markers.size());
}

int MarkersModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

Qt::ItemFlags MarkersModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return m_isWritable && index.isValid() ? flags | Qt::ItemIsEditable : flags;
}

QVariant MarkersModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Marker &marker = m_markers.at(index.row());
    if (role == Qt::EditRole)
        return index.column() == Bar ? QVariant(marker.bar) : QVariant(marker.text);
    if (role == Qt::DisplayRole)
        return index.column() == Bar ? QString::number(marker.bar) : cellText(marker.text);
    return {};
}

bool MarkersModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!m_isWritable || !index.isValid() || role != Qt::EditRole)
        return false;
    Marker changed = m_markers.at(index.row());
    if (index.column() == Bar)
        changed.bar = value.toInt();
    else if (value.toString() != changed.text)
        changed.text = trimmedSongText(value.toString());
    if (changed == m_markers.at(index.row()))
        return true;
    // A text that was read stays as it is: it may have characters that can't be typed.
    const bool isTextKept = index.column() == Bar;
    if (!RawMidiFile::isStorable(isTextKept ? Marker{{}, changed.bar} : changed))
        return false;
    if (isTextKept) {
        setBar(index.row(), changed.bar);
    } else {
        m_markers[index.row()] = changed;
        emit dataChanged(index, index);
    }
    return true;
}

/// The row moves to its place, behind those of the same bar.
void MarkersModel::setBar(int row, int bar)
{
    Marker moved = m_markers.at(row);
    const bool isForward = bar > moved.bar;
    moved.bar = bar;
    const auto place = std::upper_bound(m_markers.cbegin(), m_markers.cend(), moved, isBefore);
    const int before = static_cast<int>(place - m_markers.cbegin());
    const int after = isForward ? before - 1 : before; // the row itself is gone from before it
    const bool isMoved = after != row && beginMoveRows({}, row, row, {}, before);
    m_markers[row] = moved;
    m_markers.move(row, after);
    if (isMoved)
        endMoveRows();
    emit dataChanged(index(after, 0), index(after, ColumnCount - 1));
}

QVariant MarkersModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == Bar ? tr("Battuta") : tr("Testo");
}

} // namespace brisel
