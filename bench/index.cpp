// The index against plain loops over the same memory: each row "what/data/who", compared by
// ./bench/run. Lines that start with "# " are printed below the rows.

#include "index/index.h"
#include "bench/benchprogram.h"
#include "bench/paintwatch.h"
#include "bench/songmemory.h"
#include "index/dialogs/indexdialog.h"
#include "tests/scriptedindex.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <map>
#include <memory>

using namespace brisel;

using BenchProgram::require;

namespace
{

namespace fs = std::filesystem;

/// The number of songs and folders of the memories, and of songs in a playlist.
struct Sizes {
    int full = 65535;
    int ordinary = 10000;
    int folders = 200;
    int listed = 500;
};

Sizes sizes;

/// The memory with that many songs, made and indexed on the first call.
QString rootOf(int songs)
{
    static std::map<int, std::unique_ptr<SongMemory>> memories;
    std::unique_ptr<SongMemory> &memory = memories[songs];
    if (!memory) {
        memory = std::make_unique<SongMemory>(songs, sizes.folders);
        require(ScriptedIndex().createIndex(memory->root()), "the first index");
    }
    return memory->root();
}

void buildOurs(benchmark::State &state, int songs)
{
    const QString root = rootOf(songs);
    for (auto _ : state)
        require(ScriptedIndex().createIndex(root), "build");
}

/// Walks the folders, opens every file and reads its first 3072 bytes.
void buildPlainLoop(benchmark::State &state, int songs)
{
    const std::string root = rootOf(songs).toStdString();
    std::array<char, 3072> head{};
    for (auto _ : state) {
        for (const fs::directory_entry &entry : fs::recursive_directory_iterator(root)) {
            if (!entry.is_regular_file())
                continue;
            std::ifstream file(entry.path(), std::ios::binary);
            file.read(head.data(), head.size());
            benchmark::DoNotOptimize(head.data());
        }
    }
}

void updateOurs(benchmark::State &state, int songs)
{
    const QString root = rootOf(songs);
    require(ScriptedIndex().updateIndex(root), "the first update");
    for (auto _ : state)
        require(ScriptedIndex().updateIndex(root), "update");
}

/// Walks the folders, asks for the date of every file and reads the three lists of songs.
void updatePlainLoop(benchmark::State &state, int songs)
{
    const std::string root = rootOf(songs).toStdString();
    std::string content;
    for (auto _ : state) {
        for (const fs::directory_entry &entry : fs::recursive_directory_iterator(root))
            benchmark::DoNotOptimize(entry.last_write_time());
        for (const char *name : {"/title.id2", "/artist.id2", "/genre.id2"}) {
            content.resize(fs::file_size(root + name));
            std::ifstream(root + name, std::ios::binary)
                .read(content.data(), static_cast<std::streamsize>(content.size()));
            benchmark::DoNotOptimize(content.data());
        }
    }
}

constexpr int playlists = 100;

/// A memory with playlists and their path files: each rebuild restores them.
QString rootWithPlaylists()
{
    static std::unique_ptr<SongMemory> memory;
    if (memory)
        return memory->root();
    memory = std::make_unique<SongMemory>(sizes.listed, 1);
    require(ScriptedIndex().createIndex(memory->root()), "the playlists' index");
    const fs::path root = memory->root().toStdString();
    fs::create_directory(root / "playlist");
    std::ifstream titles(root / "title.id2", std::ios::binary);
    const std::string songs((std::istreambuf_iterator<char>(titles)), {});
    std::string numbers;
    for (int i = 0; i < playlists; ++i) {
        numbers += static_cast<char>(i);
        numbers.append(31, '\0');
        const std::string name = QString::asprintf("play%04d.dat", i).toStdString();
        std::ofstream(root / "playlist" / name, std::ios::binary) << songs;
    }
    std::ofstream(root / "playlist" / "playlist.dat", std::ios::binary) << numbers;
    require(ScriptedIndex().createIndex(memory->root()), "the playlists' rebuild");
    return memory->root();
}

/// A whole rebuild, most of which is restoring playlists.
void restorePlaylists(benchmark::State &state, int)
{
    const QString root = rootWithPlaylists();
    for (auto _ : state)
        require(ScriptedIndex().createIndex(root), "rebuild with playlists");
}

/// Writes the same playlists, in the same folder, one after the other.
void writePlaylists(benchmark::State &state, int)
{
    const std::string root = rootWithPlaylists().toStdString();
    const std::string songs(static_cast<size_t>(sizes.listed) * 64, 'x');
    fs::create_directory(root + "/sfx/copy");
    for (auto _ : state) {
        for (int i = 0; i < playlists; ++i)
            std::ofstream(root + "/sfx/copy/" + std::to_string(i), std::ios::binary) << songs;
    }
}

/// Writes the playlists as the program does: each to a new file, flushed, and renamed over the old
/// one.
void writePlaylistsSafely(benchmark::State &state, int)
{
    const std::string root = rootWithPlaylists().toStdString();
    const std::string songs(static_cast<size_t>(sizes.listed) * 64, 'x');
    const std::string beside = root + "/sfx/beside";
    fs::create_directory(root + "/sfx/copy");
    for (auto _ : state) {
        for (int i = 0; i < playlists; ++i) {
            const int file = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
            require(file >= 0 && ::write(file, songs.data(), songs.size()) > 0 &&
                        ::fsync(file) == 0 && ::close(file) == 0,
                    "a playlist");
            fs::rename(beside, root + "/sfx/copy/" + std::to_string(i));
        }
    }
}

/// Prints the peak memory of a build in a separate process.
void printMemory()
{
    const QString root = rootOf(sizes.full);
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(ScriptedIndex().createIndex(root) ? 0 : 1);
    struct rusage usage {
    };
    int status = 1;
    require(child > 0 && ::wait4(child, &status, 0, &usage) == child && status == 0, "the child");
    std::cout << "# peak memory of a build over " << sizes.full
              << " songs: " << usage.ru_maxrss / 1024 << " MiB\n";
}

/// Prints how often the dialog is painted during a run.
void printRepaints(PaintWatch &watch, bool rebuilds)
{
    IndexDialog dialog;
    dialog.findChild<QLineEdit *>(QStringLiteral("lineEditPath"))->setText(rootOf(sizes.full));
    const QString choice =
        rebuilds ? QStringLiteral("radioButtonRebuild") : QStringLiteral("radioButtonUpdate");
    dialog.findChild<QRadioButton *>(choice)->setChecked(true);
    dialog.show();
    QCoreApplication::processEvents();
    double longest = 0;
    double longestWork = 0;
    double share = 0;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, &dialog, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box == nullptr)
            return;
        longest = watch.longestGap();
        longestWork = watch.longestWork();
        share = watch.paintingShare();
        box->accept();
    });
    closer.start(0);
    watch.startWatching(&dialog);
    dialog.start(false);
    std::cout << std::fixed << std::setprecision(1) << "# " << (rebuilds ? "build" : "update")
              << " over " << sizes.full << " songs in the dialog: at most " << longest
              << " ms between two paintings (" << longestWork << " ms of processor time), "
              << share * 100 << " % of the time spent on them\n";
}

} // namespace

int main(int argc, char **argv)
{
    const BenchProgram::Home home;
    PaintWatch application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    if (BenchProgram::takeSmallest(argc, argv))
        sizes = {300, 100, 10, 5};
    const auto add = [](const char *what, int songs, const char *who, auto function) {
        std::string name(what);
        name.append("/").append(std::to_string(songs)).append(" songs/").append(who);
        benchmark::RegisterBenchmark(name.c_str(), function, songs)->Unit(benchmark::kMillisecond);
    };
    for (const int songs : {sizes.ordinary, sizes.full}) {
        add("build", songs, "ours", buildOurs);
        add("build", songs, "plain loop", buildPlainLoop);
        add("update", songs, "ours", updateOurs);
        add("update", songs, "plain loop", updatePlainLoop);
    }
    add("100 playlists", sizes.listed, "ours", restorePlaylists);
    add("100 playlists", sizes.listed, "written", writePlaylists);
    add("100 playlists", sizes.listed, "written safely", writePlaylistsSafely);
    if (!BenchProgram::run(argc, argv))
        return 1;
    if (BenchProgram::ranAllRows()) {
        printMemory();
        printRepaints(application, true);
        printRepaints(application, false);
    }
    return 0;
}
