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
    m_entries.insert(song.path, {0, song.before, song.fields});
    if (!m_trouble.has_value())
        m_pending.append(song);
}

void HistoryRecorder::forget(const QString &path)
{
    drop(path);
    m_entries.remove(path);
}

void HistoryRecorder::drop(const QString &path)
{
    m_pending.removeIf([&path](const KeptSong &song) { return song.path == path; });
    if (const qint64 id = m_entries.value(path).id; id != 0)
        m_unwritten.append(id);
}

void HistoryRecorder::flush()
{
    const QList<KeptSong> songs = std::exchange(m_pending, {});
    QList<qint64> ids;
    if (songs.isEmpty() || m_trouble.has_value())
        return;
    if (!m_history.add(m_run, m_kind, songs, ids)) {
        m_trouble = m_history.trouble().value_or(FileReason::unwritable);
        return;
    }
    for (qsizetype i = 0; i < songs.size(); ++i)
        m_entries[songs.at(i).path].id = ids.at(i);
}

QList<FieldChange> HistoryRecorder::settle(const QString &path, WriteResult result)
{
    if (!m_entries.contains(path))
        return {};
    const Entry entry = m_entries.value(path);
    // A failed write may have changed the file: then its old bytes are needed all the more.
    if (result != WriteResult::Done &&
        (result == WriteResult::Changed || isUnchanged(path, entry.before)))
        drop(path);
    m_entries.remove(path);
    return result == WriteResult::Done ? entry.fields : QList<FieldChange>();
}

void HistoryRecorder::finish(const QString &report)
{
    if (m_run == 0 || m_trouble.has_value())
        return;
    if (!m_history.finish(m_run, std::exchange(m_unwritten, {}), report))
        m_trouble = m_history.trouble().value_or(FileReason::unwritable);
}

} // namespace brisel
