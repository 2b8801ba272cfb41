#include "library/synchroniser.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "history/historyrecorder.h"
#include "library/cataloguelookup.h"
#include "library/songchanges.h"
#include "library/songfailure.h"
#include "library/songfile.h"
#include "library/workflowlog.h"

#include <QFileInfo>

#include <numeric>
#include <utility>

namespace brisel
{

Synchroniser::Synchroniser(UserSongsRelTableModel &model, Database &catalogue, bool askPublisher)
    : m_model(model), m_catalogue(catalogue), m_askPublisher(askPublisher)
{
}

void Synchroniser::setRecorder(HistoryRecorder *recorder)
{
    m_recorder = recorder;
    m_lot.setBeforeReplacing([recorder] {
        if (recorder != nullptr)
            recorder->flush();
    });
}

bool Synchroniser::announce()
{
    logBanner("UPDATE USER LIBRARY");
    if (m_model.goodRowCount() > 0)
        return true;
    debug() << "[UPDATE] WARNING: Empty table. Aborting update !!!";
    return false;
}

Synchroniser::Outcome Synchroniser::run(Run &run)
{
    if (!m_askPublisher)
        run.answerAll(Run::Question::ChangeUnpublished, true);
    m_catalogue.prepareLookUps();
    run.begin({tr("Aggiornamento file"), tr("Aggiorno la libreria..."),
               static_cast<int>(rowsToUpdate().size())});
    const Outcome outcome = updateRows(run);
    if (m_recorder != nullptr)
        m_recorder->finish(run.report());
    run.end();
    return outcome;
}

Synchroniser::Outcome Synchroniser::updateRows(Run &run)
{
    const UserSongsRelTableModel::ManyChanges changes(m_model);
    const QList<int> rows = rowsToUpdate();
    for (const int row : rows)
        m_memories.pulledFrom(m_model.fileName(row)); // remembers the memory at the start
    for (qsizetype done = 0; done < rows.size(); ++done) {
        const int row = rows.at(done);
        if (!run.mayGoOn()) {
            finishLot(run);
            noteRowsLeft(run, rows.sliced(done));
            return Outcome::Interrupted;
        }
        debug() << "[UPDATE] rowIdx: " << row;
        debug() << "[UPDATE] updating file: " << m_model.fileName(row);
        if (m_lot.isFull() || m_lot.holds(QFileInfo(m_model.fileName(row)).canonicalFilePath()))
            finishLot(run);
        const Change made = change(run, row, &m_lot);
        // The end of the program is not a failure of the song.
        if (made == Change::Failed && Run::isEnding()) {
            finishLot(run);
            return Outcome::Interrupted;
        }
        if (made != Change::Staged)
            setStatus(row, made == Change::Made);
        run.setStep(static_cast<int>(done) + 1);
        logSongEnd();
        run.processEvents();
    }
    finishLot(run);
    return Outcome::Done;
}

QList<int> Synchroniser::rowsToUpdate()
{
    if (m_plan.has_value())
        return m_plan->rows();
    QList<int> rows(m_model.goodRowCount());
    std::iota(rows.begin(), rows.end(), 0);
    return rows;
}

const SyncPlan::Song *Synchroniser::planned(int row) const
{
    return m_plan.has_value() ? m_plan->song(row) : nullptr;
}

/// False if another program has changed the file since the preview.
bool Synchroniser::isAsSeen(const SyncPlan::Song &seen, const SongFile &file) const
{
    return file.song.stateWhenRead() == seen.state ||
           m_ours.contains({seen.state.device, seen.state.inode}); // a second row of one file
}

/// Changes the song in memory. Returns false if the result is not what the user has seen: some file
/// systems keep times of two seconds, so the state may hide a change of the file.
bool Synchroniser::applySeen(const SyncPlan::Song &seen, SongFile &file, const SongInfo &merged)
{
    MetaSong whole = file.song;
    SongInfo after;
    whole.setSongInfo(merged, false);
    whole.getSongInfo(after);
    const std::pair<quint64, quint64> id(seen.state.device, seen.state.inode);
    if (!m_ours.contains(id) && fieldChanges(file.info, after) != seen.changes)
        return false;
    m_ours.insert(id);
    file.song.setSongInfo(merged, false, seen.fields);
    return true;
}

bool Synchroniser::updateFileWithDb(Run &run, int row)
{
    if (!m_askPublisher)
        run.answerAll(Run::Question::ChangeUnpublished, true);
    const bool isMade = change(run, row, nullptr) == Change::Made;
    if (m_recorder != nullptr)
        m_recorder->finish(run.report());
    return isMade;
}

/// Without a \a lot the song is saved at once.
Synchroniser::Change Synchroniser::change(Run &run, int row, FileLot *lot)
{
    const QString fileName = m_model.fileName(row);
    SongFile file(fileName, m_memories);
    if (!file.isOpen) {
        note(run, Step::Read, fileName, file.whyNotOpen());
        return Change::Failed;
    }
    const SyncPlan::Song *seen = planned(row);
    if (seen != nullptr && !isAsSeen(*seen, file)) {
        note(run, Step::Change, fileName, Synchroniser::changedAfterPreview);
        return Change::Failed;
    }
    if (seen == nullptr && !file.info.isKordia && !mayChange(run, fileName)) {
        note(run, Step::Change, fileName,
             Run::isEnding() ? Run::interrupted : Synchroniser::declined);
        return Change::Failed;
    }

    const CatalogueKeys keys = catalogueKeys(m_model.shortName(row), file.info);
    const std::optional<CatalogueHit> hit =
        findInCatalogue(m_catalogue, keys, seen != nullptr ? seen->chosen.get() : nullptr);
    if (!hit.has_value()) {
        debug() << "Record " << QString(keys.file + u'/' + keys.title) << "NOT found in DB";
        note(run, Step::Find, fileName, Synchroniser::notInCatalogue);
        return Change::Failed;
    }
    debug() << "Found in DB by: " << hit->trace;
    hit->record.dbgDump();
    file.song.setKeeper(m_recorder);
    const SongInfo merged = mergedWithCatalogue(file.info, hit->record);
    if (seen == nullptr) {
        file.song.setSongInfo(merged, false);
    } else if (!applySeen(*seen, file, merged)) {
        note(run, Step::Change, fileName, Synchroniser::changedAfterPreview);
        return Change::Failed;
    }
    return save(run, row, file, lot);
}

Synchroniser::Change Synchroniser::save(Run &run, int row, SongFile &file, FileLot *lot)
{
    // A song on a removed memory must not be created in the mount folder.
    WriteResult result = WriteResult::Failed;
    if (isRegularFile(file.path) && lot != nullptr)
        result = file.song.saveInLot(file.path, *lot);
    else if (isRegularFile(file.path) && file.song.saveToFile(file.path))
        result = WriteResult::Done;
    if (result == WriteResult::Staged) {
        m_staged.append({row, file.info});
        return Change::Staged;
    }
    const std::optional<Reason> whyNot = result == WriteResult::Done
                                             ? std::nullopt
                                             : std::optional(whyNotSaved(file.song, file.path));
    return finishRow(run, {row, file.info}, whyNot) ? Change::Made : Change::Failed;
}

/// Commits the songs of the lot. Returns true if the last of them could be read again.
bool Synchroniser::finishLot(Run &run)
{
    const QList<Staged> songs = std::exchange(m_staged, {});
    const QList<WriteResult> results = m_lot.commit();
    bool isReadAgain = false;
    for (qsizetype i = 0; i < songs.size(); ++i) {
        const int row = songs.at(i).row;
        const QString fileName = m_model.fileName(row);
        if (m_recorder != nullptr)
            m_recorder->settle(fileName, results.at(i));
        switch (results.at(i)) {
        case WriteResult::Done:
            isReadAgain = finishRow(run, songs.at(i), std::nullopt);
            break;
        case WriteResult::Changed: // by another program since it was read
            if (const SyncPlan::Song *seen = planned(row); seen != nullptr)
                m_ours.remove({seen->state.device, seen->state.inode});
            isReadAgain = change(run, row, nullptr) == Change::Made;
            break;
        default:
            MetaSong::logFailedSave();
            isReadAgain = finishRow(run, songs.at(i), whyNotPlaced(fileName));
        }
        setStatus(row, isReadAgain);
    }
    return isReadAgain;
}

/// Shows the content of the row's song, saved or not, and reports its changes. Returns false if it
/// could not be read again: then the row is unchanged, also if the memory of the file was removed.
bool Synchroniser::finishRow(Run &run, const Staged &song, std::optional<Reason> whyNotSaved)
{
    const SongFile held(m_model.fileName(song.row));
    if (held.isOpen)
        m_model.updateRow(song.row, held.info, held.song.stateWhenRead());
    if (whyNotSaved.has_value())
        note(run, Step::Save, held.path, *whyNotSaved);
    else if (!held.isOpen)
        note(run, Step::Read, held.path, held.whyNotOpen());
    else
        noteUpdated(run, held, song.before);
    return held.isOpen;
}

void Synchroniser::noteUpdated(Run &run, const SongFile &held, const SongInfo &before)
{
    m_outcome = {SongOutcome::Updated, std::nullopt};
    run.report().count(RunReport::Success::Updated);
    run.report().addChanges(held.path, reportedChanges(fieldChanges(before, held.info)));
}

void Synchroniser::setStatus(int row, bool isUpdated)
{
    m_model.setStatus(row, isUpdated ? Database::Updated : Database::Failed, m_outcome.first,
                      m_outcome.second);
}

void Synchroniser::note(Run &run, Step step, const QString &fileName, Reason reason)
{
    const Reason noted = m_memories.note(run.report(), step, fileName, reason);
    m_outcome = {outcomeOf(step, noted), noted};
}

SongOutcome Synchroniser::outcomeOf(Step step, Reason reason)
{
    if (step == Step::Find)
        return SongOutcome::NotFound;
    if (reason == Synchroniser::declined)
        return SongOutcome::Declined;
    return step == Step::Read ? SongOutcome::NotReadable : SongOutcome::NotWritten;
}

/// Reports the rows that an interrupted run did not reach.
void Synchroniser::noteRowsLeft(Run &run, const QList<int> &rows)
{
    for (const int row : rows)
        note(run, Step::Change, m_model.fileName(row), Run::interrupted);
}

bool Synchroniser::mayChange(Run &run, const QString &fileName)
{
    if (run.isAsking(Run::Question::ChangeUnpublished))
        finishLot(run);
    return run.ask(Run::Question::ChangeUnpublished, fileName);
}

} // namespace brisel
