#include "library/libraryimport.h"

#include "base/debugstream.h"
#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "library/songfile.h"
#include "library/workflowlog.h"

#include <utility>

namespace brisel
{

SongRows::SongRows(UserSongsRelTableModel &model, const SongCounts &counts)
    : m_model(model), m_counts(counts)
{
}

void SongRows::add(Run &run, const QString &path, const char *logPrefix)
{
    SongFile file(path, m_memories);
    if (file.isOpen) {
        ++m_counts.songs;
        debug() << "Song Index: " << m_counts.songs;
        file.info.fileName = path;
        file.info.shortName = path.mid(path.lastIndexOf(u'/') + 1);
        file.info.dbgDump();
        if (!m_model.addSong(file.info, file.song.stateWhenRead())) {
            debug() << "WARNING: impossible to add song to table:" << path;
            run.report().add(RunReport::Step::Read, path, LibraryImport::notInTable);
        }
        m_counts.publisherSongs += file.info.isKordia ? 1 : 0;
    } else {
        const QByteArray refusal = QByteArray(logPrefix) + "Unknown/corrupted file";
        debug() << refusal.constData() << path;
        ++m_counts.unknown;
        m_model.addUnreadable(
            path, m_memories.note(run.report(), RunReport::Step::Read, path, file.whyNotOpen()));
    }
    run.setStep(m_counts.examined());
    run.processEvents();
}

LibraryImport::LibraryImport(Database &database, UserSongsRelTableModel &model, QStringList files,
                             Mode mode)
    : m_database(database), m_model(model), m_files(std::move(files)), m_mode(mode), m_songs(model)
{
}

LibraryImport::Outcome LibraryImport::run(Run &run)
{
    logBanner("IMPORT USER LIBRARY");
    if (m_mode == Mode::Replace && !clearTable())
        return Outcome::NotCleared;
    run.begin({tr("Lettura file"), tr("Importo la libreria..."), int(m_files.size())});
    readFiles(run);
    run.end();
    return Run::isEnding() ? Outcome::Interrupted : Outcome::Done;
}

bool LibraryImport::clearTable()
{
    if (m_model.goodRowCount() == 0) {
        m_model.clearUnreadable();
        return true;
    }
    if (!m_database.clearUserLibraryDb()) {
        debug() << "[importUserLibrary] WARNING: impossible to CLEAR table. Aborting import !!!";
        return false;
    }
    m_model.clearUnreadable();
    m_model.select();
    return true;
}

void LibraryImport::readFiles(Run &run)
{
    const UserSongsRelTableModel::ManyChanges changes(m_model);
    for (const QString &path : m_files) {
        if (Run::isEnding())
            break;
        debug() << "Found file:" << path;
        m_songs.add(run, path, "");
    }
    // New rows are at the end, so the order that the user chose before is applied again.
    m_model.sortAgain();
}

} // namespace brisel
