#include "history/historyrecorder.h"

#include "base/filefailure.h"
#include "base/plainfile.h"

#include <utility>

namespace brisel
{

namespace
{

bool isUnchanged(const QString &path, const Fingerprint &before)
{
    PlainFile file;
    return file.open(path) && before.isOf(file);
}

} // namespace

void HistoryRecorder::keep(const KeptSong &song)
{
    m_entries.insert(song.path, {0, song.before});
    if (!m_trouble.has_value())
        m_pending.append(song);
}

void HistoryRecorder::drop(const QString &path, qint64 id)
{
    m_pending.removeIf([&path](const KeptSong &song) { return song.path == path; });
    if (id != 0)
        m_unwritten.append(id);
}

void HistoryRecorder::flush()
{
    const QList<KeptSong> songs = std::exchange(m_pending, {});
    QList<qint64> ids;
    if (songs.isEmpty() || m_trouble.has_value())
        return;
    if (!m_history.add(m_run, m_kind, songs, ids, m_unwritten)) {
        m_trouble = m_history.trouble().value_or(FileReason::unwritable);
        return;
    }
    m_isCut = m_isCut || m_history.wasCut();
    m_unwritten.clear();
    for (qsizetype i = 0; i < songs.size(); ++i)
        m_entries[songs.at(i).path].id = ids.at(i);
}

void HistoryRecorder::settle(const QString &path, WriteResult result)
{
    const auto found = m_entries.find(path);
    if (found == m_entries.end())
        return;
    const Entry entry = *found;
    m_entries.erase(found);
    // A failed write may have changed the file: then its old bytes are needed all the more.
    if (result == WriteResult::Changed ||
        (result != WriteResult::Done && isUnchanged(path, entry.before)))
        drop(path, entry.id);
}

void HistoryRecorder::finish(RunReport &report)
{
    if (m_isCut)
        report.addNotice(
            tr("La cronologia è piena: le prime modifiche di questa operazione non ci sono più"));
    if (m_run != 0 && !m_trouble.has_value() &&
        !m_history.finish(m_run, std::exchange(m_unwritten, {}), report.text()))
        m_trouble = m_history.trouble().value_or(FileReason::unwritable);
    if (m_trouble.has_value())
        report.addNotice(
            tr("Non tutte le modifiche sono nella cronologia: %1").arg(m_trouble->text()));
}

} // namespace brisel
