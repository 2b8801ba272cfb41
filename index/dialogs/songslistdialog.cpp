#include "index/dialogs/songslistdialog.h"

#include "index/index.h"
#include "index/memoryreasons.h"
#include "index/recentmemories.h"
#include "index/volumes.h"
#include "library/dialogs/wheelguard.h"
#include "ui_songslistdialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace brisel
{

SongsListDialog::SongsListDialog(QWidget *parent)
    : RunDialog(parent), m_ui(std::make_unique<Ui::SongsListDialog>())
{
    m_ui->setupUi(this);
    new WheelGuard(*this);
    m_ui->lineEditPath->setText(mediaRoot());
    offerMemories(*m_ui->lineEditPath);
    m_ui->lineEditFile->setText(QStringLiteral("SongsList.csv"));
    connect(m_ui->pushButtonBrowseDir, &QPushButton::clicked, this, &SongsListDialog::browseDir);
    connect(m_ui->pushButtonBrowseFile, &QPushButton::clicked, this, &SongsListDialog::browseFile);
    connect(m_ui->pushButtonStart, &QPushButton::clicked, this, &SongsListDialog::start);
}

SongsListDialog::~SongsListDialog() = default;

void SongsListDialog::browseDir()
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Scegli cartella"), startMemory(mediaRoot(), volumesStartFolder()));
    if (folder.isEmpty())
        return;
    m_ui->lineEditPath->setText(folder);
    setMediaRoot(folder);
}

void SongsListDialog::browseFile()
{
    const QString fileName = QFileDialog::getSaveFileName(
        this, tr("Scegli nome del file"), m_ui->lineEditFile->text(), tr("File (*.csv)"));
    if (!fileName.isEmpty())
        m_ui->lineEditFile->setText(fileName);
}

void SongsListDialog::start()
{
    if (!canStart())
        return;
    const QString title = tr("Salva lista song");
    if (!QFileInfo(m_ui->lineEditPath->text()).isDir()) {
        QMessageBox::warning(this, title, tr("Il percorso selezionato non esiste"));
        return;
    }
    if (!QFileInfo(QFileInfo(QDir(), m_ui->lineEditFile->text()).absolutePath()).isDir()) {
        QMessageBox::warning(this, title, tr("Il percorso di destinazione non esiste"));
        return;
    }
    showOutcome(this, save());
}

SongsListDialog::Outcome SongsListDialog::save()
{
    Work run(*this);
    Index index(run);
    connect(&index, &Index::progressMaxSetup, this, &SongsListDialog::initProgress);
    connect(&index, &Index::progressValueChanged, this, &SongsListDialog::setProgressValue);
    setControlsEnabled(false);
    const int result =
        index.saveSongsList(m_ui->lineEditPath->text(), m_ui->lineEditFile->text(),
                            static_cast<SORT_MODE>(m_ui->comboBoxSort->currentIndex()));
    setControlsEnabled(true);
    m_ui->pushButtonClose->setFocus();
    m_report.emplace(RunReport::Operation::SongsList);
    return outcomeOf(index, result, m_ui->lineEditPath->text(), m_ui->lineEditFile->text(),
                     *m_report);
}

SongsListDialog::Outcome SongsListDialog::outcomeOf(const Index &index, int result,
                                                    const QString &memory, const QString &file,
                                                    RunReport &report)
{
    if (Run::isEnding())
        return Outcome::Ended;
    if (result > 0)
        return Outcome::Saved;
    const bool isBusy = index.failure() == MemoryReason::inUse;
    report.add(RunReport::Step::Save, isBusy ? memory : file, index.failure());
    if (isBusy)
        return Outcome::InUse;
    return result == 0 ? Outcome::Failed : Outcome::NotPrepared;
}

void SongsListDialog::showOutcome(QWidget *parent, Outcome outcome)
{
    const QString title = tr("Salva lista song");
    switch (outcome) {
    case Outcome::Saved:
        QMessageBox::information(parent, title, tr("Operazione completata"));
        break;
    case Outcome::Failed:
        QMessageBox::warning(parent, title, tr("Errore durante la creazione del file"));
        break;
    case Outcome::InUse:
        QMessageBox::warning(parent, title, inUseText());
        break;
    case Outcome::NotPrepared:
        QMessageBox::warning(parent, title,
                             tr("Impossibile proseguire, la memoria non è preparata per Brisel"));
        break;
    case Outcome::Ended:
        break;
    }
}

void SongsListDialog::initProgress(int maximum)
{
    beginStage();
    m_ui->progressBar->setRange(0, maximum);
    setProgressValue(0);
}

void SongsListDialog::setProgressValue(int value)
{
    m_progress = value;
    showStep();
}

void SongsListDialog::showState()
{
    showProgress(*m_ui->progressBar, m_progress);
}

void SongsListDialog::changeEvent(QEvent *event)
{
    RunDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_ui->retranslateUi(this);
}

void SongsListDialog::setControlsEnabled(bool enabled)
{
    const QList<QWidget *> controls{m_ui->lineEditPath,   m_ui->pushButtonBrowseDir,
                                    m_ui->lineEditFile,   m_ui->pushButtonBrowseFile,
                                    m_ui->comboBoxSort,   m_ui->pushButtonStart,
                                    m_ui->pushButtonClose};
    for (QWidget *control : controls)
        control->setEnabled(enabled);
}

} // namespace brisel
