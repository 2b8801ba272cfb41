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
    if (!isHopeless())
        m_pending.add(song);
}

void HistoryRecorder::drop(const QString &path, qint64 id)
{
    if (id != 0)
        m_unwritten.append(id);
    else
        m_pending.remove(path);
}

void HistoryRecorder::flush()
{
    const QList<PackedSong> songs = m_pending.takeAll();
    QList<qint64> ids;
    if (songs.isEmpty() || isHopeless())
        return;
    if (!m_history.add(m_run, m_kind, songs, ids, m_unwritten)) {
        fail();
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

void HistoryRecorder::fail()
{
    const Reason reason = m_history.trouble().value_or(FileReason::unwritable);
    if (!m_trouble.has_value() || reason != HistoryReason::locked)
        m_trouble = reason;
}

/// A lock of another program ends.
bool HistoryRecorder::isHopeless() const
{
    return m_trouble.has_value() && m_trouble != HistoryReason::locked;
}

void HistoryRecorder::finish(RunReport &report)
{
    addNotices(report);
    if (m_run == 0)
        return;
    const bool wasCut = m_isCut;
    const std::optional<Reason> trouble = m_trouble;
    const bool isDone = m_history.finish(m_run, m_unwritten, report.text());
    if (isDone)
        m_unwritten.clear();
    else
        fail();
    m_isCut = m_isCut || m_history.wasCut();
    if (wasCut == m_isCut && trouble == m_trouble)
        return;
    addNotices(report);
    if (isDone)
        (void)m_history.finish(m_run, {}, report.text()); // the report with the new notice
}

/// Those that the report does not have yet.
void HistoryRecorder::addNotices(RunReport &report)
{
    if (m_isCut && !std::exchange(m_isCutReported, true))
        report.addNotice(
            tr("La cronologia è piena: le prime modifiche di questa operazione non ci sono più"));
    if (m_trouble.has_value() && !std::exchange(m_isTroubleReported, true))
        report.addNotice(
            tr("Non tutte le modifiche sono nella cronologia: %1").arg(m_trouble->text()));
}

} // namespace brisel
