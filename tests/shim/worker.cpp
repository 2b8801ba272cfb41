#include "app/startup.h"
#include "base/settingsstore.h"
#include "db/database.h"
#include "index/index.h"
#include "library/filecopier.h"
#include "library/nocopyrightdialog.h"
#include "library/progress.h"
#include "songfile/metasong.h"

#include <QCoreApplication>
#include <QSettings>

#include <cstdio>

// One job of the program by itself, for tests that kill it or let its writes fail: the name of the
// job, then its paths. Ends with 0 when the job said that all went well, with 1 when it said that
// it did not; messages go to the standard error.

namespace
{

/// Gives a song the title "New" by hand, as the edit dialog does.
bool saveSong(const QStringList &paths)
{
    MetaSong song;
    if (!song.importFile(paths.at(0)))
        qFatal("no song");
    SongInfo info;
    song.getSongInfo(info);
    info.title = QStringLiteral("New");
    song.setSongInfo(info, true);
    return song.saveToFile(paths.at(0));
}

class NoProgress : public Progress
{
public:
    void setValue(int) override {}
    bool isCanceled() const override { return false; }
    void breathe() override {}
};

/// Copies the other paths into the folder of the first, and replaces what is there.
bool copySongs(const QStringList &paths)
{
    NoProgress progress;
    FileCopier copier(progress, [](const QString &) { return int(NoCopyrightDialog::YesToAll); });
    int copied = 0;
    return copier.copyFiles(paths.mid(1), paths.at(0), copied) && copied == paths.size() - 1;
}

/// Unpacks the catalogue and looks whether it is whole.
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
    return Index().saveSongsList(paths.at(0), paths.at(1), SortByTitle) == 1;
}

/// Builds the index of a memory and shortens the names there.
bool buildIndex(const QStringList &paths)
{
    Index index;
    index.setRenameQuestion(
        [](const QString &, const QString &) { return int(NoCopyrightDialog::YesToAll); });
    return index.createIndex(paths.at(0));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    struct Job {
        const char *name;
        bool (*run)(const QStringList &);
    };
    constexpr Job jobs[] = {{"save", saveSong},           {"copy", copySongs},
                            {"catalogue", openCatalogue}, {"settings", saveSettings},
                            {"list", saveList},           {"index", buildIndex}};
    const QStringList arguments = QCoreApplication::arguments();
    for (const Job &job : jobs) {
        if (arguments.value(1) == QLatin1StringView(job.name))
            return job.run(arguments.mid(2)) ? 0 : 1;
    }
    std::fprintf(stderr, "no such job\n");
    return 2;
}
