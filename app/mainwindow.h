#pragma once

#include "base/reason.h"
#include "base/runguard.h"
#include "base/settings.h"
#include "db/database.h"
#include "history/history.h"
#include "library/lastlist.h"
#include "library/transfer.h"

#include <QMainWindow>
#include <QPointer>
#include <QSettings>
#include <QStringList>
#include <QTranslator>

#include <memory>
#include <optional>

namespace brisel
{

class ColumnLayout;
class DataEditDialog;
class EmptyTableHint;
class MemoryWindow;
class MetaSong;
class SongFilter;
class SongInfo;
class SongListener;
class SongPicker;
class StatusLine;
class SyncPlan;
class TransferPlan;
class UserSongsRelTableModel;
struct SongCounts;
struct SongFile;

namespace Ui
{
class MainWindow;
}

/// The program's only window. It owns the databases, the library table, the settings and the
/// translators of a language chosen at run time.
///
/// It only asks, starts a workflow of library/ or a dialog, and shows the outcome.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Opens the databases. If that fails, the window has no table model, and only its menus work.
    MainWindow();
    ~MainWindow() override;

    /// Empties the library table and fills it with the files that were picked last, then offers to
    /// synchronise while the setting "copyrightAsk" is on.
    void importUserLibrary();
    /// Imports the songs among \a paths and below the folders among them, as if the user had picked
    /// them; shows a message if there are no songs. A no-op while a run is under way.
    void openSongs(const QStringList &paths);
    /// As openSongs(), but the songs of the table stay, and files that are in the list already are
    /// left out. If the list is empty, there is no difference.
    void addSongs(const QStringList &paths);
    /// Shows "%1 di %2" in the progress dialog of the run under way, and moves its bar.
    void updateProgress(int value);
    /// Stores whether to ask before songs that the publisher did not publish are changed, and shows
    /// it in the menu.
    void enableCopyrightMessage(bool on);

    /// Adds the number of files below \a dir to \a count.
    void filesCount(const QString &dir, int &count) const;
    /// Adds every song below \a dir to the table and to the counters.
    void scanDir(const QString &dir, int &songs, int &publisherSongs, int &unknown);

    /// Synchronises the library with the catalogue, after offering a backup. Returns true if every
    /// row was processed; false if there are no rows, or the user cancelled.
    bool updateUserLibrary();
    /// Offers a backup of the picked files. Returns true if the synchronisation may continue, also
    /// after files that could not be copied.
    bool suggestBackup();
    /// Synchronises one row as a separate run. Returns true if it was found, rewritten and read
    /// again.
    bool updateFileWithDb(int row);

    /// Writes \a info into the open song and saves it to \a path, as a separate run; the row then
    /// shows the file.
    void manualModifySong(MetaSong song, const SongInfo &info, const QString &path, int row);

    /// Asks for a folder on a memory, copies the picked files there and updates the memory's index.
    /// Returns true if all of that succeeded.
    bool transferFiles();
    /// Shows the plan of a transfer of the picked files to \a folder, whatever the setting is, and
    /// copies what the user leaves ticked. A no-op without files and during a run. Returns true if
    /// all of that was copied and the index is up to date.
    bool transferByPlan(const QString &folder);
    /// Transfers \a files to the memory \a root. Returns their paths there: one for each file,
    /// empty for those that are not there; none if nothing was transferred.
    QStringList sendToMemory(const QString &root, const QStringList &files);
    /// Copies the picked files into \a destDir and counts in \a copied the songs that are there
    /// afterwards. Returns true if none failed and the user did not interrupt.
    bool copyFiles(const QString &destDir, int &copied);
    /// Updates the index of the memory that contains \a dest. Returns true if it is complete.
    bool updateBriselIndex(const QString &dest);
    /// Copies a folder with everything below it; see FolderTreeBackup. No button calls this.
    bool backupDirectory(const QString &source, const QString &dest, int &count);

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void on_selectDirToolButton_clicked();
    void on_dbgImportPushButton_clicked() { importUserLibrary(); }
    void on_actionItalian_triggered() { setLanguage(QStringLiteral("it")); }
    void on_actionEnglish_triggered() { setLanguage(QStringLiteral("en")); }
    void on_actionGerman_triggered() { setLanguage(QStringLiteral("de")); }
    void on_actionCopyrightYes_triggered() { enableCopyrightMessage(true); }
    void on_actionCopyrightNo_triggered() { enableCopyrightMessage(false); }
    void on_actionAddSongs_triggered();
    void on_actionAddFolder_triggered();
    void on_actionLastList_triggered();
    void on_actionMemory_triggered();
    void on_optimizeMemory_triggered();
    void on_actionSongsList_triggered();
    void on_actionTransferPlan_triggered(bool on);
    void on_actionHistory_triggered();
    void on_actionRestoreBackup_triggered();
    void on_actionShowUnreadable_triggered(bool on);
    void on_actionResetLayout_triggered();
    void on_actionContents_triggered();
    void on_actionAbout_triggered();
    void on_actionAbout_QT_triggered();
    void on_dbgLogEnableCheckBox_toggled(bool on) { Settings::logEnabled.store(m_settings, on); }
    void on_dbgLogClearCheckBox_toggled(bool on) { Settings::logClear.store(m_settings, on); }
    void on_dbgHidePushButton_clicked();
    void on_searchHelpToolButton_clicked();

    void on_updateDataToolButton_clicked();
    void on_actionPreview_triggered();
    void on_transferFilesToolButton_clicked();
    void onSongsTableViewDoubleClicked(const QModelIndex &index);
    void onSongsTableViewShowContextMenu(const QPoint &pos);
    void on_actionRemoveRow_triggered();
    void on_actionDeleteFile_triggered();
    void on_actionRestore_triggered();
    void on_actionEditSong_triggered();
    void on_dbgSavePushButton_clicked();
    void on_dbgAddMarkerPushButton_clicked();
    void on_dbgShowDialogPushButton_clicked();
    void on_dbgBackupPushButton_clicked();

private:
    class LibraryRun;

    /// The state of the library between two runs, which determines the enabled actions.
    enum class Phase {
        NoLibrary, ///< the databases did not open
        NoFiles,   ///< no files were picked, or all were removed from the list
        Working,   ///< a run was started by one of the three buttons
        Imported,
        Sendable, ///< synchronised, or sent: needs a new import before it is synchronised again
    };

    void showSettings();
    void makeActions();
    void updateActions();
    void setPhase(Phase phase);
    void openLibrary();
    void initUserLibraryModel();
    void adjustUserLibraryHeaders();
    void storeLayout();
    void explainEmptyTable();
    void showLanguage(const QString &code);
    void setLanguage(const QString &code);
    void showCopyrightChoice(bool on);
    bool isCopyrightAskOn() const;
    bool canStartRun() const { return m_model != nullptr && !RunGuard::isActive(); }

    bool isTableEmpty() const;
    void takeDrops();
    void offerFolders();
    QStringList chooseSongFiles();
    std::optional<qint64> pickSongs(SongPicker &picker, const QStringList &paths);
    void importPickedFiles(const QStringList &files, qint64 searched = 0);
    void importAfter(qint64 searched);
    void addPickedFiles(const QStringList &files, qint64 searched);
    bool offerSynchronisation(const SongCounts &counts);
    bool synchronise(LibraryRun &run, const SyncPlan *plan = nullptr);
    std::optional<SyncPlan> previewedPlan();
    bool offerBackup(LibraryRun &run);
    bool sendByPlan(LibraryRun &run, const QString &chosen);
    void sendSongs(const QString &root);
    bool makePlan(TransferPlan &plan);
    bool send(LibraryRun &run, Transfer &transfer, const QString &chosen);
    void showOutcome(Transfer::Outcome outcome, const QString &shortage);

    QList<int> chosenSongs() const;
    QList<int> songsAmong(QList<int> rows) const;
    void showMenuOfChosenRows();
    void showRowMenu(const QList<int> &rows, const QPoint &place);
    void edit(const QList<int> &rows);
    void editSong(int row);
    void editSongs(const QList<int> &rows);
    int nextSong(int row, int step) const;
    int editAndGo(int row, int step);
    bool saveEdited(const SongFile &file, int row);
    DataEditDialog &editDialog();
    void showUnsaved(const QString &path, Reason reason);
    void centreRow(int row);
    void removeSongs(const QList<int> &rows);
    void deleteSongs(const QList<int> &rows);
    void askDeleteFile(int row);
    void askDeleteFiles(const QList<int> &rows);
    bool mayRestore(const QList<int> &rows);
    void restoreSongs(const QList<int> &rows);
    void restore(const QList<HistorySong> &songs, qint64 searched = 0);
    void changeHistoryLimit(int limit);
    void limitHistory();

    std::unique_ptr<Ui::MainWindow> m_ui;
    Database m_database;
    History m_history;
    std::unique_ptr<DataEditDialog> m_editDialog; ///< used for every manual edit; see editDialog()
    QSettings m_settings;
    QTranslator m_programTranslator;
    QTranslator m_qtTranslator;
    UserSongsRelTableModel *m_model = nullptr;            ///< null until the databases are open
    SongFilter *m_filter = nullptr;                       ///< null while m_model is null
    ColumnLayout *m_columns = nullptr;                    ///< null while m_model is null
    SongListener *m_listener = nullptr;                   ///< null while m_model is null
    EmptyTableHint *m_hint = nullptr;                     ///< null while m_model is null
    bool m_copyrightAsk = Settings::copyrightAsk.initial; ///< while the setting is not stored

    QStringList m_fileList; ///< the files picked last and added, without rows removed since
    LastList m_lastList;
    Phase m_phase = Phase::NoLibrary;
    LibraryRun *m_run = nullptr;           ///< the current run; null without one
    StatusLine *m_statusLine = nullptr;    ///< made with the window
    QPointer<MemoryWindow> m_memoryWindow; ///< null while it is closed
};

} // namespace brisel
