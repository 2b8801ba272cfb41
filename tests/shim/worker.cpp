#include "app/startup.h"
#include "base/filelot.h"
#include "base/memoryidentity.h"
#include "base/settingsstore.h"
#include "db/database.h"
#include "index/index.h"
#include "library/filecopier.h"
#include "memory/playlistdocument.h"
#include "memory/playlistwriter.h"
#include "songfile/metasong.h"
#include "tests/scriptedindex.h"
#include "tests/scriptedrun.h"
#include "tests/shim/historyjobs.h"

#include <QCoreApplication>
#include <QSettings>

#include <algorithm>
#include <cstdio>
#include <memory>

using namespace brisel;

// Runs one job of the program, for tests that kill it or let its writes fail. The arguments are the
// name of the job and its paths. Ends with 0 if the job reported success, otherwise with 1;
// messages go to the standard error.

namespace
{

/// Saves the songs with the title "New": one song like the edit dialog, several in a lot.
bool saveSongs(const QStringList &paths)
{
    FileLot lot;
    for (const QString &path : paths) {
        MetaSong song;
        if (!song.importFile(path))
            qFatal("no song");
        SongInfo info;
        song.getSongInfo(info);
        info.title = QStringLiteral("New");
        song.setSongInfo(info, true);
        if (paths.size() == 1)
            return song.saveToFile(path);
        if (song.saveInLot(path, lot) != WriteResult::Staged)
            return false;
    }
    return lot.commitAll();
}

/// Copies the other paths into the folder of the first, and replaces what is there.
bool copySongs(const QStringList &paths)
{
    ScriptedRun run;
    run.answers = {Run::Answer::YesToAll};
    FileCopier copier(run);
    return copier.copyFiles(paths.mid(1), paths.at(0)) && copier.copied() == paths.size() - 1;
}

/// Unpacks the catalogue and checks that it is complete.
bool openCatalogue(const QStringList &)
{
    Database database;
    if (!database.init())
        return false;
    if (database.genresList()->isEmpty() || database.artistsList()->isEmpty())
        qFatal("an empty catalogue was opened");
    return true;
}

bool saveSettings(const QStringList &)
{
    QSettings settings(settingsOrganisation, settingsApplication);
    return storeSetting(settings, QStringLiteral("language"), QStringLiteral("it"));
}

bool saveList(const QStringList &paths)
{
    return ScriptedIndex().saveSongsList(paths.at(0), paths.at(1), SortByTitle) == 1;
}

/// Builds or updates the index of a memory and shortens the names there.
bool runIndex(bool (Index::*run)(const QString &), const QString &root)
{
    ScriptedIndex index;
    index.setRenameQuestion([](const QString &, const QString &) { return 1; });
    return (index.*run)(root);
}

/// Adds the first song of the index at the start of each playlist, as the memory window does.
bool savePlaylists(const QStringList &paths)
{
    ScriptedRun run;
    const auto contents = std::make_shared<MemoryContents>();
    if (contents->read(paths.at(0), run) != MemoryContents::Outcome::Done)
        return false;
    PlaylistDocument document;
    document.setContents(contents);
    for (qsizetype playlist = 0; playlist < document.count(); ++playlist) {
        if (document.add(playlist, 0, {contents->id(0)}) != 1)
            return false;
    }
    return PlaylistWriter(document, run).save(MemoryIdentity(paths.at(0)));
}

bool buildIndex(const QStringList &paths)
{
    return runIndex(&Index::createIndex, paths.at(0));
}

bool updateIndex(const QStringList &paths)
{
    return runIndex(&Index::updateIndex, paths.at(0));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    struct Job {
        const char *name;
        bool (*run)(const QStringList &);
    };
    constexpr Job jobs[] = {{"save", saveSongs},          {"copy", copySongs},
                            {"catalogue", openCatalogue}, {"settings", saveSettings},
                            {"list", saveList},           {"index", buildIndex},
                            {"update", updateIndex},      {"synchronise", synchroniseSongs},
                            {"edit", editSongs},          {"restore", restoreSongs},
                            {"playlists", savePlaylists}};
    const QStringList arguments = QCoreApplication::arguments();
    for (const Job &job : jobs) {
        if (arguments.value(1) == QLatin1StringView(job.name))
            return job.run(arguments.mid(2)) ? 0 : 1;
    }
    std::fprintf(stderr, "no such job\n");
    return 2;
}
