// The window's part in the transfer of the picked files to the player's memory.

#include "app/mainwindow.h"

#include "app/statusline.h"
#include "base/debugstream.h"
#include "base/filefailure.h"
#include "base/folderlock.h"
#include "base/memoryidentity.h"
#include "index/dialogs/rundialog.h"
#include "index/index.h"
#include "index/indexset.h"
#include "index/memoryreasons.h"
#include "index/volumes.h"
#include "library/dialogs/nocopyrightdialog.h"
#include "library/filecopier.h"
#include "library/foldertreebackup.h"
#include "library/transfer.h"
#include "library/workflowlog.h"

#include "ui_mainwindow.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace
{

/// Shows the run of an index in the window's progress dialog.
class IndexRun : public Run
{
public:
    IndexRun(RunProgress &progress, QWidget *window) : m_progress(progress), m_window(window) {}
    void setSteps(int steps) override { m_progress.setMaximum(steps); }
    void setStep(int done) override { m_progress.setStep(done); }
    void pulse() override { m_progress.paintInTime(); }

protected:
    Answer answerOf(Question /*question*/, const QString &path, const QString &message) override
    {
        return NoCopyrightDialog::ask(m_window, path, message);
    }

private:
    RunProgress &m_progress;
    QWidget *m_window;
};

} // namespace

void MainWindow::on_transferFilesToolButton_clicked()
{
    if (!canStartRun())
        return;
    const LibraryRun run(*this);
    m_ui->updateDataToolButton->setEnabled(false);
    m_ui->transferFilesToolButton->setEnabled(false);
    transferFiles();
    // Only this one: after a transfer, synchronisation needs a new import.
    m_ui->transferFilesToolButton->setEnabled(true);
}

bool MainWindow::transferFiles()
{
    const LibraryRun run(*this);
    const QString chosen =
        QFileDialog::getExistingDirectory(this, tr("Scegli cartella"), volumesStartFolder());
    if (chosen.isEmpty() || RunGuard::endRequested())
        return false;
    // Copying and indexing are one: nobody else works on the memory in between.
    const FolderLock lock(getRootDrivePath(chosen), FolderLock::Kind::Exclusive);
    if (lock.isBusy()) {
        m_statusLine->beginRun(RunReport::Operation::Transfer);
        note(RunReport::Step::Copy, getRoot(chosen), MemoryReason::inUse);
        QMessageBox::warning(this, tr("Trasferimento"), RunDialog::inUseText());
        return false;
    }
    QString destination;
    const TransferRefusal refusal = findTransferFolder(chosen, destination);
    if (refusal != TransferRefusal::None) {
        if (refusal == TransferRefusal::NoSongsFolder) {
            m_statusLine->beginRun(RunReport::Operation::Transfer);
            note(RunReport::Step::Copy, destination, whyUnwritable(destination, 1));
        }
        tellTransferRefusal(refusal);
        return false;
    }
    const bool done = sendPickedFiles(destination);
    m_progress.end();
    if (!RunGuard::endRequested()) {
        if (done)
            QMessageBox::information(this, tr("Trasferimento"),
                                     tr("Tutti i file sono stati copiati correttamente"));
        else
            tellTransferFailure();
    }
    debug() << "";
    return done;
}

void MainWindow::tellTransferFailure()
{
    QMessageBox box(QMessageBox::Critical, tr("Trasferimento"),
                    tr("Non è stato possibile copiare uno o più file"), QMessageBox::Ok, this);
    box.setInformativeText(m_shortage);
    box.exec();
}

void MainWindow::tellTransferRefusal(TransferRefusal refusal)
{
    QString text;
    switch (refusal) {
    case TransferRefusal::None:
        return;
    case TransferRefusal::SystemDisk:
        text = tr("Non è possibile copiare i file sul disco di sistema");
        break;
    case TransferRefusal::NoSongsFolder:
        text = tr("Non è possibile copiare i file sulla cartella principale, creare o selezionare "
                  "una sottocartella");
        break;
    case TransferRefusal::ReservedFolder:
        text = tr("Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perchè sono "
                  "riservate per funzionalità specifiche di Brisel, selezionare un'altra cartella");
        break;
    }
    QMessageBox::warning(this, tr("Trasferimento"), text);
}

bool MainWindow::sendPickedFiles(const QString &destination)
{
    logBanner("TRASFERIMENTO FILE");
    m_progress.begin(tr("Trasferimento"), tr("Trasferimento file..."),
                     static_cast<int>(m_fileList.size()));
    const MemoryIdentity memory(getRoot(destination));
    m_statusLine->beginRun(RunReport::Operation::Transfer);
    int copied = 0;
    // Room for the new index, too: songs without one are of no use.
    const bool allCopied = copyFiles(destination, copied, getRoot(destination));
    if (copied == 0)
        return allCopied;
    // A memory that was pulled may leave its mount folder behind, which is none.
    if (!memory.isThere()) {
        note(RunReport::Step::Index, getRoot(destination), MemoryReason::gone);
        return false;
    }
    // What did arrive is of no use to the player without the index.
    return updateBriselIndex(destination) && allCopied;
}

bool MainWindow::copyFiles(const QString &destDir, int &copied, const QString &memory)
{
    FileCopier copier(m_progress, [this](const QString &destination) {
        return askAboutFile(destination, tr("esiste già, vuoi sostituirlo?"));
    });
    copier.setSpaceDisplay(
        [this](const QString &folder, qint64 bytes) { m_statusLine->showSpace(folder, bytes); });
    if (!memory.isEmpty())
        copier.setMemory(memory, IndexSet::roomForUpdate(memory, m_fileList.size()));
    const bool done = copier.copyFiles(m_fileList, destDir, copied);
    m_shortage = copier.shortage();
    m_statusLine->hideSpace();
    m_statusLine->addReport(copier.report());
    return done;
}

bool MainWindow::updateBriselIndex(const QString &dest)
{
    const QString root = getRoot(dest);
    if (!QFileInfo::exists(root)) {
        note(RunReport::Step::Index, root, MemoryReason::gone);
        return false;
    }
    m_progress.begin(tr("Aggiornamento"), tr("Aggiornamento database..."), 0);
    IndexRun run(m_progress, this);
    Index index(run);
    const bool complete = index.updateIndex(root);
    m_progress.end();
    m_statusLine->addReport(run.report());
    if (!complete)
        note(RunReport::Step::Index, root, index.failure());
    return complete;
}

void MainWindow::note(RunReport::Step lack, const QString &path, Reason reason)
{
    RunReport report;
    report.add(lack, path, reason);
    m_statusLine->addReport(report);
}

bool MainWindow::backupDirectory(const QString &source, const QString &dest, int &count)
{
    const RunGuard guard;
    return FolderTreeBackup(m_progress).backupDirectory(source, dest, count);
}
