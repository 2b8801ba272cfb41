#include "library/libraryimport.h"

#include "base/debugstream.h"
#include "base/runguard.h"
#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "library/progress.h"
#include "library/songfailure.h"
#include "library/workflowlog.h"
#include "songfile/metasong.h"

void addSongFile(const QString &path, const char *logPrefix, UserSongsRelTableModel &model,
                 Progress &progress, SongCounts &counts)
{
    MetaSong song;
    const bool isPulled = !counts.memories.pulledFrom(path).isEmpty();
    if (isPulled || !song.importFile(path)) {
        const QByteArray refusal = QByteArray(logPrefix) + "Unknown/corrupted file";
        debug() << refusal.constData() << path;
        ++counts.unknown;
        if (const QString memory = counts.memories.pulledFrom(path); !memory.isEmpty())
            counts.report.addShared(RunReport::Step::Read, memory, MemoryReason::gone);
        else
            counts.report.add(RunReport::Step::Read, path, whyNoSong(song, path));
        progress.setValue(counts.examined());
        progress.breathe();
        return;
    }
    ++counts.songs;
    debug() << "Song Index: " << counts.songs;
    SongInfo info;
    song.getSongInfo(info);
    info.fileName = path;
    info.shortName = path.mid(path.lastIndexOf(u'/') + 1);
    info.dbgDump();
    if (!model.addSong(info)) {
        debug() << "WARNING: impossible to add song to table:" << path;
        counts.report.add(RunReport::Step::Read, path, LibraryImport::notInTable);
    }
    progress.setValue(counts.examined());
    counts.publisherSongs += info.isKordia ? 1 : 0;
    progress.breathe();
}

LibraryImport::LibraryImport(Database &database, UserSongsRelTableModel &model, Progress &progress)
    : m_database(database), m_model(model), m_progress(progress)
{
}

bool LibraryImport::clearLibrary()
{
    logBanner("IMPORT USER LIBRARY");
    if (m_model.goodRowCount() == 0)
        return true;
    if (!m_database.clearUserLibraryDb()) {
        debug() << "[importUserLibrary] WARNING: impossible to CLEAR table. Aborting import !!!";
        return false;
    }
    m_model.select();
    return true;
}

SongCounts LibraryImport::readFiles(const QStringList &files)
{
    const UserSongsRelTableModel::ManyChanges changes(m_model);
    SongCounts counts;
    for (const QString &path : files) {
        if (RunGuard::endRequested())
            break;
        debug() << "Found file:" << path;
        addSongFile(path, "", m_model, m_progress, counts);
    }
    // New rows stand at the end: a sort that the user chose before holds for them too.
    m_model.sortAgain();
    return counts;
}
