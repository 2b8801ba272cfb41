// What became of the songs, and the files that could not be read.

#include "db/usersongsreltablemodel.h"

#include <algorithm>
#include <utility>

namespace brisel
{

namespace
{

SongOutcome outcomeOf(int status)
{
    switch (status) {
    case Database::Updated:
        return SongOutcome::Updated;
    case Database::Edited:
        return SongOutcome::Edited;
    case Database::Failed:
        return SongOutcome::NotFound;
    default:
        return SongOutcome::Imported;
    }
}

size_t placeOf(const QVariant &outcome)
{
    return static_cast<size_t>(
        std::clamp(outcome.toInt(), 0, static_cast<int>(allSongOutcomes.size()) - 1));
}

QString sourceOf(const std::optional<Reason> &reason)
{
    return reason.has_value() ? QString::fromUtf8(reason->source()) : QStringLiteral("");
}

} // namespace

void UserSongsRelTableModel::setStatus(int row, Database::statusEnum status)
{
    setStatus(row, status, outcomeOf(status), std::nullopt);
}

void UserSongsRelTableModel::setStatus(int row, Database::statusEnum status, SongOutcome outcome,
                                       std::optional<Reason> reason)
{
    writeCells(row, {m_status, m_outcome, m_reason},
               {static_cast<int>(status), static_cast<int>(outcome), sourceOf(reason)});
}

void UserSongsRelTableModel::setOutcome(int row, SongOutcome outcome, std::optional<Reason> reason)
{
    writeCells(row, {m_outcome, m_reason}, {static_cast<int>(outcome), sourceOf(reason)});
}

SongOutcome UserSongsRelTableModel::outcome(int row) const
{
    if (row < 0 || row >= rowCount())
        return SongOutcome::Imported;
    return allSongOutcomes.at(placeOf(rowAt(row).at(m_outcome)));
}

QString UserSongsRelTableModel::outcomeText(int row) const
{
    QString word = outcomeWord(outcome(row));
    const QString reason =
        row < 0 || row >= rowCount() ? QString() : rowAt(row).at(m_reason).toString();
    if (reason.isEmpty())
        return word;
    return QStringLiteral("%1 (%2)").arg(word, Reason::translated(reason.toUtf8().constData()));
}

int UserSongsRelTableModel::outcomeCount(SongOutcome outcome) const
{
    const int songs = m_outcomeCounts.at(static_cast<size_t>(outcome));
    return outcome == SongOutcome::NotReadable ? songs + static_cast<int>(shownUnreadable())
                                               : songs;
}

void UserSongsRelTableModel::countOutcome(int row, int change)
{
    m_outcomeCounts.at(placeOf(m_rows.at(row).at(m_outcome))) += change;
}

void UserSongsRelTableModel::countOutcomes(const QList<Row> &rows, int change)
{
    for (const Row &row : rows)
        m_outcomeCounts.at(placeOf(row.at(m_outcome))) += change;
}

const UserSongsRelTableModel::Row &UserSongsRelTableModel::rowAt(int row) const
{
    return isSong(row) ? m_rows.at(row) : m_unreadable.at(row - m_rows.size());
}

void UserSongsRelTableModel::addUnreadable(const QString &path, Reason reason)
{
    Row row(columnCount());
    row[m_filename] = path;
    row[m_shortName] = path.mid(path.lastIndexOf(u'/') + 1);
    row[m_outcome] = static_cast<int>(SongOutcome::NotReadable);
    row[m_reason] = sourceOf(reason);
    m_unannouncedUnreadable.append(std::move(row));
    announceInTime();
}

void UserSongsRelTableModel::announceUnreadable()
{
    if (m_unannouncedUnreadable.isEmpty())
        return;
    const int count = static_cast<int>(m_unannouncedUnreadable.size());
    if (m_isShowingUnreadable)
        beginInsertRows(QModelIndex(), rowCount(), rowCount() + count - 1);
    m_unreadable.append(std::exchange(m_unannouncedUnreadable, {}));
    if (m_isShowingUnreadable)
        endInsertRows();
    m_sinceAnnounced.start();
}

void UserSongsRelTableModel::clearUnreadable()
{
    const bool wasShowing = m_isShowingUnreadable;
    showUnreadable(false);
    m_unreadable.clear();
    m_isShowingUnreadable = wasShowing;
}

void UserSongsRelTableModel::removeUnreadable(const QSet<QString> &paths)
{
    const bool wasShowing = m_isShowingUnreadable;
    showUnreadable(false);
    m_unreadable.removeIf(
        [this, &paths](const Row &row) { return paths.contains(row.at(m_filename).toString()); });
    showUnreadable(wasShowing);
}

void UserSongsRelTableModel::showUnreadable(bool on)
{
    announce();
    if (on == m_isShowingUnreadable)
        return;
    const int first = static_cast<int>(m_rows.size());
    const int last = first + static_cast<int>(m_unreadable.size()) - 1;
    if (last < first) {
        m_isShowingUnreadable = on;
        return;
    }
    if (on)
        beginInsertRows(QModelIndex(), first, last);
    else
        beginRemoveRows(QModelIndex(), first, last);
    m_isShowingUnreadable = on;
    if (on)
        endInsertRows();
    else
        endRemoveRows();
}

} // namespace brisel
