#pragma once

#include "base/filelot.h"
#include "base/run.h"
#include "db/songoutcome.h"
#include "library/pulledmemories.h"
#include "library/syncplan.h"
#include "songfile/songinfo.h"

#include <QCoreApplication>
#include <QSet>
#include <QString>

#include <optional>
#include <utility>

namespace brisel
{

class Database;
class HistoryRecorder;
class UserSongsRelTableModel;
struct SongFile;

/// Synchronises the songs of the library with the catalogue: looks each one up, writes the
/// catalogue's data into its file, and updates its row from the file.
class Synchroniser
{
    Q_DECLARE_TR_FUNCTIONS(Synchroniser)

public:
    enum class Outcome {
        Done,        ///< every row was processed
        Interrupted, ///< by the user or the end of the program; the remaining rows are unchanged
    };

    static constexpr Reason notInCatalogue{
        QT_TRANSLATE_NOOP("RunReport", "il database Kordia non la contiene")};
    static constexpr Reason declined{
        QT_TRANSLATE_NOOP("RunReport", "la modifica è stata rifiutata"), Reason::Kind::Skip};

    /// The user has not seen what would be changed.
    static constexpr Reason changedAfterPreview{
        QT_TRANSLATE_NOOP("RunReport", "il file è cambiato dopo l'anteprima")};

    /// Without \a askPublisher, songs that the publisher did not publish are changed without a
    /// question.
    Synchroniser(UserSongsRelTableModel &model, Database &catalogue, bool askPublisher);

    /// Keeps the changed songs with \a recorder, which must outlive this object; null for none.
    void setRecorder(HistoryRecorder *recorder);

    /// Only the songs of \a plan are changed, as the user has seen it and without a question; other
    /// rows keep their status. A file that was changed since then is not written.
    void setPlan(const SyncPlan &plan) { m_plan = plan; }

    /// Writes the heading of the run to the log. Returns false, logged, if there are no rows.
    [[nodiscard]] bool announce();

    /// Processes every row once, in the table's order, which must not change during the run, and
    /// sets its status. Songs are committed in lots, before a question and at the end of the run;
    /// their rows are updated then.
    [[nodiscard]] Outcome run(Run &run);

    /// Processes one row without changing its status. Returns true if its file was found in the
    /// catalogue, rewritten and read again.
    [[nodiscard]] bool updateFileWithDb(Run &run, int row);

private:
    using Step = RunReport::Step;

    enum class Change {
        Failed, ///< the song can't be read, or must not be changed; reported
        Made,   ///< the row shows the song's content, changed or not
        Staged, ///< the song waits for the end of the lot
    };

    struct Staged {
        int row = 0;
        SongInfo before; ///< the song as it was read
    };

    Outcome updateRows(Run &run);
    QList<int> rowsToUpdate();
    const SyncPlan::Song *planned(int row) const;
    bool isAsSeen(const SyncPlan::Song &seen, const SongFile &file) const;
    bool applySeen(const SyncPlan::Song &seen, SongFile &file, const SongInfo &merged);
    Change change(Run &run, int row, FileLot *lot);
    Change save(Run &run, int row, SongFile &file, FileLot *lot);
    bool finishLot(Run &run);
    bool finishRow(Run &run, const Staged &song, std::optional<Reason> whyNotSaved);
    void noteUpdated(Run &run, const SongFile &held, const SongInfo &before);
    void setStatus(int row, bool isUpdated);
    static SongOutcome outcomeOf(Step step, Reason reason);
    void note(Run &run, Step step, const QString &fileName, Reason reason);
    void noteRowsLeft(Run &run, const QList<int> &rows);
    bool mayChange(Run &run, const QString &fileName);

    UserSongsRelTableModel &m_model;
    Database &m_catalogue;
    const bool m_askPublisher;
    PulledMemories m_memories;
    std::optional<SyncPlan> m_plan;
    QSet<std::pair<quint64, quint64>> m_ours; ///< files of the plan that this run has changed
    FileLot m_lot;
    HistoryRecorder *m_recorder = nullptr;
    QList<Staged> m_staged; ///< the songs in the lot
    /// Of the song that was processed last, for setStatus().
    std::pair<SongOutcome, std::optional<Reason>> m_outcome{SongOutcome::Imported, std::nullopt};
};

} // namespace brisel
