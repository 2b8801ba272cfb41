#pragma once

#include "base/filewriting.h"
#include "base/runreport.h"
#include "history/history.h"
#include "history/packingqueue.h"
#include "songfile/songkeeper.h"

#include <QCoreApplication>
#include <QHash>

namespace brisel
{

/// Keeps the songs that one run changes in the history. A history that can't be written never stops
/// the run: after the first failure nothing more is kept, unless another program's lock was the
/// reason.
class HistoryRecorder : public SongKeeper
{
    Q_DECLARE_TR_FUNCTIONS(HistoryRecorder)

public:
    /// \a history must outlive this object.
    HistoryRecorder(History &history, RunKind kind) : m_history(history), m_kind(kind) {}

    void keep(const KeptSong &song) override;
    /// If the song was not changed, its entry is deleted by the next flush() or by finish().
    void settle(const QString &path, WriteResult result) override;
    void flush() override;

    /// Ends the run and stores its report. A run without songs is not kept. If some songs could not
    /// be kept, or not to the end of the run, adds a notice to the report.
    void finish(RunReport &report);

    /// The number of the run in the history, 0 before its first song is there.
    qint64 run() const { return m_run; }
    /// Why some of the songs could not be kept, or the report.
    const std::optional<Reason> &trouble() const { return m_trouble; }

private:
    struct Entry {
        qint64 id = 0; ///< 0 until it is in the history
        Fingerprint before;
    };

    void drop(const QString &path, qint64 id);
    void fail();
    bool isHopeless() const;
    void addNotices(RunReport &report);

    History &m_history;
    const RunKind m_kind;
    qint64 m_run = 0;
    PackingQueue m_pending;          ///< not yet in the history
    QHash<QString, Entry> m_entries; ///< of songs that are not settled yet, by their paths
    QList<qint64> m_unwritten;       ///< entries of songs that were not changed
    bool m_isCut = false;            ///< the run alone exceeds the limit of the history
    std::optional<Reason> m_trouble;
    bool m_isCutReported = false;
    bool m_isTroubleReported = false;
};

} // namespace brisel
