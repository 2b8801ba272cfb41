#include "tests/app/everywindow.h"

#include "app/aboutdialog.h"
#include "app/columnlayout.h"
#include "app/helpdialog.h"
#include "app/mainwindow.h"
#include "app/playerbar.h"
#include "base/filefailure.h"
#include "base/filewriting.h"
#include "db/usersongsreltablemodel.h"
#include "index/dialogs/indexdialog.h"
#include "index/dialogs/songslistdialog.h"
#include "library/backuprestore.h"
#include "library/dialogs/backupdialog.h"
#include "library/dialogs/backuprestoredialog.h"
#include "library/dialogs/cataloguesearchdialog.h"
#include "library/dialogs/historydialog.h"
#include "library/dialogs/nocopyrightdialog.h"
#include "library/dialogs/previewdialog.h"
#include "library/dialogs/proceeddialog.h"
#include "library/dialogs/reportdialog.h"
#include "library/dialogs/windowrun.h"
#include "library/synchroniser.h"
#include "library/syncpreview.h"
#include "songfile/metasong.h"
#include "songfile/songinfo.h"
#include "tests/app/editwindows.h"
#include "tests/app/memorywindows.h"
#include "tests/app/planwindow.h"
#include "tests/logcapture.h"
#include "tools/samplesongs.h"

#include <QCoreApplication>
#include <QDir>
#include <QGroupBox>
#include <QMessageBox>
#include <QProgressDialog>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimeZone>
#include <QTreeView>

namespace brisel
{

namespace
{

std::unique_ptr<QWidget> makeMainWindow(bool withSongs)
{
    const LogCapture quiet;
    auto window = std::make_unique<MainWindow>();
    if (withSongs) {
        const QString folder = QDir::current().filePath(QStringLiteral("songs"));
        if (!QDir::current().mkpath(folder) || !SampleSongs::writeSet(folder))
            return nullptr;
        int songs = 0;
        int publisherSongs = 0;
        int unknown = 0;
        window->scanDir(folder, songs, publisherSongs, unknown);
        auto *view = window->findChild<QTableView *>();
        static_cast<void>(window->grab()); // lays it out
        window->findChild<ColumnLayout *>()->fit();
        view->selectRow(2);
        auto *model = window->findChild<UserSongsRelTableModel *>();
        for (int row = 0; row < 4; ++row)
            model->setStatus(row, static_cast<Database::statusEnum>(row));
        model->setOutcome(4, SongOutcome::Declined, Synchroniser::declined);
        model->setOutcome(5, SongOutcome::NotWritten, FileReason::noSpace);
        model->select(); // shows the counts at once
        for (const char *button :
             {"updateDataToolButton", "previewToolButton", "transferFilesToolButton"})
            window->findChild<QWidget *>(QString::fromLatin1(button))->setEnabled(true);
    }
    return window;
}

/// The main window with the player: a song with texts, or a message.
std::unique_ptr<QWidget> makeListeningWindow(bool isPlaying)
{
    std::unique_ptr<QWidget> window = makeMainWindow(true);
    if (window == nullptr)
        return nullptr;
    auto *bar = window->findChild<PlayerBar *>();
    if (isPlaying) {
        bar->showSong(QStringLiteral("Il cielo sopra il mare"), true);
        bar->setPosition(83000, 205000);
        bar->setTexts(QStringLiteral("Ritornello"),
                      QStringLiteral("Sul mare luccica l'astro d'argento"));
    } else {
        bar->showTrouble(QCoreApplication::translate(
            "SongPlayers", "Manca un SoundFont General MIDI: installare il pacchetto "
                           "timgm6mb-soundfont, o sceglierne uno in Preferenze."));
    }
    return window;
}

std::unique_ptr<QWidget> makeRevealedWindow()
{
    std::unique_ptr<QWidget> window = makeMainWindow(false);
    for (auto *group : window->findChildren<QGroupBox *>())
        group->show();
    return window;
}

std::unique_ptr<QWidget> makeProceedDialog()
{
    auto dialog = std::make_unique<ProceedDialog>();
    dialog->setFilesCount(12345, 6789, 321);
    return dialog;
}

std::unique_ptr<QWidget> makeQuestion(const QString &message, bool yesNoOnly)
{
    auto dialog = std::make_unique<NoCopyrightDialog>();
    dialog->setFilename(longPath);
    if (!message.isEmpty())
        dialog->setMessage(message);
    dialog->setYesNoOnly(yesNoOnly);
    return dialog;
}

std::unique_ptr<QWidget> makeRenameQuestion()
{
    return makeQuestion(QCoreApplication::translate("brisel::Index", "verrà rinominato: ") +
                            QStringLiteral("/media/anna/BRISEL/Basi musicali/Ilciel-1.mid\n\n") +
                            QCoreApplication::translate(
                                "brisel::Index", "Se il file non viene rinominato, è possibile che "
                                                 "non venga rilevato da Brisel."),
                        false);
}

std::unique_ptr<QWidget> makeRestoreQuestion()
{
    auto dialog = std::make_unique<NoCopyrightDialog>();
    dialog->setFilename(longPath);
    dialog->setMessage(QCoreApplication::translate(
        "Restore", "Un altro programma ha cambiato questa song dopo la modifica da annullare. "
                   "Ripristinarla comunque?"));
    dialog->setAnswerWhenClosed(Run::Answer::No);
    return dialog;
}

std::unique_ptr<QWidget> makeIndexDialog()
{
    auto dialog = std::make_unique<IndexDialog>();
    dialog->initProgress(100);
    dialog->setProgressValue(40);
    dialog->updateLabelNum(65535);
    dialog->updateLabelCurrPath(longPath);
    dialog->errorFromIndexReceived(
        QCoreApplication::translate("brisel::Index", "File non importato, path troppo lungo: ") +
        longPath);
    return dialog;
}

std::unique_ptr<QWidget> makeReportDialog()
{
    RunReport report(RunReport::Operation::Synchronisation);
    report.count(RunReport::Success::Updated);
    report.add(RunReport::Step::Find, longPath, Synchroniser::notInCatalogue);
    report.add(RunReport::Step::Copy, longPath, FileReason::noSpace);
    return std::make_unique<ReportDialog>(report);
}

std::unique_ptr<QWidget> makeMessage()
{
    return std::make_unique<QMessageBox>(
        QMessageBox::Question, QCoreApplication::translate("brisel::DataEditDialog", "ATTENZIONE"),
        QCoreApplication::translate("brisel::DataEditDialog",
                                    "Il titolo di tutte le song della lista "
                                    "verrà sovrascritto non il nome del file, "
                                    "sei sicuro?"),
        QMessageBox::Yes | QMessageBox::No);
}

/// The sample songs in a table, with their preview.
struct Previewed {
    Previewed()
    {
        const LogCapture quiet;
        const QString folder = QDir::current().filePath(QStringLiteral("songs"));
        QStringList paths;
        if (!database.init() || !QDir::current().mkpath(folder) ||
            !SampleSongs::writeSet(folder, &paths))
            return;
        model = std::make_unique<UserSongsRelTableModel>(nullptr, *database.userLibraryDb());
        for (const QString &path : std::as_const(paths)) {
            MetaSong song;
            SongInfo info;
            if (song.importFile(path))
                song.getSongInfo(info);
            info.fileName = path;
            info.shortName = path.section(u'/', -1);
            model->addSong(info);
        }
        preview = std::make_unique<SyncPreview>(*model, database);
        Run run;
        static_cast<void>(preview->run(run));
    }

    Database database;
    std::unique_ptr<UserSongsRelTableModel> model;
    std::unique_ptr<SyncPreview> preview;
    CatalogueSearch search{database};
};

std::unique_ptr<QWidget> makePreviewDialog()
{
    class Window : private Previewed, public PreviewDialog
    {
    public:
        Window() : PreviewDialog(*preview, search, true) {}
    };
    return std::make_unique<Window>();
}

std::unique_ptr<QWidget> makeSearchDialog()
{
    class Window : private Previewed, public CatalogueSearchDialog
    {
    public:
        Window() : CatalogueSearchDialog(search, SongInfo(), QStringLiteral("Santa Lucia.mid")) {}
    };
    return std::make_unique<Window>();
}

/// A history of its own, with three runs of a known time.
struct Kept {
    Kept()
    {
        using Field = FieldChange::Field;
        const QString waltz = QStringLiteral("Valzer.mid");
        add(RunKind::Synchronisation,
            {song(waltz, "1", "2",
                  {{Field::Title, QStringLiteral("valzer"), QStringLiteral("VALZER DEL PORTO")},
                   {Field::Length, QString(), QStringLiteral("03:25")}}),
             song(QStringLiteral("Il cielo sopra il mare.kar"), "1", "2",
                  {{Field::Title, QStringLiteral("cielo"),
                    QStringLiteral("IL CIELO SOPRA IL MARE E ALTRE STORIE DI UNA ESTATE")}})});
        add(RunKind::ApplyToAll,
            {song(waltz, "2", "3",
                  {{Field::Genre, QStringLiteral("Valzer"), QStringLiteral("Valzer lento")}})});
        add(RunKind::Edit, {song(QStringLiteral("Santa Lucia.mid"), "1", "2",
                                 {{Field::Artist, QString(), QStringLiteral("Coro")}})});
        useKnownTimes();
    }

    /// The change of a file, which is made.
    KeptSong song(const QString &name, const QByteArray &before, const QByteArray &after,
                  const QList<FieldChange> &fields) const
    {
        const QString file = folder.filePath(name);
        static_cast<void>(replaceFile(file, after));
        return {file,
                QStringLiteral("MIDI"),
                Fingerprint::ofWhole(before),
                Fingerprint::ofWhole(after),
                fields,
                before};
    }
    void add(RunKind kind, const QList<KeptSong> &songs)
    {
        qint64 run = 0;
        QList<qint64> ids;
        static_cast<void>(
            history.add(run, kind, QList<PackedSong>(songs.cbegin(), songs.cend()), ids));
        static_cast<void>(history.finish(run, {}, QStringLiteral("report")));
    }
    /// The pictures of a window are the same on every day.
    void useKnownTimes() const
    {
        const QString name = QStringLiteral("times");
        {
            QSqlDatabase file = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
            file.setDatabaseName(path());
            static_cast<void>(file.open());
            QSqlQuery query(file);
            const QDateTime noon({2024, 5, 4}, {12, 0}, QTimeZone::utc());
            static_cast<void>(query.exec(QStringLiteral("UPDATE run SET time = %1 + id * 3600000")
                                             .arg(noon.toMSecsSinceEpoch())));
        }
        QSqlDatabase::removeDatabase(name);
    }
    QString path() const { return folder.filePath(QStringLiteral("history.sqlite")); }

    QTemporaryDir folder{QDir::current().filePath(QStringLiteral("kept-XXXXXX"))};
    History history{path()};
};

constexpr int historyLimit = 1024; // MiB

std::unique_ptr<QWidget> makeHistoryDialog()
{
    class Window : private Kept, public HistoryDialog
    {
    public:
        Window() : HistoryDialog(history, historyLimit) {}
    };
    auto window = std::make_unique<Window>();
    auto *tree = window->findChild<QTreeView *>();
    const QModelIndex run = tree->model()->index(2, 0);
    if (!run.isValid())
        return nullptr;
    tree->model()->fetchMore(run);
    tree->expand(run);
    for (int row = 0; row < tree->model()->rowCount(run); ++row) {
        const QModelIndex song = tree->model()->index(row, 0, run);
        tree->model()->fetchMore(song);
        tree->expand(song);
    }
    tree->setCurrentIndex(run);
    return window;
}

std::unique_ptr<QWidget> makeEmptyHistoryDialog()
{
    struct Empty {
        History history{QDir::current().filePath(QStringLiteral("none.sqlite"))};
    };
    class Window : private Empty, public HistoryDialog
    {
    public:
        Window() : HistoryDialog(history, historyLimit) {}
    };
    return std::make_unique<Window>();
}

std::unique_ptr<QWidget> makeBackupRestoreDialog()
{
    const auto entry = [](const QString &name, const QString &path) {
        return BackupEntry{name, path, 0, {}};
    };
    const QString folder = QStringLiteral("/home/anna/Musica/");
    const QList<BackupList::Line> lines{
        {entry(QStringLiteral("Valzer.mid"), folder + QStringLiteral("Matrimoni/Valzer.mid"))},
        {entry(QStringLiteral("Valzer (2).mid"), folder + QStringLiteral("Feste/Valzer.mid"))},
        {entry(QStringLiteral("Tango.mp3"), folder + QStringLiteral("Feste/Tango.mp3")),
         BackupList::damagedLine},
        {entry(longPath.section(u'/', -1), longPath)}};
    return std::make_unique<BackupRestoreDialog>(lines);
}

std::unique_ptr<QWidget> makeClearQuestion()
{
    auto box = std::make_unique<QMessageBox>(
        QMessageBox::Question,
        QCoreApplication::translate("brisel::HistoryDialog", "Cronologia modifiche"),
        QCoreApplication::translate("brisel::HistoryDialog",
                                    "Vuotare la cronologia? Le modifiche fatte finora non si "
                                    "potranno più annullare."),
        QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(QMessageBox::No);
    return box;
}

/// The window during a run, with the progress dialog over it.
class WindowAtWork : public QWidget
{
public:
    WindowAtWork() : m_run(this, RunReport::Operation::Synchronisation)
    {
        m_run.setClock([this] { return m_now; });
        m_run.begin({QCoreApplication::translate("Synchroniser", "Aggiornamento file"),
                     QCoreApplication::translate("Synchroniser", "Aggiorno la libreria..."),
                     65535});
        m_now = 200000;
        m_run.setStep(40000);
    }

private:
    qint64 m_now = 0; ///< milliseconds
    WindowRun m_run;
};

} // namespace

const QStringList windowNames{QStringLiteral("main"),
                              QStringLiteral("main-empty"),
                              QStringLiteral("main-revealed"),
                              QStringLiteral("main-player"),
                              QStringLiteral("main-player-trouble"),
                              QStringLiteral("proceed"),
                              QStringLiteral("backup"),
                              QStringLiteral("preview"),
                              QStringLiteral("preview-search"),
                              QStringLiteral("transfer-plan"),
                              QStringLiteral("question"),
                              QStringLiteral("question-yes-no"),
                              QStringLiteral("question-rename"),
                              QStringLiteral("question-restore"),
                              QStringLiteral("edit"),
                              QStringLiteral("edit-hints"),
                              QStringLiteral("edit-several"),
                              QStringLiteral("markers"),
                              QStringLiteral("index"),
                              QStringLiteral("list"),
                              QStringLiteral("help"),
                              QStringLiteral("report"),
                              QStringLiteral("about"),
                              QStringLiteral("message"),
                              QStringLiteral("message-clear"),
                              QStringLiteral("history"),
                              QStringLiteral("history-empty"),
                              QStringLiteral("restore-backup"),
                              QStringLiteral("memory"),
                              QStringLiteral("memory-folders"),
                              QStringLiteral("memory-rename"),
                              QStringLiteral("memory-export"),
                              QStringLiteral("memory-repair"),
                              QStringLiteral("progress")};

std::unique_ptr<QWidget> makeWindow(const QString &name)
{
    const QHash<QString, std::function<std::unique_ptr<QWidget>()>> windows{
        {QStringLiteral("main"), [] { return makeMainWindow(true); }},
        {QStringLiteral("main-empty"), [] { return makeMainWindow(false); }},
        {QStringLiteral("main-revealed"), makeRevealedWindow},
        {QStringLiteral("main-player"), [] { return makeListeningWindow(true); }},
        {QStringLiteral("main-player-trouble"), [] { return makeListeningWindow(false); }},
        {QStringLiteral("proceed"), makeProceedDialog},
        {QStringLiteral("backup"), [] { return std::make_unique<BackupDialog>(); }},
        {QStringLiteral("preview"), makePreviewDialog},
        {QStringLiteral("preview-search"), makeSearchDialog},
        {QStringLiteral("transfer-plan"), makePlanWindow},
        {QStringLiteral("question"), [] { return makeQuestion({}, false); }},
        {QStringLiteral("question-yes-no"), [] { return makeQuestion({}, true); }},
        {QStringLiteral("question-rename"), makeRenameQuestion},
        {QStringLiteral("question-restore"), makeRestoreQuestion},
        {QStringLiteral("edit"), makeEditWindow},
        {QStringLiteral("edit-hints"), makeEditWindowWithHints},
        {QStringLiteral("edit-several"), makeEditWindowOfSeveral},
        {QStringLiteral("markers"), makeMarkersWindow},
        {QStringLiteral("index"), makeIndexDialog},
        {QStringLiteral("list"), [] { return std::make_unique<SongsListDialog>(); }},
        {QStringLiteral("help"), [] { return std::make_unique<HelpDialog>(); }},
        {QStringLiteral("report"), makeReportDialog},
        {QStringLiteral("about"), [] { return std::make_unique<AboutDialog>(); }},
        {QStringLiteral("message"), makeMessage},
        {QStringLiteral("message-clear"), makeClearQuestion},
        {QStringLiteral("history"), makeHistoryDialog},
        {QStringLiteral("history-empty"), makeEmptyHistoryDialog},
        {QStringLiteral("restore-backup"), makeBackupRestoreDialog},
        {QStringLiteral("memory"), makeMemoryWindow},
        {QStringLiteral("memory-folders"), makeMemoryFoldersWindow},
        {QStringLiteral("memory-rename"), makeRenameSongDialog},
        {QStringLiteral("memory-export"), makeExportListDialog},
        {QStringLiteral("memory-repair"), makeRepairDialog},
        {QStringLiteral("progress"), [] { return std::make_unique<WindowAtWork>(); }},
    };
    return windows.value(name)();
}

QWidget *shown(QWidget &window)
{
    window.show();
    if (auto *progress = window.findChild<QProgressDialog *>())
        return progress;
    return &window;
}

} // namespace brisel
