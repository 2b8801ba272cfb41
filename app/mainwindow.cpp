#include "app/mainwindow.h"

#include "app/aboutdialog.h"
#include "app/columnfitting.h"
#include "app/columnlayout.h"
#include "app/compacthead.h"
#include "app/currentrowkeeper.h"
#include "app/helpdialog.h"
#include "app/mnemonics.h"
#include "app/outcomecolumn.h"
#include "app/songdrag.h"
#include "app/songfilter.h"
#include "app/songlistener.h"
#include "app/songtooltip.h"
#include "app/soundfontaction.h"
#include "app/startup.h"
#include "app/statusline.h"
#include "base/debugstream.h"
#include "db/usersongsreltablemodel.h"
#include "index/dialogs/indexdialog.h"
#include "index/dialogs/songslistdialog.h"
#include "library/dialogs/dataeditdialog.h"
#include "library/dialogs/emptytablehint.h"
#include "library/dialogs/windowplace.h"
#include "memory/dialogs/memorywindow.h"
#include "ui_mainwindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QToolButton>
#include <QWhatsThis>

namespace brisel
{

namespace
{

/// Shows a dialog in a separate window until it is closed. A no-op while a run is under way.
template <typename Dialog>
void runDialog()
{
    if (RunGuard::isActive())
        return;
    Dialog dialog;
    dialog.exec();
}

/// As above, for a dialog that works on a memory; \a line then shows its outcome.
template <typename Dialog>
void runMemoryDialog(StatusLine &line)
{
    if (RunGuard::isActive())
        return;
    Dialog dialog;
    dialog.exec();
    if (const auto report = dialog.report(); report.has_value())
        line.setReport(*report);
}

} // namespace

MainWindow::MainWindow() : m_ui(std::make_unique<Ui::MainWindow>()), m_settings(openSettings())
{
    m_ui->setupUi(this);
    setWindowTitle(tr("Brisel2 PC"));
    m_statusLine = new StatusLine(this); // after the form: it is last in the order of Tab
    m_ui->statusBar->addWidget(m_statusLine, 1);
    m_ui->actionGerman->setVisible(false);
    m_ui->actionItalian->setVisible(true);
    new CompactHead(
        *this, *m_ui->verticalLayout, {m_ui->logoBriselLabel, m_ui->logoKordiaLabel},
        {m_ui->selectDirToolButton, m_ui->updateDataToolButton, m_ui->transferFilesToolButton});
    m_ui->debugKordiaGroupBox->hide();
    m_ui->debugGroupBox->hide();
    makeActions();
    updateActions();
    showSettings();
    limitHistory();
    restorePlace(*this, m_settings, Settings::windowPlace);
    openLibrary();
    new Mnemonics(*m_ui->menuBar); // after whatever fills a menu
}

void MainWindow::openLibrary()
{
    if (!m_database.init()) {
        debug() << "Error initializing DB !!!";
        return;
    }
    debug() << "DB initialized correctly";
    connect(m_ui->userLibraryTableView, &QTableView::doubleClicked, this,
            &MainWindow::onSongsTableViewDoubleClicked);
    connect(m_ui->userLibraryTableView, &QTableView::customContextMenuRequested, this,
            &MainWindow::onSongsTableViewShowContextMenu);
    m_ui->userLibraryTableView->setContextMenuPolicy(Qt::CustomContextMenu);
    takeDrops();
    offerFolders();
    initUserLibraryModel();
    adjustUserLibraryHeaders();
    setPhase(Phase::NoFiles);
    qApp->installEventFilter(this);
}

MainWindow::~MainWindow()
{
    delete m_model; // before its database
}

void MainWindow::enableCopyrightMessage(bool on)
{
    m_copyrightAsk = on;
    Settings::copyrightAsk.store(m_settings, on);
    showCopyrightChoice(on);
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
    showWholeHeadings(*m_ui->userLibraryTableView);
    m_columns->fit();
    explainEmptyTable();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!RunGuard::isActive()) {
        if (m_memoryWindow != nullptr && !m_memoryWindow->close()) {
            event->ignore();
            return;
        }
        storeLayout();
        if (!isTableEmpty())
            m_lastList.keep(m_fileList);
        QMainWindow::closeEvent(event);
        return;
    }
    RunGuard::requestEnd();
    event->ignore();
}

/// Ctrl+Alt+D shows or hides the hidden options, the menu key opens the menu of the chosen rows;
/// all other events are passed on.
bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ContextMenu && watched == m_ui->userLibraryTableView &&
        static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Keyboard) {
        showMenuOfChosenRows();
        return true;
    }
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

void MainWindow::on_actionShowUnreadable_triggered(bool on)
{
    if (m_model == nullptr)
        return;
    m_model->showUnreadable(on);
    m_filter->applyToAll();
    explainEmptyTable();
    Settings::showUnreadable.store(m_settings, on);
}

void MainWindow::on_actionResetLayout_triggered()
{
    if (m_columns != nullptr)
        m_columns->reset();
}

void MainWindow::storeLayout()
{
    storePlace(*this, m_settings, Settings::windowPlace);
    if (m_columns != nullptr)
        m_columns->store(m_settings);
}

void MainWindow::on_dbgHidePushButton_clicked()
{
    m_ui->debugGroupBox->setVisible(m_ui->debugGroupBox->isHidden());
}

void MainWindow::showSettings()
{
    showLanguage(Settings::language.in(m_settings));
    showCopyrightChoice(isCopyrightAskOn());
    m_ui->actionTransferPlan->setChecked(Settings::transferPlan.in(m_settings));
    m_ui->dbgLogEnableCheckBox->setChecked(Settings::logEnabled.in(m_settings));
    m_ui->dbgLogClearCheckBox->setChecked(Settings::logClear.in(m_settings));
}

/// Each operation is an action, which buttons, keys and the context menu share. The keys are for
/// use without a mouse.
void MainWindow::makeActions()
{
    const auto join = [](QAction *action, QToolButton *button) {
        connect(action, &QAction::triggered, button, &QToolButton::click);
        connect(action, &QAction::enabledChanged, button, &QToolButton::setEnabled);
    };
    const auto addKeys = [this](QAction *action, const QList<QKeySequence> &keys) {
        action->setShortcuts(keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        action->setAutoRepeat(false);
        m_ui->userLibraryTableView->addAction(action);
    };
    join(m_ui->actionSelectSongs, m_ui->selectDirToolButton);
    join(m_ui->actionSynchronise, m_ui->updateDataToolButton);
    join(m_ui->actionTransfer, m_ui->transferFilesToolButton);
    for (QMenu *menu : m_ui->menuBar->findChildren<QMenu *>()) {
        for (QAction *action : menu->actions())
            action->setAutoRepeat(false);
    }
    connect(m_ui->previewToolButton, &QToolButton::clicked, m_ui->actionPreview, &QAction::trigger);
    connect(m_ui->actionPreview, &QAction::enabledChanged, m_ui->previewToolButton,
            &QToolButton::setEnabled);
    connect(m_ui->memoryToolButton, &QToolButton::clicked, m_ui->actionMemory, &QAction::trigger);
    addKeys(m_ui->actionEditSong, {Qt::Key_Return, Qt::Key_Enter});
    addKeys(m_ui->actionRemoveRow, {QKeySequence::Delete});
    addKeys(m_ui->actionDeleteFile, {Qt::SHIFT | Qt::Key_Delete});
    addKeys(m_ui->actionRestore, {Qt::CTRL | Qt::Key_R});
}

void MainWindow::updateActions()
{
    const bool hasFiles = m_phase == Phase::Imported || m_phase == Phase::Sendable;
    const bool hasLibrary = m_phase != Phase::NoLibrary;
    m_ui->searchLineEdit->setEnabled(hasLibrary);
    m_ui->menuRecentFolders->setEnabled(hasLibrary);
    for (QAction *action :
         {m_ui->actionSelectSongs, m_ui->actionAddSongs, m_ui->actionAddFolder,
          m_ui->actionRemoveRow, m_ui->actionDeleteFile, m_ui->actionRestore, m_ui->actionEditSong})
        action->setEnabled(hasLibrary);
    m_ui->actionLastList->setEnabled(isTableEmpty() && m_lastList.exists());
    m_ui->actionSynchronise->setEnabled(m_phase == Phase::Imported);
    m_ui->actionPreview->setEnabled(m_phase == Phase::Imported);
    m_ui->actionTransfer->setEnabled(hasFiles && !m_fileList.isEmpty());
}

void MainWindow::setPhase(Phase phase)
{
    m_phase = phase;
    updateActions();
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
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setShowGrid(true);
    view->verticalHeader()->hide();
    view->setAlternatingRowColors(false);
    view->setModel(m_model);
    m_statusLine->setModel(m_model);
    view->hideColumn(m_model->colIdxFilename());
    view->hideColumn(m_model->colIdxStatus());
    view->hideColumn(0);
    view->horizontalHeader()->setSectionsMovable(true);
    m_columns = new ColumnLayout(*view, *m_model, *m_ui->menuView);
    m_columns->restore(m_settings);
    m_model->showUnreadable(Settings::showUnreadable.in(m_settings));
    m_ui->actionShowUnreadable->setChecked(m_model->isShowingUnreadable());
    m_hint = new EmptyTableHint(*view);
    m_hint->offer(*m_ui->actionLastList);
    m_filter = new SongFilter(*m_ui->searchLineEdit, *view, *m_model);
    connect(m_filter, &SongFilter::changed, this, &MainWindow::explainEmptyTable);
    m_filter->connectTo(m_statusLine->outcomes());
    new OutcomeColumn(*view, *m_model);
    m_listener = new SongListener(*view, *m_model, m_settings, *m_ui->verticalLayout);
    m_ui->menuPreferences->addAction(new SoundFontAction(*this, m_settings));
    new SongToolTip(*view, *m_model);
    new SongDrag(*view);
    new CurrentRowKeeper(*view); // after the filter: it scrolls to a row that is shown
    explainEmptyTable();
}

void MainWindow::on_searchHelpToolButton_clicked()
{
    QToolButton *button = m_ui->searchHelpToolButton;
    button->setWhatsThis(
        tr("<p>Le parole si cercano nel titolo, nell'artista, nel genere, nell'autore, nel nome "
           "del "
           "file e della cartella e nello stato. Con il nome di un campo:</p>"
           "<p><b>genere:rock</b> contiene<br><b>artista=anna</b> è uguale<br>"
           "<b>bpm&gt;120</b> &nbsp; <b>bpm&lt;=90</b> &nbsp; <b>durata&lt;3:30</b><br>"
           "<b>senza:artista</b> è vuoto<br><b>cartella:&quot;liscio lento&quot;</b> con spazi</p>"
           "<p>Campi: titolo, artista, genere, autore, file, cartella, formato, tonalita, stato, "
           "bpm, durata. Dove manca un numero (bpm&gt;abc), o il campo dopo <b>senza:</b> non "
           "esiste, si cerca il testo come parola. Esc mostra di nuovo tutto.</p>"));
    QWhatsThis::showText(button->mapToGlobal(button->rect().bottomLeft()), button->whatsThis(),
                         button);
}

void MainWindow::explainEmptyTable()
{
    m_ui->searchCountLabel->setText(m_filter->countText());
    if (m_model->rowCount() == 0)
        m_hint->showText(
            tr("Nessun brano nella tabella.\nPer cominciare premi il pulsante qui sopra, "
               "oppure trascina qui file o cartelle."));
    else
        m_hint->showText(m_filter->hidesAll() ? tr("Nessun brano corrisponde alla ricerca")
                                              : QString());
}

void MainWindow::adjustUserLibraryHeaders()
{
    m_columns->fit();
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
    removeStartTranslations(); // Qt has no English texts that would take precedence
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

} // namespace brisel
