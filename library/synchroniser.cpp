#include "library/synchroniser.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/runguard.h"
#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "library/cataloguelookup.h"
#include "library/nocopyrightdialog.h"
#include "library/progress.h"
#include "library/songfailure.h"
#include "library/workflowlog.h"
#include "songfile/metasong.h"

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
    for (int row = 0; row < count; ++row) {
        if (progress.isCanceled()) {
            noteRowsLeft(row);
            return false;
        }
        debug() << "[UPDATE] rowIdx: " << row;
        debug() << "[UPDATE] updating file: " << m_model.fileName(row);
        const bool updated = updateFileWithDb(row);
        // The end of the program is no verdict on the song.
        if (!updated && RunGuard::endRequested())
            return false;
        m_model.setStatus(row, updated ? Database::Updated : Database::Failed);
        progress.setValue(row + 1);
        logSongEnd();
        progress.breathe();
    }
    return true;
}

bool Synchroniser::updateFileWithDb(int row)
{
    const QString fileName = m_model.fileName(row);
    MetaSong song;
    if (!song.importFile(fileName)) {
        m_report.add(Lack::Read, fileName, whyNoSong(song, fileName));
        return false;
    }
    SongInfo info;
    song.getSongInfo(info);
    if (!info.isKordia && !mayChange(fileName)) {
        m_report.add(Lack::Changed, fileName,
                     RunGuard::endRequested() ? Reason::Interrupted : Reason::Declined);
        return false;
    }

    const CatalogueKeys keys = catalogueKeys(m_model.shortName(row), info);
    SongsDbRecord record;
    QString trace;
    if (!findInCatalogue(m_catalogue, keys, record, trace)) {
        debug() << "Record " << QString(keys.file + u'/' + keys.title) << "NOT found in DB";
        m_report.add(Lack::Found, fileName, Reason::NotInCatalogue);
        return false;
    }
    debug() << "Found in DB by: " << trace;
    record.dbgDump();
    song.setSongInfo(mergedWithCatalogue(info, record), false);
    // Whether it was saved is seen in the row, too: it shows what the file holds. One that went
    // away with its memory is not made anew where the memory was.
    const bool saved = isRegularFile(fileName) && song.saveToFile(fileName);
    MetaSong held;
    const bool readAgain = reloadRow(row, fileName, held);
    if (!saved)
        m_report.add(Lack::Saved, fileName, whyNotSaved(song, fileName));
    else if (!readAgain)
        m_report.add(Lack::Read, fileName, whyNoSong(held, fileName));
    else
        m_report.count(RunReport::Success::Updated);
    return readAgain;
}

/// The rows that an interrupted run did not come to.
void Synchroniser::noteRowsLeft(int firstRow)
{
    const int count = m_model.goodRowCount();
    for (int row = firstRow; row < count; ++row)
        m_report.add(Lack::Changed, m_model.fileName(row), Reason::Interrupted);
}

bool Synchroniser::mayChange(const QString &fileName)
{
    if (!m_askPublisher)
        return m_rememberedAnswer;
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
