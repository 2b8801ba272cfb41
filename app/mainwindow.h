#pragma once

#include "base/runguard.h"
#include "db/database.h"
#include "library/runprogress.h"

#include <QMainWindow>
#include <QSettings>
#include <QStringList>
#include <QTranslator>

#include <memory>

class UserSongsRelTableModel;
struct SongCounts;

namespace Ui
{
class MainWindow;
}

/// The program's only window and the owner of all that lives for the whole run: the databases, the
/// library table, the settings and the translators of a language chosen at run time.
///
/// A frame: it asks, starts a workflow of library/ or a dialog, and shows what came of it.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Opens the databases. When that fails the window has no table model, and only its menus work.
    MainWindow();
    ~MainWindow() override;

    /// Empties the library table and fills it with the files that were picked last.
    void importUserLibrary();
    /// Shows "%1 di %2" in the progress dialog of the run under way, and moves its bar.
    void updateProgress(int value);
    /// Stores whether songs that the publisher did not publish are asked for, and shows it in the
    /// menu.
    void enableCopyrightMessage(bool on);

    /// Adds the number of files below \a dir to \a count.
    void filesCount(const QString &dir, int &count) const;
    /// Adds every song below \a dir to the table and to the counters.
    void scanDir(const QString &dir, int &songs, int &publisherSongs, int &unknown);

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void on_selectDirToolButton_clicked();
    void on_dbgImportPushButton_clicked();
    void on_actionItalian_triggered();
    void on_actionEnglish_triggered();
    void on_actionGerman_triggered();
    void on_actionCopyrightYes_triggered();
    void on_actionCopyrightNo_triggered();
    void on_optimizeMemory_triggered();
    void on_actionSongsList_triggered();
    void on_actionContents_triggered();
    void on_actionAbout_triggered();
    void on_actionAbout_QT_triggered();
    void on_dbgLogEnableCheckBox_toggled(bool on);
    void on_dbgLogClearCheckBox_toggled(bool on);
    void on_dbgHidePushButton_clicked();

private:
    /// Lives while a workflow works on the rows: no second run, no quit, no rows that change
    /// places.
    class LibraryRun
    {
    public:
        explicit LibraryRun(MainWindow &window);
        ~LibraryRun();
        LibraryRun(const LibraryRun &) = delete;
        LibraryRun &operator=(const LibraryRun &) = delete;

    private:
        RunGuard m_guard;
        UserSongsRelTableModel &m_model;
    };

    void showSettings();
    void initUserLibraryModel();
    void adjustUserLibraryHeaders();
    void showLanguage(const QString &code);
    void setLanguage(const QString &code);
    void showCopyrightChoice(bool on);
    bool isCopyrightAskOn() const;
    bool canStartRun() const;
    bool readFileList(SongCounts &counts);

    std::unique_ptr<Ui::MainWindow> m_ui;
    Database m_database;
    QSettings m_settings;
    QTranslator m_programTranslator;
    QTranslator m_qtTranslator;
    UserSongsRelTableModel *m_model = nullptr; ///< null until the databases are open
    bool m_copyrightAsk = true;                ///< default of the setting "copyrightAsk"

    QStringList m_fileList; ///< what the user picked last
    RunProgress m_progress;
};
