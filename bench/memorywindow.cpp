// The window of a full memory, and the look at it against an update of its index.

#include "memory/dialogs/memorywindow.h"
#include "base/settings.h"
#include "bench/benchprogram.h"
#include "bench/songmemory.h"
#include "bench/windowsongs.h"
#include "index/playlists.h"
#include "memory/memorylook.h"
#include "tests/scriptedindex.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTreeView>

#include <algorithm>
#include <map>
#include <memory>
#include <string>

using namespace brisel;

using BenchProgram::require;
using namespace WindowBench;

namespace
{

/// Songs, folders and playlists of the memories, and songs in a playlist.
struct Sizes {
    int full = 65535;
    int ordinary = 10000;
    int folders = 200;
    int playlists = 200;
    int listed = 500;
};

Sizes sizes;

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), "a file of the index");
    return file.readAll();
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), "a playlist");
}

/// Each has the first songs of the list by title.
void addPlaylists(const QString &root)
{
    constexpr int recordSize = 64; // bytes
    constexpr int entrySize = 32;
    require(QDir(root).mkpath(QStringLiteral("playlist")), "the folder of the playlists");
    const QByteArray songs =
        contentOf(root + QStringLiteral("/title.id2")).left(sizes.listed * recordSize);
    QByteArray list;
    for (int number = 1; number <= sizes.playlists; ++number) {
        const auto playlist = static_cast<qint16>(number);
        QByteArray entry(entrySize, '\0');
        entry[0] = static_cast<char>(number % 128);
        entry[1] = static_cast<char>(number / 128);
        list += entry;
        write(root + u'/' + Playlists::songsFileName(playlist), songs);
    }
    write(root + QStringLiteral("/playlist/playlist.dat"), list);
}

/// The memory with that many songs, made and indexed on the first call.
QString rootOf(int songs)
{
    static std::map<int, std::unique_ptr<SongMemory>> memories;
    std::unique_ptr<SongMemory> &memory = memories[songs];
    if (!memory) {
        memory = std::make_unique<SongMemory>(songs, sizes.folders);
        require(ScriptedIndex().createIndex(memory->root()), "the index");
        addPlaylists(memory->root());
    }
    return memory->root();
}

std::shared_ptr<const MemoryContents> contentsOf(const QString &root)
{
    Run run;
    auto contents = std::make_shared<MemoryContents>();
    require(contents->read(root, run) == MemoryContents::Outcome::Done, "the contents");
    return contents;
}

/// With the reading of the index, as in the window.
void lookAtMemory(benchmark::State &state, int songs)
{
    const QString root = rootOf(songs);
    for (auto _ : state) {
        MemoryLook look(root, contentsOf(root));
        while (look.work(1000)) {
        }
        require(look.difference() == MemoryLook::Difference(), "no differences");
    }
}

void updateMemory(benchmark::State &state, int songs)
{
    const QString root = rootOf(songs);
    for (auto _ : state)
        require(ScriptedIndex().updateIndex(root), "the update");
}

/// Reads every file that the window shows.
void readFiles(const QString &root)
{
    for (const QString &folder : {root, root + QStringLiteral("/playlist")}) {
        const QStringList names =
            QDir(folder).entryList({QStringLiteral("*.id2"), QStringLiteral("*.dat")}, QDir::Files);
        for (const QString &name : names)
            contentOf(folder + u'/' + name);
    }
}

void measureSearch(QLineEdit &field, const std::string &what, const QString &text)
{
    double longest = 0;
    for (qsizetype length = 1; length <= text.size(); ++length)
        longest = std::max(longest, milliseconds([&] { field.setText(text.left(length)); }));
    printLimit("search in " + what + ", longest letter of " + text.toStdString(), longest, "ms",
               "16 ms");
    printLimit("search in " + what + ", all songs again", milliseconds([&] { field.clear(); }),
               "ms", "16 ms");
}

void measureWindow()
{
    const QString root = rootOf(sizes.full);
    qputenv("BRISEL_VOLUMES", QFile::encodeName(root.section(u'/', 0, -2)));
    {
        QSettings settings = openSettings();
        Settings::mediaRoot.store(settings, root);
    }
    const double files = milliseconds([&root] { readFiles(root); });
    std::unique_ptr<MemoryWindow> window;
    const double opening = milliseconds([&window] {
        window = std::make_unique<MemoryWindow>();
        window->show();
    });
    require(window->contents()->size() == sizes.full &&
                window->contents()->playlists().size() == sizes.playlists,
            "the window");
    printLimit("memory of " + std::to_string(sizes.full) + " songs, its files", files, "ms", "-");
    printLimit("memory, its window after its files are read", opening - files, "ms", "500 ms");
    auto *lists = window->findChild<QComboBox *>(QStringLiteral("listComboBox"));
    auto *field = window->findChild<QLineEdit *>(QStringLiteral("songSearchLineEdit"));
    const auto *songs = window->findChild<QTreeView *>(QStringLiteral("songsTreeView"));
    QElapsedTimer idle;            // as for a user, some time passes before the first letter
    constexpr qint64 pause = 6000; // milliseconds
    idle.start();
    while (idle.elapsed() < pause)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    printLimit("memory, longest step of scrolling", longestScrolling(*songs), "ms", "16 ms");
    measureSearch(*field, "titles", QStringLiteral("song 12"));
    measureSearch(*field, "titles", QStringLiteral("genere:rock bpm>100"));
    double longest = 0;
    for (int list = lists->count() - 1; list >= 0; --list)
        longest = std::max(longest, milliseconds([&] { lists->setCurrentIndex(list); }));
    printLimit("memory, longest change of the list", longest, "ms", "100 ms");
    lists->setCurrentIndex(1);
    measureSearch(*field, "artists", QStringLiteral("song 12"));
}

} // namespace

int main(int argc, char **argv)
{
    const BenchProgram::Home home;
    if (BenchProgram::takeSmallest(argc, argv))
        sizes = {300, 100, 10, 3, 5};
    const QApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const std::string data = std::to_string(sizes.ordinary) + " songs/";
    const auto add = [&data](const char *who, auto function) {
        benchmark::RegisterBenchmark(("look/" + data + who).c_str(), function, sizes.ordinary)
            ->Unit(benchmark::kMillisecond);
    };
    add("ours", lookAtMemory);
    add("update", updateMemory);
    if (!BenchProgram::run(argc, argv))
        return 1;
    if (BenchProgram::ranAllRows())
        measureWindow();
    return 0;
}
