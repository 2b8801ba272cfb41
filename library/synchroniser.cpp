#include "library/synchroniser.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/run.h"
#include "base/runguard.h"
#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "library/cataloguelookup.h"
#include "library/dialogs/nocopyrightdialog.h"
#include "library/progress.h"
#include "library/songfailure.h"
#include "library/workflowlog.h"
#include "songfile/metasong.h"

#include <QFileInfo>

#include <utility>

Synchroniser::Synchroniser(UserSongsRelTableModel &model, Database &catalogue, bool askPublisher,
                           Question question)
    : m_model(model), m_catalogue(catalogue), m_question(std::move(question)),
      m_askPublisher(askPublisher)
{
}

bool Synchroniser::updateRows(Progress &progress)
{
    const UserSongsRelTableModel::ManyChanges changes(m_model);
    const int count = m_model.goodRowCount();
    for (int row = 0; row < count; ++row)
        m_memories.pulledFrom(m_model.fileName(row)); // what is there at the beginning
    for (int row = 0; row < count; ++row) {
        if (progress.isCanceled()) {
            finishLot();
            noteRowsLeft(row);
            return false;
        }
        debug() << "[UPDATE] rowIdx: " << row;
        debug() << "[UPDATE] updating file: " << m_model.fileName(row);
        if (m_lot.isFull() || m_lot.holds(QFileInfo(m_model.fileName(row)).canonicalFilePath()))
            finishLot();
        const Change made = change(row, &m_lot);
        // The end of the program is no verdict on the song.
        if (made == Change::Failed && RunGuard::endRequested()) {
            finishLot();
            return false;
        }
        if (made != Change::Staged)
            setStatus(row, made == Change::Made);
        progress.setValue(row + 1);
        logSongEnd();
        progress.breathe();
    }
    finishLot();
    return true;
}

bool Synchroniser::updateFileWithDb(int row)
{
    return change(row, nullptr) == Change::Made;
}

/// Without a \a lot the song is saved at once.
Synchroniser::Change Synchroniser::change(int row, FileLot *lot)
{
    const QString fileName = m_model.fileName(row);
    MetaSong song;
    if (!m_memories.pulledFrom(fileName).isEmpty() || !song.importFile(fileName)) {
        note(Step::Read, fileName, whyNoSong(song, fileName));
        return Change::Failed;
    }
    SongInfo info;
    song.getSongInfo(info);
    if (!info.isKordia && !mayChange(fileName)) {
        note(Step::Change, fileName,
             RunGuard::endRequested() ? Run::interrupted : Synchroniser::declined);
        return Change::Failed;
    }

    const CatalogueKeys keys = catalogueKeys(m_model.shortName(row), info);
    SongsDbRecord record;
    QString trace;
    if (!findInCatalogue(m_catalogue, keys, record, trace)) {
        debug() << "Record " << QString(keys.file + u'/' + keys.title) << "NOT found in DB";
        note(Step::Find, fileName, Synchroniser::notInCatalogue);
        return Change::Failed;
    }
    debug() << "Found in DB by: " << trace;
    record.dbgDump();
    song.setSongInfo(mergedWithCatalogue(info, record), false);
    // One that went away with its memory is not made anew where the memory was.
    WriteResult result = WriteResult::Failed;
    if (isRegularFile(fileName) && lot != nullptr)
        result = song.saveInLot(fileName, *lot);
    else if (isRegularFile(fileName) && song.saveToFile(fileName))
        result = WriteResult::Done;
    if (result == WriteResult::Staged) {
        m_staged.append(row);
        return Change::Staged;
    }
    const std::optional<Reason> whyNot =
        result == WriteResult::Done ? std::nullopt : std::optional(whyNotSaved(song, fileName));
    return finishRow(row, whyNot) ? Change::Made : Change::Failed;
}

/// Puts the songs of the lot in their places. True when the last of them could be read again.
bool Synchroniser::finishLot()
{
    const QList<int> rows = std::exchange(m_staged, {});
    const QList<WriteResult> results = m_lot.commit();
    bool isReadAgain = false;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const int row = rows.at(i);
        const QString fileName = m_model.fileName(row);
        switch (results.at(i)) {
        case WriteResult::Done:
            isReadAgain = finishRow(row, std::nullopt);
            break;
        case WriteResult::Changed: // by another program since it was read
            isReadAgain = updateFileWithDb(row);
            break;
        default:
            MetaSong::logFailedSave();
            isReadAgain = finishRow(row, whyNotPlaced(fileName));
        }
        setStatus(row, isReadAgain);
    }
    return isReadAgain;
}

/// Shows what the row's song holds, saved or not. False when it could not be read again.
bool Synchroniser::finishRow(int row, std::optional<Reason> whyNotSaved)
{
    const QString fileName = m_model.fileName(row);
    MetaSong held;
    const bool isReadAgain = reloadRow(row, fileName, held);
    if (whyNotSaved.has_value())
        note(Step::Save, fileName, *whyNotSaved);
    else if (!isReadAgain)
        note(Step::Read, fileName, whyNoSong(held, fileName));
    else
        m_report.count(RunReport::Success::Updated);
    return isReadAgain;
}

void Synchroniser::setStatus(int row, bool isUpdated)
{
    m_model.setStatus(row, isUpdated ? Database::Updated : Database::Failed);
}

/// A failure on a memory that was pulled is the memory's.
void Synchroniser::note(Step lack, const QString &fileName, Reason reason)
{
    const bool isFailure = reason != Run::interrupted && reason != Synchroniser::declined;
    const QString memory = isFailure ? m_memories.pulledFrom(fileName) : QString();
    if (memory.isEmpty())
        m_report.add(lack, fileName, reason);
    else
        m_report.addShared(lack, memory, MemoryReason::gone);
}

/// The rows that an interrupted run did not come to.
void Synchroniser::noteRowsLeft(int firstRow)
{
    const int count = m_model.goodRowCount();
    for (int row = firstRow; row < count; ++row)
        note(Step::Change, m_model.fileName(row), Run::interrupted);
}

bool Synchroniser::mayChange(const QString &fileName)
{
    if (!m_askPublisher)
        return m_rememberedAnswer;
    finishLot();
    const int answer = m_question(fileName);
    // When the program is being ended nobody may have seen the question.
    if (RunGuard::endRequested())
        return false;
    const bool change = answer == NoCopyrightDialog::Yes || answer == NoCopyrightDialog::YesToAll;
    if (answer == NoCopyrightDialog::YesToAll || answer == NoCopyrightDialog::NoToAll) {
        m_askPublisher = false;
        m_rememberedAnswer = change;
    }
    return change;
}

/// Reads the file into \a song and shows it in its row. A file that went away with its volume
/// leaves the row as it was.
bool Synchroniser::reloadRow(int row, const QString &fileName, MetaSong &song)
{
    if (!song.importFile(fileName))
        return false;
    SongInfo info;
    song.getSongInfo(info);
    m_model.updateRow(row, info);
    return true;
}
