// The real window (offscreen) with large libraries, against the same work without window and table.

#include "app/mainwindow.h"
#include "app/startup.h"
#include "app/style.h"
#include "bench/benchprogram.h"
#include "bench/paintwatch.h"
#include "db/cataloguesearch.h"
#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "library/cataloguelookup.h"
#include "library/dialogs/previewdialog.h"
#include "library/syncpreview.h"
#include "songfile/metasong.h"
#include "tools/cataloguefile.h"
#include "tools/samplesongs.h"
#include "ui_mainwindow.h"

#include <benchmark/benchmark.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QTranslator>
#include <QUrl>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <string>

using namespace brisel;

using BenchProgram::require;

namespace
{

int librarySize = 10000; ///< songs

/// Songs of all kinds in two folders of the same size, and a catalogue with all of them. This is
/// the working folder, so that the window uses the catalogue.
class Songs
{
public:
    Songs()
    {
        require(m_folder.isValid(), "no folder for the songs");
        const QString first = all() + QStringLiteral("/songs");
        for (const QString &name : {first, QString(all() + QStringLiteral("/more"))})
            require(QDir().mkpath(name), "no folder");
        require(SampleSongs::writeMany(first, librarySize, &m_paths), "no songs");
        QList<CatalogueRow> rows;
        for (const QString &path : std::as_const(m_paths)) {
            const QString name = path.section(u'/', -1);
            m_twice.append(all() + QStringLiteral("/more/") + name);
            require(QFile::copy(path, m_twice.constLast()), "no copy");
            CatalogueRow row;
            row.fileName = catalogueKey(name);
            row.title = QStringLiteral("Title of ") + row.fileName;
            row.artist = QStringLiteral("Artist");
            row.altArtist = row.artist;
            row.genre = QStringLiteral("POP");
            row.author = QStringLiteral("Author");
            row.length = 185;
            row.bpm = 120;
            row.key = QStringLiteral("A -");
            row.markers = QStringLiteral("1;Intro;5;Verse;21;Fine;");
            rows.append(row);
        }
        m_twice += m_paths;
        QString error;
        require(writeCatalogue(all() + QStringLiteral("/songsdb_debug"), rows, error), "catalogue");
        QDir::setCurrent(all());
    }
    ~Songs() { QDir::setCurrent(QDir::rootPath()); }
    Songs(const Songs &) = delete;
    Songs &operator=(const Songs &) = delete;

    /// \a count songs: the size of the library or twice as many.
    const QStringList &paths(int count) const { return count == librarySize ? m_paths : m_twice; }

private:
    QString all() const { return m_folder.path(); }

    QTemporaryDir m_folder;
    QStringList m_paths;
    QStringList m_twice; ///< these and the same number of others
};

/// The program's window as users see it, with the question of an import switched off.
class Window
{
public:
    Window()
    {
        m_window.enableCopyrightMessage(false);
        m_window.resize(1200, 800);
        m_window.show();
        QCoreApplication::processEvents();
    }

    /// Drops \a files on the window and waits until they are in the table.
    void import(const QStringList &files)
    {
        QList<QUrl> urls;
        for (const QString &file : files)
            urls.append(QUrl::fromLocalFile(file));
        QMimeData data;
        data.setUrls(urls);
        const QPoint middle = m_window.rect().center();
        QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_window, &enter);
        QDropEvent drop(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_window, &drop);
        const auto *model = m_window.findChild<UserSongsRelTableModel *>();
        while (model->rowCount() != files.size())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    /// Synchronises all rows and declines the backup.
    void synchronise()
    {
        QTimer::singleShot(0, [] {
            QWidget *dialog = QApplication::activeModalWidget();
            require(dialog != nullptr, "no offer of a backup");
            dialog->findChild<QPushButton *>(QStringLiteral("exitPushButton"))->click();
        });
        require(m_window.updateUserLibrary(), "synchronisation");
    }
    QTableView *table() { return m_window.findChild<QTableView *>(); }
    QList<QToolButton *> outcomeButtons()
    {
        return m_window.findChildren<QToolButton *>(
            QRegularExpression(QStringLiteral("^outcomeButton")));
    }
    QLineEdit *searchField()
    {
        return m_window.findChild<QLineEdit *>(QStringLiteral("searchLineEdit"));
    }

private:
    MainWindow m_window;
};

/// The songs, made on the first call: listing the rows needs no songs.
const Songs &songs()
{
    static const Songs all;
    return all;
}

SongInfo readSong(MetaSong &song, const QString &path)
{
    require(song.importFile(path), "reading");
    SongInfo info;
    song.getSongInfo(info);
    return info;
}

void importInWindow(benchmark::State &state, int count)
{
    const QStringList &files = songs().paths(count); // first: their folder holds the catalogue
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
        for (const QString &path : songs().paths(count)) {
            MetaSong song;
            SongInfo info = readSong(song, path);
            benchmark::DoNotOptimize(info);
        }
    }
}

/// The songs in a table, with the catalogue, without a window.
class Listed
{
public:
    explicit Listed(const QStringList &files)
    {
        require(database.init(), "catalogue");
        model = std::make_unique<UserSongsRelTableModel>(nullptr, *database.userLibraryDb());
        for (const QString &path : files) {
            MetaSong song;
            SongInfo info = readSong(song, path);
            info.fileName = path;
            info.shortName = path.section(u'/', -1);
            require(model->addSong(info), "row");
        }
    }

    Database database;
    std::unique_ptr<UserSongsRelTableModel> model;
};

/// The preview of the synchronisation; importWithout() is its peer.
void previewSongs(benchmark::State &state, int count)
{
    const QStringList &files = songs().paths(count); // first: their folder holds the catalogue
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
    songs(); // first: their folder holds the catalogue
    Window window;
    window.import(songs().paths(count));
    for (auto _ : state)
        window.synchronise();
}

void synchroniseWithout(benchmark::State &state, int count)
{
    const QStringList &files = songs().paths(count); // first: their folder holds the catalogue
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

/// Prints measurements with a limit but without a peer: bench/run shows them below the rows.
void printLimit(const std::string &what, double value, const char *unit, const char *limit)
{
    std::printf("# %s: %.1f %s (%s at most)\n", what.c_str(), value, unit, limit);
}

/// Processor time, so that other programs don't count.
double milliseconds(const std::function<void()> &step)
{
    const std::clock_t begin = std::clock();
    step();
    QCoreApplication::processEvents();
    return 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

void measureRuns(PaintWatch &watch)
{
    songs();
    Window window;
    const auto measure = [&watch](const std::string &what, const std::function<void()> &run) {
        watch.startWatching();
        run();
        printLimit(what + ", between two repaints", watch.longestGap(), "ms", "100 ms");
        printLimit(what + ", worked between two repaints", watch.longestWork(), "ms", "100 ms");
        printLimit(what + ", time spent painting", watch.paintingShare() * 100, "%", "10 %");
    };
    measure("import", [&window] { window.import(songs().paths(librarySize)); });
    measure("synchronise", [&window] { window.synchronise(); });
}

/// The longest step of scrolling a view from its beginning to its end.
double longestScrolling(const QAbstractItemView &view)
{
    QScrollBar *bar = view.verticalScrollBar();
    double longest = 0;
    for (int value = bar->minimum(); value <= bar->maximum(); value += bar->pageStep())
        longest = std::max(longest, milliseconds([&] { bar->setValue(value); }));
    return longest;
}

void measurePreview()
{
    Listed listed(songs().paths(librarySize));
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

/// Every other song gets an outcome of its own; then each button is pressed, twice.
void measureOutcomes(Window &window)
{
    auto *model = qobject_cast<UserSongsRelTableModel *>(window.table()->model());
    {
        const UserSongsRelTableModel::ManyChanges changes(*model);
        for (int row = 0; row < model->goodRowCount(); row += 2)
            model->setStatus(row, Database::Failed);
    }
    model->sortAgain(); // the numbers are shown at once
    double counting = 0;
    for (const SongOutcome outcome : allSongOutcomes)
        counting += milliseconds([&] { benchmark::DoNotOptimize(model->outcomeCount(outcome)); });
    printLimit("outcomes, counting", counting, "ms", "16 ms");
    double longest = 0;
    for (QToolButton *button : window.outcomeButtons()) {
        for (int press = 0; press < 2 && button->isVisible(); ++press)
            longest = std::max(longest, milliseconds([button] { button->click(); }));
    }
    printLimit("outcomes, longest choosing", longest, "ms", "16 ms");
}

void measureTable()
{
    Window window;
    window.import(songs().paths(librarySize));
    QTableView *table = window.table();
    printLimit("table, longest step of scrolling", longestScrolling(*table), "ms", "50 ms");
    double longest = 0;
    for (int column = 0; column < table->model()->columnCount(); ++column) {
        if (table->isColumnHidden(column))
            continue;
        for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
            const auto sort = [&] { table->sortByColumn(column, order); };
            longest = std::max(longest, milliseconds(sort));
        }
    }
    printLimit("table, longest sorting", longest, "ms", "50 ms");
    measureOutcomes(window);
    QLineEdit *search = window.searchField();
    const auto type = [&](const char *letters) {
        return milliseconds([&] { search->setText(QLatin1StringView(letters)); });
    };
    printLimit("search, first letter", type("b"), "ms", "50 ms");
    printLimit("search, second letter", type("br"), "ms", "50 ms");
    printLimit("search, all rows again", type(""), "ms", "50 ms");
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
