#include "base/lastfolder.h"
#include "base/reason.h"
#include "base/songsuffix.h"
#include "index/dialogs/indexdialog.h"
#include "index/dialogs/songslistdialog.h"
#include "index/index.h"
#include "index/memorycheck.h"
#include "index/memoryreasons.h"
#include "index/recentmemories.h"
#include "library/dialogs/plainmessage.h"
#include "library/dialogs/reportdialog.h"
#include "library/dialogs/windowrun.h"
#include "memory/copyback.h"
#include "memory/dialogs/exportlistdialog.h"
#include "memory/dialogs/memoryactions.h"
#include "memory/dialogs/renamesongdialog.h"
#include "memory/memoryclaim.h"
#include "memory/songfiles.h"
#include "memory/songremoval.h"
#include "memory/songrename.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>

#include <algorithm>
#include <optional>

namespace brisel
{

namespace
{

/// The report of an index run counts the errors that are shown.
int errorsOf(const Run &run)
{
    return run.report().failed();
}

/// Returns false if there are graphics files among \a files.
bool areSongs(const QStringList &files)
{
    return std::all_of(files.cbegin(), files.cend(),
                       [](const QString &file) { return isSongSuffix(QFileInfo(file).suffix()); });
}

/// The contents of the memory \a root as they are, which the window may not have read yet; empty
/// if they can't be read.
MemoryContents contentsNow(const QString &root)
{
    MemoryContents contents;
    Run run;
    (void)contents.read(root, run);
    return contents;
}

/// Empty if something may have been copied.
QString whyNothingCopied(const CopyBack &copy, CopyBack::Outcome outcome)
{
    switch (outcome) {
    case CopyBack::Outcome::NoFolder:
        return MemoryActions::tr("Il percorso di destinazione non esiste");
    case CopyBack::Outcome::OnMemory:
        return MemoryActions::tr("La cartella è sulla memoria stessa: sceglierne una del computer");
    case CopyBack::Outcome::InUse:
        return RunDialog::inUseText();
    case CopyBack::Outcome::NoRoom:
        return copy.shortage();
    case CopyBack::Outcome::Done:
    case CopyBack::Outcome::Interrupted:
    case CopyBack::Outcome::Failed:
        break;
    }
    return {};
}

} // namespace

void MemoryActions::showReport(const Run &run)
{
    if (!run.report().isEmpty() && !Run::isEnding())
        ReportDialog(run.report(), m_window).exec();
}

/// The outcome of an action that has something in its report.
void MemoryActions::showFailure(const QString &title, const Run &run)
{
    if (Run::isEnding())
        return;
    QMessageBox::warning(m_window, title,
                         tr("Non tutto è riuscito. Il report dice che cosa manca."));
    showReport(run);
}

/// Returns true, shown, if the memory that \a task is about is not there any more.
bool MemoryActions::isExchanged(const Task &task, const QString &title)
{
    if (task.memory.isThere())
        return false;
    showRefusal(title, MemoryReason::gone);
    return true;
}

/// Returns true, shown, if nothing may be changed.
bool MemoryActions::refuses(const MemoryClaim &claim, const QString &title)
{
    const std::optional<Reason> refusal = claim.refusal();
    if (refusal)
        showRefusal(title, *refusal);
    return refusal.has_value();
}

void MemoryActions::showRefusal(const QString &title, const Reason &reason)
{
    QMessageBox::warning(m_window, title,
                         reason == MemoryReason::inUse
                             ? RunDialog::inUseText()
                             : tr("Impossibile proseguire: %1.").arg(reason.text()));
    emit changed();
}

void MemoryActions::removeSongs()
{
    const QString title = tr("Rimuovi dalla memoria");
    if (m_files.isEmpty())
        return;
    const std::optional<Task> task = startWriting(title);
    if (!task)
        return;
    MemoryClaim claim(task->root);
    if (refuses(claim, title))
        return;
    claim.mark();
    const MemoryContents contents = contentsNow(task->root);
    SongFiles files(task->root, contents);
    SongEntries entries(contents, files);
    for (const QString &path : task->files)
        entries.add(path);
    if (!isRemovalWanted(*task, playlistsText(contents, entries))) {
        showRecovery(claim);
        return;
    }
    keepMemory(task->root);
    {
        WindowRun run(m_window, RunReport::Operation::Deletion);
        const SongRemoval::Outcome outcome = SongRemoval(claim, task->files).run(run);
        const int count = static_cast<int>(task->files.size());
        if (outcome == SongRemoval::Outcome::Done)
            QMessageBox::information(m_window, title,
                                     areSongs(task->files) ? tr("%n song rimosse", "", count)
                                                           : tr("%n file rimossi", "", count));
        else
            showFailure(title, run);
    }
    emit changed();
}

/// The claim may have finished a replacement of the index before the question that was declined.
void MemoryActions::showRecovery(const MemoryClaim &claim)
{
    if (claim.mayHaveRecovered())
        emit changed();
}

/// What the removal of the songs means for the playlists, and which of them are not known.
QString MemoryActions::playlistsText(const MemoryContents &contents, const SongEntries &entries)
{
    using Playlist = MemoryContents::Playlist;
    const QList<Playlist> &all = contents.playlists();
    const auto unread = std::count_if(all.cbegin(), all.cend(), [](const Playlist &playlist) {
        return playlist.state == Playlist::State::Unreadable;
    });
    QStringList lines;
    if (const int playlists = entries.playlists(); playlists > 0)
        lines.append(tr("%n playlist le contengono, e le perderanno.", "", playlists));
    else if (unread == 0 || entries.isEmpty())
        lines.append(tr("Nessuna playlist le contiene."));
    if (unread > 0 && !entries.isEmpty())
        lines.append(tr("%n playlist non si possono leggere: forse le contengono.", "",
                        static_cast<int>(unread)));
    return lines.join(u'\n');
}

bool MemoryActions::isRemovalWanted(const Task &task, const QString &playlists)
{
    const int count = static_cast<int>(task.files.size());
    QMessageBox box(QMessageBox::Question, tr("Rimuovi dalla memoria"),
                    areSongs(task.files) ? tr("Rimuovere %n song dalla memoria?", "", count)
                                         : tr("Rimuovere %n file dalla memoria?", "", count),
                    QMessageBox::Yes | QMessageBox::No, m_window);
    const QString lost = task.lastCopies == 0
                             ? QString()
                             : tr("Di %n song sono scelte tutte le copie: non ne resterà nessuna.",
                                  "", task.lastCopies) +
                                   u'\n';
    setPlainTexts(box, lost + playlists + u'\n' +
                           tr("I file vengono cancellati e non si possono riavere."));
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

void MemoryActions::renameSong()
{
    const QString title = tr("Rinomina");
    if (m_files.size() != 1)
        return;
    const std::optional<Task> task = startWriting(title);
    if (!task)
        return;
    MemoryClaim claim(task->root);
    if (refuses(claim, title))
        return;
    claim.mark();
    const MemoryContents contents = contentsNow(task->root);
    SongRename rename(task->root, contents, task->files.first());
    if (rename.obstacle()) {
        showRefusal(title, *rename.obstacle());
        return;
    }
    RenameSongDialog dialog(rename, m_window);
    if (dialog.exec() != QDialog::Accepted) {
        showRecovery(claim);
        return;
    }
    keepMemory(task->root);
    {
        WindowRun run(m_window, RunReport::Operation::Renaming);
        if (rename.run(run, claim, dialog.base()) != SongRename::Outcome::Done)
            showFailure(title, run);
    }
    emit changed();
}

void MemoryActions::copySongs()
{
    const std::optional<Task> task = start();
    if (!task || task->files.isEmpty())
        return;
    const QString title = tr("Copia sul computer");
    const QString folder =
        QFileDialog::getExistingDirectory(m_window, tr("Scegli la cartella delle copie"),
                                          startFolder(Settings::copyBackFolder, QDir::homePath()));
    if (folder.isEmpty() || isExchanged(*task, title))
        return;
    keepFolder(Settings::copyBackFolder, folder);
    keepMemory(task->root);
    WindowRun run(m_window, RunReport::Operation::CopyBack);
    CopyBack copy(task->root, task->files, folder, contentsNow(task->root));
    const CopyBack::Outcome outcome = copy.run(run);
    const int count = run.report().counted(RunReport::Success::Copied);
    if (outcome == CopyBack::Outcome::Done)
        QMessageBox::information(m_window, title,
                                 areSongs(task->files) ? tr("%n song copiate", "", count)
                                                       : tr("%n file copiati", "", count));
    else if (const QString reason = whyNothingCopied(copy, outcome); !reason.isEmpty())
        QMessageBox::warning(m_window, title, reason);
    else
        showFailure(title, run);
}

void MemoryActions::runIndex(bool isRebuild)
{
    using Outcome = IndexDialog::Outcome;
    const QString title = IndexDialog::tr("Ottimizza memoria");
    const std::optional<Task> task = startWriting(title);
    if (!task)
        return;
    keepMemory(task->root);
    {
        WindowRun run(m_window, RunReport::Operation::Index);
        run.begin({title, IndexDialog::tr("Ottimizzazione memoria in corso..."), 0, false});
        Index index(run);
        const bool isDone =
            isRebuild ? index.createIndex(task->root) : index.updateIndex(task->root);
        run.end();
        const int errors = errorsOf(run);
        Outcome outcome = isDone ? Outcome::Done : Outcome::Failed;
        if (Run::isEnding())
            outcome = Outcome::Ended;
        else if (!isDone && index.failure() == MemoryReason::inUse)
            outcome = Outcome::InUse;
        if (!isDone)
            run.report().add(RunReport::Step::Index, task->root, index.failure());
        IndexDialog::showOutcome(m_window, outcome, errors);
        showReport(run);
    }
    emit changed();
}

void MemoryActions::checkMemory()
{
    const std::optional<Task> task = start();
    if (!task)
        return;
    const QString title = IndexDialog::tr("Controllo memoria");
    keepMemory(task->root);
    WindowRun run(m_window, RunReport::Operation::Index);
    run.begin({title, tr("Controllo la memoria..."), 0, false});
    MemoryCheck check(run);
    const bool isDone = check.run(task->root);
    const bool isInterrupted = !run.mayGoOn();
    run.end();
    if (isInterrupted)
        return;
    const QStringList findings = check.findings();
    for (const QString &finding : findings)
        run.report().addMessage(finding);
    if (!isDone)
        QMessageBox::warning(m_window, title, IndexDialog::tr("Controllo memoria non eseguito!"));
    else if (findings.isEmpty())
        QMessageBox::information(m_window, title, IndexDialog::tr("Nessun errore trovato"));
    showReport(run);
}

void MemoryActions::exportList()
{
    const std::optional<Task> task = start();
    if (!task)
        return;
    ExportListDialog dialog(m_list, m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const SongsListKind kind = dialog.kind();
    const bool isPage = kind.format == SongsListKind::Format::Html;
    const QString suffix = isPage ? QStringLiteral(".html") : QStringLiteral(".csv");
    const QString file = QFileDialog::getSaveFileName(
        m_window, SongsListDialog::tr("Scegli nome del file"),
        startFolder(Settings::reportFolder, QDir::homePath()) + QStringLiteral("/SongsList") +
            suffix,
        isPage ? tr("File (*.html)") : SongsListDialog::tr("File (*.csv)"));
    if (file.isEmpty() || isExchanged(*task, dialog.windowTitle()))
        return;
    keepFolder(Settings::reportFolder, QFileInfo(file).path());
    WindowRun run(m_window, RunReport::Operation::SongsList);
    run.begin({dialog.windowTitle(), tr("Salvo l'elenco..."), 0, false});
    Index index(run);
    const int result = index.saveSongsList(task->root, file, kind);
    run.end();
    SongsListDialog::showOutcome(
        m_window, SongsListDialog::outcomeOf(index, result, task->root, file, run.report()));
    showReport(run);
}

void MemoryActions::pullOut()
{
    const std::optional<Task> task = startWriting(tr("Rimozione sicura"));
    if (!task)
        return;
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    m_safeRemoval->start(task->root);
    updateActions();
}

void MemoryActions::showPulledOut(SafeRemoval::Outcome outcome, const QString &detail)
{
    QGuiApplication::restoreOverrideCursor();
    updateActions();
    QMessageBox box(SafeRemoval::mayBePulled(outcome) ? QMessageBox::Information
                                                      : QMessageBox::Warning,
                    tr("Rimozione sicura"), SafeRemoval::text(outcome), QMessageBox::Ok, m_window);
    setPlainTexts(box, detail);
    box.exec();
    emit changed();
}

} // namespace brisel
