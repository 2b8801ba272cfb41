#include "index/dialogs/indexdialog.h"

#include "index/index.h"
#include "index/memorycheck.h"
#include "index/memoryreasons.h"
#include "index/recentmemories.h"
#include "index/volumes.h"
#include "ui_indexdialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMouseEvent>

namespace brisel
{

namespace
{

/// Shift, without other modifiers, selects the typed folder itself.
bool meansDriveRoot(Qt::KeyboardModifiers modifiers)
{
    return modifiers != Qt::ShiftModifier;
}

} // namespace

IndexDialog::IndexDialog(QWidget *parent)
    : RunDialog(parent), m_ui(std::make_unique<Ui::IndexDialog>())
{
    m_ui->setupUi(this);
    m_ui->lineEditPath->setText(mediaRoot());
    offerMemories(*m_ui->lineEditPath);
    m_ui->checkBoxChkdsk->setChecked(false);
    updateLabelNum(0);
    connect(m_ui->pushButtonBrowse, &QPushButton::clicked, this, &IndexDialog::browseDir);
    m_ui->pushButtonStart->installEventFilter(this);
    // The mouse starts a run when it is pressed, and the filter drops that event: only keys cause
    // clicks.
    connect(m_ui->pushButtonStart, &QPushButton::clicked, this,
            [this] { start(meansDriveRoot(QGuiApplication::keyboardModifiers())); });
}

IndexDialog::~IndexDialog() = default;

QString IndexDialog::getRootDrivePath(const QString &path)
{
    return brisel::getRootDrivePath(path);
}

bool IndexDialog::checkDisk(const QString &)
{
    return false;
}

void IndexDialog::browseDir()
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Scegli cartella"), startMemory(mediaRoot(), QStringLiteral("/home")));
    if (folder.isEmpty())
        return;
    m_ui->lineEditPath->setText(folder);
    setMediaRoot(folder);
}

void IndexDialog::start(bool toDriveRoot)
{
    if (!canStart())
        return;
    QString folder = m_ui->lineEditPath->text();
    if (toDriveRoot)
        folder = getRootDrivePath(folder);
    if (folder.isEmpty() || !QFileInfo::exists(folder)) {
        QMessageBox::warning(this, tr("Ottimizza memoria"),
                             tr("Il percorso selezionato non esiste"));
        return;
    }
    m_ui->pushButtonStart->setEnabled(false);
    m_ui->pushButtonClose->setEnabled(false);
    if (folder.endsWith(u'/') || folder.endsWith(u'\\'))
        folder.chop(1);
    const Outcome outcome = runIndex(folder);
    if (m_errors == 0 && (outcome == Outcome::Failed || outcome == Outcome::InUse))
        initProgress(100);
    showOutcome(this, outcome, m_errors);
    // Files that are wrong right after they were written point to a broken memory.
    if (m_uncorrectable && outcome != Outcome::Ended) {
        // "necesario" is the old spelling; translations depend on it.
        QMessageBox::warning(this, tr("ATTENZIONE"),
                             tr("Non è stato possibile correggere gli errori, è necesario "
                                "formattare la memoria"));
    }
    m_ui->plainTextReport->appendPlainText(tr("Operazione completata"));
    m_ui->pushButtonStart->setEnabled(true);
    m_ui->pushButtonClose->setEnabled(true);
    m_ui->pushButtonClose->setFocus();
}

IndexDialog::Outcome IndexDialog::runIndex(const QString &folder)
{
    Work run(*this);
    updateLabelNum(0);
    initProgress(0);
    clearIndexErrors();
    m_report.emplace(RunReport::Operation::Index);
    m_ui->plainTextReport->appendPlainText(tr("Ottimizzazione memoria in corso..."));
    showStep();

    Index index(run);
    connect(&index, &Index::fileFoundChanged, this, &IndexDialog::updateLabelNum);
    connect(&index, &Index::progressMaxSetup, this, &IndexDialog::initProgress);
    connect(&index, &Index::progressValueChanged, this, &IndexDialog::setProgressValue);
    connect(&index, &Index::currentPathChanged, this, &IndexDialog::updateLabelCurrPath);
    connect(&index, &Index::errorFromIndex, this, &IndexDialog::errorFromIndexReceived);
    connect(&index, &Index::noticeFromIndex, this, &IndexDialog::noticeFromIndexReceived);
    bool done = false;
    if (m_ui->radioButtonUpdate->isChecked())
        done = index.updateIndex(folder);
    else if (m_ui->radioButtonRebuild->isChecked())
        done = index.createIndex(folder);
    if (m_ui->checkBoxChkdsk->isChecked() && !run.isEnding()) {
        if (done)
            checkMemory(folder, run);
        else
            m_ui->plainTextReport->appendPlainText(tr("Controllo memoria non eseguito!"));
    }
    const QStringList unnamed = m_report->rest();
    for (const QString &line : unnamed)
        m_ui->plainTextReport->appendPlainText(line);
    if (run.isEnding())
        return Outcome::Ended;
    if (done)
        return Outcome::Done;
    m_report->add(RunReport::Step::Index, folder, index.failure());
    return index.failure() == MemoryReason::inUse ? Outcome::InUse : Outcome::Failed;
}

/// Checks the memory \a folder after the run. Findings count as errors of the run.
void IndexDialog::checkMemory(const QString &folder, Run &run)
{
    m_ui->plainTextReport->appendPlainText(tr("Controllo memoria"));
    MemoryCheck check(run);
    connect(&check, &MemoryCheck::progressMaxSetup, this, &IndexDialog::initProgress);
    connect(&check, &MemoryCheck::progressValueChanged, this, &IndexDialog::setProgressValue);
    connect(&check, &MemoryCheck::currentPathChanged, this, &IndexDialog::updateLabelCurrPath);
    const bool done = check.run(folder);
    if (run.isEnding())
        return;
    QStringList findings = check.findings();
    if (!done)
        findings.prepend(tr("Controllo memoria non eseguito!"));
    else if (findings.isEmpty())
        m_ui->plainTextReport->appendPlainText(tr("Nessun errore trovato"));
    for (const QString &finding : std::as_const(findings))
        errorFromIndexReceived(finding);
    m_uncorrectable = check.hasDamage() && m_ui->radioButtonRebuild->isChecked();
}

void IndexDialog::showOutcome(QWidget *parent, Outcome outcome, int errors)
{
    const QString title = tr("Ottimizza memoria");
    if (outcome == Outcome::Ended)
        return;
    if (errors > 0) {
        QMessageBox::critical(parent, title,
                              tr("Durante l'operazione si sono verificati alcuni errori.\n"
                                 "Consultare il report per maggiori informazioni."));
    } else if (outcome == Outcome::Done) {
        QMessageBox::information(parent, title, tr("Operazione completata con successo"));
    } else if (outcome == Outcome::InUse) {
        QMessageBox::critical(parent, title, inUseText());
    } else {
        QMessageBox::critical(parent, title,
                              tr("Operazione non riuscita.\nAssicurarsi che il disco abbia "
                                 "sufficiente spazio libero e che non sia protetto da scrittura."));
    }
}

void IndexDialog::updateLabelNum(int count)
{
    m_found = count;
    showStep();
}

void IndexDialog::updateLabelCurrPath(const QString &path)
{
    m_currentPath = path;
    showStep();
}

void IndexDialog::initProgress(int maximum)
{
    beginStage();
    m_ui->progressBar->setRange(0, maximum);
    setProgressValue(0);
}

void IndexDialog::setProgressValue(int value)
{
    m_progress = value;
    showStep();
}

void IndexDialog::errorFromIndexReceived(const QString &message)
{
    if (!m_report.has_value() || m_report->addMessage(message))
        m_ui->plainTextReport->appendPlainText(message);
    ++m_errors;
    showStep();
}

void IndexDialog::noticeFromIndexReceived(const QString &message)
{
    if (!m_report.has_value() || m_report->addNotice(message))
        m_ui->plainTextReport->appendPlainText(message);
    showStep();
}

void IndexDialog::clearIndexErrors()
{
    m_ui->plainTextReport->clear();
    m_errors = 0;
    m_uncorrectable = false;
}

void IndexDialog::showState()
{
    m_ui->labelFileFound->setText(QStringLiteral("%1").arg(m_found));
    showProgress(*m_ui->progressBar, m_progress);
    showCurrentPath();
}

void IndexDialog::changeEvent(QEvent *event)
{
    RunDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_ui->retranslateUi(this);
}

void IndexDialog::resizeEvent(QResizeEvent *event)
{
    RunDialog::resizeEvent(event);
    showCurrentPath();
}

/// Starts at the press of the mouse, not at its release. Presses reach a filter also while the
/// button is disabled.
bool IndexDialog::eventFilter(QObject *watched, QEvent *event)
{
    const bool isPress = event->type() == QEvent::MouseButtonPress;
    if (watched != m_ui->pushButtonStart || !m_ui->pushButtonStart->isEnabled() ||
        (!isPress && event->type() != QEvent::MouseButtonDblClick))
        return RunDialog::eventFilter(watched, event);
    const auto *mouse = static_cast<QMouseEvent *>(event);
    if (mouse->button() != Qt::LeftButton)
        return RunDialog::eventFilter(watched, event);
    if (isPress)
        start(meansDriveRoot(mouse->modifiers()));
    return true;
}

void IndexDialog::showCurrentPath()
{
    QString line = m_currentPath;
    line.replace(u'\n', u' ').replace(u'\r', u' ');
    QLabel *label = m_ui->labelCurrPath;
    label->setText(label->fontMetrics().elidedText(line, Qt::ElideMiddle, label->width()));
}

} // namespace brisel
