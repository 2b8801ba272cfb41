// Synchronisations that keep their old songs in the history, against the same ones that don't.

#include "bench/benchprogram.h"
#include "bench/songbytes.h"
#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "history/historyrecorder.h"
#include "library/cataloguelookup.h"
#include "library/synchroniser.h"
#include "tools/cataloguefile.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <ctime>
#include <memory>
#include <string>
#include <utility>

using namespace brisel;

using BenchProgram::require;

namespace
{

int librarySize = 10000;        ///< songs
constexpr int songSize = 40000; ///< bytes, about as large as bought songs

/// What counts: the time that the user waits, or the work of all threads, in which other programs
/// don't count.
enum class Time { Real, Processor };

double secondsNow(Time time)
{
    timespec now{};
    ::clock_gettime(time == Time::Real ? CLOCK_MONOTONIC : CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

/// Songs, a catalogue with all of them, and the table of them. Their folder is the working folder.
class Library
{
public:
    Library()
    {
        require(m_folder.isValid() && QDir(m_folder.path()).mkdir(QStringLiteral("songs")),
                "no folder for the songs");
        const std::string song = songBytes(songSize);
        m_song = QByteArray(song.data(), static_cast<qsizetype>(song.size()));
        QList<CatalogueRow> rows;
        for (int i = 0; i < librarySize; ++i) {
            const QString name = QStringLiteral("song%1.mid").arg(i);
            m_paths.append(m_folder.filePath(QStringLiteral("songs/") + name));
            CatalogueRow row;
            row.fileName = catalogueKey(name);
            row.title = QStringLiteral("Title of ") + row.fileName;
            row.artist = QStringLiteral("Artist");
            row.genre = QStringLiteral("POP");
            rows.append(row);
        }
        QString error;
        require(writeCatalogue(m_folder.filePath(QStringLiteral("songsdb_debug")), rows, error),
                "catalogue");
        QDir::setCurrent(m_folder.path());
        require(m_database.init(), "no database");
        m_model = std::make_unique<UserSongsRelTableModel>(nullptr, *m_database.userLibraryDb());
        writeSongs();
        for (const QString &path : std::as_const(m_paths)) {
            SongInfo info;
            info.fileName = path;
            info.shortName = path.section(u'/', -1);
            m_model->addSong(info);
        }
    }
    ~Library()
    {
        m_model.reset();
        QDir::setCurrent(QDir::rootPath());
    }
    Library(const Library &) = delete;
    Library &operator=(const Library &) = delete;

    /// Puts the songs back as they were before any run.
    void writeSongs() const
    {
        for (const QString &path : m_paths) {
            QFile file(path);
            require(file.open(QIODevice::WriteOnly) && file.write(m_song) == m_song.size(),
                    "no song");
        }
    }

    /// Synchronises all songs, with a history of its own or without one. Returns the seconds.
    double synchronise(bool keepsHistory, Time time)
    {
        writeSongs();
        const QTemporaryDir folder;
        History history(folder.filePath(QStringLiteral("history.sqlite")));
        HistoryRecorder recorder(history, RunKind::Synchronisation);
        Run run;
        const double begin = secondsNow(time);
        Synchroniser synchroniser(*m_model, m_database, false);
        if (keepsHistory)
            synchroniser.setRecorder(&recorder);
        require(synchroniser.run(run) == Synchroniser::Outcome::Done, "synchronisation");
        const double seconds = secondsNow(time) - begin;
        require(run.report().counted(RunReport::Success::Updated) == librarySize, "songs");
        require(!keepsHistory || history.songs(recorder.run()).size() == librarySize, "history");
        return seconds;
    }

private:
    QTemporaryDir m_folder;
    QByteArray m_song;
    QStringList m_paths;
    Database m_database;
    std::unique_ptr<UserSongsRelTableModel> m_model;
};

void synchronise(benchmark::State &state, bool keepsHistory, Time time)
{
    static Library library;
    for (auto _ : state)
        state.SetIterationTime(library.synchronise(keepsHistory, time));
}

} // namespace

int main(int argc, char **argv)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    if (BenchProgram::takeSmallest(argc, argv))
        librarySize = 50;
    const QCoreApplication application(argc, argv);
    const std::string songs = std::to_string(librarySize) + " songs/";
    for (const auto &[time, what] : {std::pair(Time::Real, "synchronise in real time/"),
                                     std::pair(Time::Processor, "synchronise/")}) {
        for (const bool keepsHistory : {true, false})
            benchmark::RegisterBenchmark(
                (what + songs + (keepsHistory ? "ours" : "no history")).c_str(), synchronise,
                keepsHistory, time)
                ->UseManualTime();
    }
    return BenchProgram::run(argc, argv) ? 0 : 1;
}
