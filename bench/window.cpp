// The real window (offscreen) with large libraries, against the same work without window and table.

#include "app/mainwindow.h"
#include "app/startup.h"
#include "app/style.h"
#include "bench/benchprogram.h"
#include "bench/paintwatch.h"
#include "bench/windowsongs.h"
#include "db/cataloguesearch.h"
#include "library/cataloguelookup.h"
#include "library/dialogs/previewdialog.h"
#include "library/syncpreview.h"
#include "songfile/metasong.h"
#include "ui_mainwindow.h"

#include <benchmark/benchmark.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QElapsedTimer>
#include <QProcess>
#include <QSettings>
#include <QTableView>
#include <QTranslator>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

using namespace brisel;

using BenchProgram::require;
using namespace WindowBench;

namespace
{

void importInWindow(benchmark::State &state, int count)
{
    const QStringList &files = songPaths(count); // first: their folder holds the catalogue
    for (auto _ : state) {
        state.PauseTiming();
        Window window;
        state.ResumeTiming();
        window.import(files);
    }
}

void importWithout(benchmark::State &state, int count)
{
    for (auto _ : state) {
        for (const QString &path : songPaths(count)) {
            MetaSong song;
            SongInfo info = readSong(song, path);
            benchmark::DoNotOptimize(info);
        }
    }
}

/// The preview of the synchronisation; importWithout() is its peer.
void previewSongs(benchmark::State &state, int count)
{
    const QStringList &files = songPaths(count); // first: their folder holds the catalogue
    Listed listed(files);
    for (auto _ : state) {
        SyncPreview preview(*listed.model, listed.database);
        Run run;
        require(preview.run(run) == SyncPreview::Outcome::Done &&
                    preview.songs().size() == files.size(),
                "preview");
    }
}

void synchroniseInWindow(benchmark::State &state, int count)
{
    songPaths(count); // first: their folder holds the catalogue
    Window window;
    window.import(songPaths(count));
    for (auto _ : state)
        window.synchronise();
}

void synchroniseWithout(benchmark::State &state, int count)
{
    const QStringList &files = songPaths(count); // first: their folder holds the catalogue
    Database catalogue;
    require(catalogue.init(), "catalogue");
    for (auto _ : state) {
        for (const QString &path : files) {
            MetaSong song;
            const SongInfo info = readSong(song, path);
            const CatalogueKeys keys = catalogueKeys(path.section(u'/', -1), info);
            const std::optional<CatalogueHit> hit = findInCatalogue(catalogue, keys);
            require(hit.has_value(), "look-up");
            song.setSongInfo(mergedWithCatalogue(info, hit->record), false);
            require(song.saveToFile(path), "saving");
        }
    }
}

void measureRuns(PaintWatch &watch)
{
    songPaths(librarySize); // first: their folder holds the catalogue
    Window window;
    const auto measure = [&watch](const std::string &what, const std::function<void()> &run) {
        watch.startWatching();
        run();
        printLimit(what + ", between two repaints", watch.longestGap(), "ms", "100 ms");
        printLimit(what + ", worked between two repaints", watch.longestWork(), "ms", "100 ms");
        printLimit(what + ", time spent painting", watch.paintingShare() * 100, "%", "10 %");
    };
    measure("import", [&window] { window.import(songPaths(librarySize)); });
    measure("synchronise", [&window] { window.synchronise(); });
}

void measurePreview()
{
    Listed listed(songPaths(librarySize));
    SyncPreview preview(*listed.model, listed.database);
    Run run;
    require(preview.run(run) == SyncPreview::Outcome::Done, "preview");
    CatalogueSearch search(listed.database);
    std::unique_ptr<PreviewDialog> dialog;
    printLimit("preview, its window", milliseconds([&] {
                   dialog = std::make_unique<PreviewDialog>(preview, search, true);
                   dialog->show();
               }),
               "ms", "100 ms");
    const auto *view = dialog->findChild<QTableView *>();
    const std::string rows = std::to_string(view->model()->rowCount()) + " rows";
    printLimit("preview, longest step of scrolling " + rows, longestScrolling(*view), "ms",
               "16 ms");
    auto *filter = dialog->findChild<QComboBox *>();
    double longest = 0;
    for (int i = 0; i < filter->count(); ++i)
        longest = std::max(longest, milliseconds([&] { filter->setCurrentIndex(i); }));
    printLimit("preview, longest filtering", longest, "ms", "50 ms");
}

/// The child process of a start: shows the whole window or an empty one and ends after its first
/// painting.
int showOnce(int &argc, char **argv, bool whole)
{
    startLog(QSettings(settingsOrganisation, settingsApplication));
    PaintWatch application(argc, argv);
    QTranslator program;
    QTranslator qt;
    std::unique_ptr<QMainWindow> window;
    applyDarkStyle(application);
    Ui::MainWindow ui;
    if (whole) {
        loadTranslations(QStringLiteral("en"), program, qt);
        window = std::make_unique<MainWindow>();
    } else {
        window = std::make_unique<QMainWindow>();
        ui.setupUi(window.get());
    }
    window->show();
    while (!application.hasPainted())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::_Exit(0);
}

void start(benchmark::State &state, const QString &what)
{
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        require(QProcess::execute(QCoreApplication::applicationFilePath(), {what}) == 0, "start");
        state.SetIterationTime(static_cast<double>(timer.nsecsElapsed()) / 1e9);
    }
}

} // namespace

int main(int argc, char **argv)
{
    // A child process uses its parent's home.
    for (const char *what : {"--whole", "--empty"}) {
        if (argc == 2 && qstrcmp(argv[1], what) == 0)
            return showOnce(argc, argv, qstrcmp(what, "--whole") == 0);
    }
    const BenchProgram::Home home;
    startLog(QSettings(settingsOrganisation, settingsApplication)); // off, as by default
    if (BenchProgram::takeSmallest(argc, argv))
        librarySize = 50;
    PaintWatch application(argc, argv);
    applyDarkStyle(application);
    const auto add = [](const std::string &name, auto function, auto data) {
        return benchmark::RegisterBenchmark(name.c_str(), function, data);
    };
    for (const int count : {librarySize, 2 * librarySize}) {
        const std::string data = std::to_string(count) + " songs/";
        add("import/" + data + "ours", importInWindow, count);
        add("import/" + data + "no window", importWithout, count);
    }
    const std::string data = std::to_string(librarySize) + " songs/";
    add("preview/" + data + "ours", previewSongs, librarySize);
    add("preview/" + data + "reading", importWithout, librarySize);
    add("synchronise/" + data + "ours", synchroniseInWindow, librarySize);
    add("synchronise/" + data + "no window", synchroniseWithout, librarySize);
    add("start/first painting/ours", start, QStringLiteral("--whole"))->UseManualTime();
    add("start/first painting/empty window", start, QStringLiteral("--empty"))->UseManualTime();
    if (!BenchProgram::run(argc, argv))
        return 1;
    if (BenchProgram::ranAllRows()) {
        measureRuns(application);
        measureTable();
        measurePreview();
    }
    return 0;
}
