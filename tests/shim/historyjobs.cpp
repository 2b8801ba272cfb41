#include "tests/shim/historyjobs.h"

#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "history/historyrecorder.h"
#include "library/manualedit.h"
#include "library/restore.h"
#include "library/songfile.h"
#include "library/synchroniser.h"
#include "tests/scriptedrun.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>

namespace brisel
{

namespace
{

/// The songs of a job in a table.
class JobLibrary
{
public:
    explicit JobLibrary(const QStringList &arguments)
        : history(arguments.at(0)), songs(arguments.mid(2))
    {
        QDir::setCurrent(arguments.at(1));
        if (!m_database.init())
            qFatal("no catalogue");
        model = std::make_unique<UserSongsRelTableModel>(nullptr, *m_database.userLibraryDb());
        for (const QString &path : songs) {
            SongInfo info = SongFile(path).info;
            info.fileName = path;
            info.shortName = QFileInfo(path).fileName();
            model->addSong(info);
        }
        run.answers = {Run::Answer::YesToAll};
    }
    ~JobLibrary() { model.reset(); }
    JobLibrary(const JobLibrary &) = delete;
    JobLibrary &operator=(const JobLibrary &) = delete;

    Database &database() { return m_database; }
    /// Prints the report. Returns true if all songs were written, and all of them kept.
    bool isDone(const HistoryRecorder &recorder) const
    {
        std::fprintf(stderr, "%s\n", qPrintable(run.report().text()));
        return run.report().failed() == 0 && run.report().skipped() == 0 &&
               !recorder.trouble().has_value();
    }

private:
    Database m_database;

public:
    History history;
    const QStringList songs;
    std::unique_ptr<UserSongsRelTableModel> model;
    ScriptedRun run;
};

} // namespace

bool synchroniseSongs(const QStringList &arguments)
{
    JobLibrary job(arguments);
    HistoryRecorder recorder(job.history, RunKind::Synchronisation);
    Synchroniser synchroniser(*job.model, job.database(), false);
    synchroniser.setRecorder(&recorder);
    return synchroniser.run(job.run) == Synchroniser::Outcome::Done && job.isDone(recorder);
}

bool editSongs(const QStringList &arguments)
{
    JobLibrary job(arguments);
    const QString &path = job.songs.constFirst();
    const SongFile file(path);
    SongInfo info = file.info;
    info.author = QStringLiteral("New");
    ManualEdit::Spread spread;
    spread.author = true;
    HistoryRecorder recorder(job.history, RunKind::ApplyToAll);
    ManualEdit edit(*job.model, file.song, info, path, 0, spread);
    edit.setRecorder(&recorder);
    return edit.run(job.run) == ManualEdit::Outcome::Done && job.isDone(recorder);
}

bool restoreSongs(const QStringList &arguments)
{
    JobLibrary job(arguments);
    const QList<HistoryRun> runs = job.history.runs();
    if (runs.isEmpty())
        return false;
    HistoryRecorder recorder(job.history, RunKind::Restore);
    Restore restore(*job.model, job.history, job.history.songs(runs.first().id), &recorder);
    return restore.run(job.run) == Restore::Outcome::Done && job.isDone(recorder);
}

} // namespace brisel
