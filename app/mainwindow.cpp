#include "app/mainwindow.h"

#include "app/aboutdialog.h"
#include "app/columnfitting.h"
#include "app/currentrowkeeper.h"
#include "app/emptytablehint.h"
#include "app/helpdialog.h"
#include "app/songfilter.h"
#include "app/songtooltip.h"
#include "app/startup.h"
#include "app/statusline.h"
#include "base/debugstream.h"
#include "db/usersongsreltablemodel.h"
#include "index/dialogs/indexdialog.h"
#include "index/dialogs/songslistdialog.h"
#include "library/dialogs/dataeditdialog.h"
#include "library/folderscan.h"
#include "library/libraryimport.h"
#include "library/songpicker.h"
#include "ui_mainwindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QKeyEvent>

namespace
{

/// Shows a dialog of its own window until it is closed; none while a run is under way.
template <typename Dialog>
void runDialog()
{
    if (RunGuard::isActive())
        return;
    Dialog dialog;
    dialog.exec();
}

/// As above, for a dialog that works on a memory; \a line then tells what came of it.
template <typename Dialog>
void runMemoryDialog(StatusLine &line)
{
    if (RunGuard::isActive())
        return;
    Dialog dialog;
    dialog.exec();
    line.setReport(dialog.report());
}

} // namespace

MainWindow::LibraryRun::LibraryRun(MainWindow &window) : m_model(window.m_model)
{
    if (m_model != nullptr)
        m_model->setSortingLocked(true);
}

MainWindow::LibraryRun::~LibraryRun()
{
    if (m_model != nullptr)
        m_model->setSortingLocked(false);
}

MainWindow::MainWindow()
    : m_ui(std::make_unique<Ui::MainWindow>()), m_settings(openSettings()), m_progress(this)
{
    m_ui->setupUi(this);
    setWindowTitle(tr("Brisel2 PC"));
    m_statusLine = new StatusLine(this); // after the form: it is last in the order of Tab
    m_ui->statusBar->addWidget(m_statusLine, 1);
    m_ui->actionGerman->setVisible(false);
    m_ui->actionItalian->setVisible(true);
    m_ui->debugKordiaGroupBox->hide();
    m_ui->debugGroupBox->hide();
    m_ui->updateDataToolButton->setEnabled(false);
    m_ui->transferFilesToolButton->setEnabled(false);
    showSettings();

    if (!m_database.init()) {
        debug() << "Error initializing DB !!!";
        m_ui->selectDirToolButton->setEnabled(false);
        m_ui->searchLineEdit->setEnabled(false);
        return;
    }
    debug() << "DB initialized correctly";
    connect(m_ui->userLibraryTableView, &QTableView::doubleClicked, this,
            &MainWindow::onSongsTableViewDoubleClicked);
    connect(m_ui->userLibraryTableView, &QTableView::customContextMenuRequested, this,
            &MainWindow::onSongsTableViewShowContextMenu);
    m_ui->userLibraryTableView->setContextMenuPolicy(Qt::CustomContextMenu);
    connectKeys();
    takeDrops();
    initUserLibraryModel();
    adjustUserLibraryHeaders();
    qApp->installEventFilter(this);
}

MainWindow::~MainWindow()
{
    delete m_model; // before the database that it stands on
}

void MainWindow::importUserLibrary()
{
    if (!canStartRun())
        return;
    SongCounts counts;
    if (!readFileList(counts))
        return;
    adjustUserLibraryHeaders();
    if (!offerSynchronisation(counts))
        m_ui->updateDataToolButton->setEnabled(true);
}

void MainWindow::updateProgress(int value)
{
    m_progress.setValue(value);
}

void MainWindow::enableCopyrightMessage(bool on)
{
    m_copyrightAsk = on;
    Settings::copyrightAsk.store(m_settings, on);
    showCopyrightChoice(on);
}

void MainWindow::filesCount(const QString &dir, int &count) const
{
    count += FolderScan::filesCount(dir);
}

void MainWindow::scanDir(const QString &dir, int &songs, int &publisherSongs, int &unknown)
{
    if (!canStartRun())
        return;
    const LibraryRun run(*this);
    SongCounts counts{songs, publisherSongs, unknown};
    m_ui->userLibraryTableView->setUpdatesEnabled(false);
    FolderScan(*m_model, m_progress, counts).scan(dir);
    m_model->sortAgain();
    m_ui->userLibraryTableView->setUpdatesEnabled(true);
    m_statusLine->beginRun(RunReport::Operation::Import);
    m_statusLine->addReport(counts.report);
    songs = counts.songs;
    publisherSongs = counts.publisherSongs;
    unknown = counts.unknown;
}

void MainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    setWindowTitle(tr("Brisel2 PC"));
    if (m_model == nullptr)
        return;
    m_model->setHeaderLabels();
    explainEmptyTable();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!RunGuard::isActive()) {
        QMainWindow::closeEvent(event);
        return;
    }
    RunGuard::requestEnd();
    event->ignore();
}

/// Ctrl+Alt+D reveals the hidden options and hides them again; everything else goes through.
bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    const auto *widget = qobject_cast<QWidget *>(watched);
    if (widget == nullptr || widget->window() != this || key->key() != Qt::Key_D ||
        key->modifiers() != (Qt::ControlModifier | Qt::AltModifier))
        return false;
    if (!key->isAutoRepeat()) {
        const bool reveal = m_ui->debugKordiaGroupBox->isHidden();
        m_ui->debugKordiaGroupBox->setVisible(reveal);
        m_ui->debugGroupBox->setVisible(reveal);
    }
    return true;
}

void MainWindow::on_selectDirToolButton_clicked()
{
    if (!canStartRun())
        return;
    const QStringList files = QFileDialog::getOpenFileNames(
        this, tr("Seleziona i file da importare"), QStringLiteral("/"),
        QStringLiteral("Songs (%1)").arg(songNamePatterns));
    if (!files.isEmpty())
        importPickedFiles(files);
}

void MainWindow::on_dbgImportPushButton_clicked()
{
    importUserLibrary();
}

void MainWindow::on_actionItalian_triggered()
{
    setLanguage(QStringLiteral("it"));
}

void MainWindow::on_actionEnglish_triggered()
{
    setLanguage(QStringLiteral("en"));
}

void MainWindow::on_actionGerman_triggered()
{
    setLanguage(QStringLiteral("de"));
}

void MainWindow::on_actionCopyrightYes_triggered()
{
    enableCopyrightMessage(true);
}

void MainWindow::on_actionCopyrightNo_triggered()
{
    enableCopyrightMessage(false);
}

void MainWindow::on_optimizeMemory_triggered()
{
    runMemoryDialog<IndexDialog>(*m_statusLine);
}

void MainWindow::on_actionSongsList_triggered()
{
    runMemoryDialog<SongsListDialog>(*m_statusLine);
}

void MainWindow::on_actionContents_triggered()
{
    runDialog<HelpDialog>();
}

void MainWindow::on_actionAbout_triggered()
{
    runDialog<AboutDialog>();
}

void MainWindow::on_actionAbout_QT_triggered()
{
    if (!RunGuard::isActive())
        QApplication::aboutQt();
}

void MainWindow::on_dbgLogEnableCheckBox_toggled(bool on)
{
    Settings::logEnabled.store(m_settings, on);
}

void MainWindow::on_dbgLogClearCheckBox_toggled(bool on)
{
    Settings::logClear.store(m_settings, on);
}

void MainWindow::on_dbgHidePushButton_clicked()
{
    m_ui->debugGroupBox->setVisible(m_ui->debugGroupBox->isHidden());
}

void MainWindow::showSettings()
{
    showLanguage(Settings::language.in(m_settings));
    showCopyrightChoice(isCopyrightAskOn());
    m_ui->dbgLogEnableCheckBox->setChecked(Settings::logEnabled.in(m_settings));
    m_ui->dbgLogClearCheckBox->setChecked(Settings::logClear.in(m_settings));
}

void MainWindow::initUserLibraryModel()
{
    m_model = new UserSongsRelTableModel(this, *m_database.userLibraryDb());
    m_model->setHeaderLabels();
    QTableView *view = m_ui->userLibraryTableView;
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Before the model is set: afterwards it would sort at once, the last song first.
    view->setSortingEnabled(true);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setShowGrid(true);
    view->verticalHeader()->hide();
    view->setAlternatingRowColors(false);
    view->setModel(m_model);
    m_statusLine->setModel(m_model);
    view->hideColumn(m_model->colIdxFilename());
    view->hideColumn(m_model->colIdxStatus());
    view->hideColumn(0);

    view->horizontalHeader()->setSectionsMovable(true);
    m_hint = new EmptyTableHint(*view);
    m_filter = new SongFilter(*m_ui->searchLineEdit, *view, *m_model);
    connect(m_filter, &SongFilter::changed, this, &MainWindow::explainEmptyTable);
    new SongToolTip(*view, *m_model);
    new CurrentRowKeeper(*view); // after the filter: it scrolls to a row that is shown
    explainEmptyTable();
}

void MainWindow::explainEmptyTable()
{
    if (m_model->rowCount() == 0)
        m_hint->tell(tr("Nessun brano nella tabella.\nPer cominciare premi il pulsante qui sopra, "
                        "oppure trascina qui file o cartelle."));
    else
        m_hint->tell(m_filter->hidesAll() ? tr("Nessun brano corrisponde alla ricerca")
                                          : QString());
}

void MainWindow::adjustUserLibraryHeaders()
{
    constexpr int shortNameColumn = 10;
    fitColumns(*m_ui->userLibraryTableView, {0, 1, 2, 3, 4, 5, 6, 7, 8, shortNameColumn});
}

void MainWindow::showLanguage(const QString &code)
{
    const bool italian = code == QStringLiteral("it");
    const bool german = code == QStringLiteral("de");
    m_ui->actionItalian->setChecked(italian);
    m_ui->actionGerman->setChecked(german);
    m_ui->actionEnglish->setChecked(!italian && !german);
}

void MainWindow::setLanguage(const QString &code)
{
    Settings::language.store(m_settings, code);
    showLanguage(code);
    QCoreApplication::removeTranslator(&m_programTranslator);
    QCoreApplication::removeTranslator(&m_qtTranslator);
    loadTranslations(code, m_programTranslator, m_qtTranslator);
}

void MainWindow::showCopyrightChoice(bool on)
{
    m_ui->actionCopyrightYes->setChecked(on);
    m_ui->actionCopyrightNo->setChecked(!on);
}

bool MainWindow::isCopyrightAskOn() const
{
    return m_settings.value(Settings::copyrightAsk.key, m_copyrightAsk).toBool();
}

bool MainWindow::canStartRun() const
{
    return m_model != nullptr && !RunGuard::isActive();
}

/// False when the table could not be emptied or the program was asked to end.
bool MainWindow::readFileList(SongCounts &counts)
{
    const LibraryRun run(*this);
    LibraryImport import(m_database, *m_model, m_progress);
    if (!import.clearLibrary())
        return false;
    m_progress.begin(tr("Lettura file"), tr("Importo la libreria..."),
                     static_cast<int>(m_fileList.size()));
    // Laying the table out and painting it after each song would take most of the time.
    m_ui->userLibraryTableView->setUpdatesEnabled(false);
    counts = import.readFiles(m_fileList);
    m_ui->userLibraryTableView->setUpdatesEnabled(true);
    m_progress.end();
    m_statusLine->beginRun(RunReport::Operation::Import);
    m_statusLine->addReport(counts.report);
    return !RunGuard::endRequested();
}
