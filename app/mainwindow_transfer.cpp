// The window's part in the transfer of songs to a memory.

#include "app/libraryrun.h"
#include "base/debugstream.h"
#include "base/lastfolder.h"
#include "index/dialogs/rundialog.h"
#include "index/memoryspeeds.h"
#include "index/recentmemories.h"
#include "index/volumes.h"
#include "library/dialogs/plainmessage.h"
#include "library/dialogs/transferplandialog.h"
#include "library/filecopier.h"
#include "library/transferplan.h"

#include "ui_mainwindow.h"

#include <QFileDialog>
#include <QMessageBox>

namespace brisel
{

using Operation = RunReport::Operation;

void MainWindow::on_actionTransferPlan_triggered(bool on)
{
    Settings::transferPlan.store(m_settings, on);
}

void MainWindow::on_transferFilesToolButton_clicked()
{
    if (!canStartRun())
        return;
    setPhase(Phase::Working);
    transferFiles();
    setPhase(Phase::Sendable);
}

bool MainWindow::transferFiles()
{
    LibraryRun run(*this, Operation::Transfer);
    const QString chosen = QFileDialog::getExistingDirectory(
        this, tr("Scegli cartella"),
        startMemory(Settings::transferFolder.in(m_settings), volumesStartFolder()));
    if (chosen.isEmpty() || Run::isEnding())
        return false;
    keepFolder(Settings::transferFolder, chosen);
    keepMemory(chosen);
    if (m_ui->actionTransferPlan->isChecked())
        return sendByPlan(run, chosen);
    Transfer transfer(m_fileList, chosen);
    return send(run, transfer, chosen);
}

bool MainWindow::transferByPlan(const QString &folder)
{
    if (!canStartRun() || m_fileList.isEmpty())
        return false;
    LibraryRun run(*this, Operation::Transfer);
    keepMemory(folder);
    return sendByPlan(run, folder);
}

bool MainWindow::sendByPlan(LibraryRun &run, const QString &chosen)
{
    TransferPlan plan(m_fileList, chosen);
    if (!makePlan(plan) || Run::isEnding())
        return false;
    TransferPlanDialog dialog(plan, memorySpeed(chosen), this);
    if (dialog.exec() != TransferPlanDialog::Accepted || Run::isEnding())
        return false;
    Transfer transfer(plan);
    return send(run, transfer, chosen);
}

/// Returns false, after a message, if there is no plan to show. An interruption needs none.
bool MainWindow::makePlan(TransferPlan &plan)
{
    WindowRun run(this, Operation::Transfer); // reports nothing: the last report stays
    const Transfer::Outcome outcome = plan.run(run);
    if (outcome == Transfer::Outcome::Failed && run.mayGoOn())
        QMessageBox::warning(this, tr("Trasferimento"), tr("La memoria non è più presente"));
    else if (outcome != Transfer::Outcome::Done && outcome != Transfer::Outcome::Failed)
        showOutcome(outcome, {});
    return outcome == Transfer::Outcome::Done;
}

bool MainWindow::send(LibraryRun &run, Transfer &transfer, const QString &chosen)
{
    const Transfer::Outcome outcome = transfer.run(run);
    keepMemorySpeed(chosen, transfer.speed());
    run.publish();
    if (!Run::isEnding())
        showOutcome(outcome, transfer.shortage());
    if (outcome == Transfer::Outcome::Done || outcome == Transfer::Outcome::Failed)
        debug() << "";
    setPhase(Phase::Sendable);
    return outcome == Transfer::Outcome::Done;
}

void MainWindow::showOutcome(Transfer::Outcome outcome, const QString &shortage)
{
    QMessageBox box(QMessageBox::Warning, tr("Trasferimento"), {}, QMessageBox::Ok, this);
    switch (outcome) {
    case Transfer::Outcome::Done:
        box.setIcon(QMessageBox::Information);
        box.setText(tr("Tutti i file sono stati copiati correttamente"));
        break;
    case Transfer::Outcome::Failed:
        box.setIcon(QMessageBox::Critical);
        box.setText(tr("Non è stato possibile copiare uno o più file"));
        setPlainTexts(box, shortage);
        break;
    case Transfer::Outcome::InUse:
        box.setText(RunDialog::inUseText());
        break;
    case Transfer::Outcome::SystemDisk:
        box.setText(tr("Non è possibile copiare i file sul disco di sistema"));
        break;
    case Transfer::Outcome::NoSongsFolder:
        box.setText(tr("Non è possibile copiare i file sulla cartella principale, creare o "
                       "selezionare una sottocartella"));
        break;
    case Transfer::Outcome::ReservedFolder:
        box.setText(tr("Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perchè sono "
                       "riservate per funzionalità specifiche di Brisel, selezionare un'altra "
                       "cartella"));
        break;
    }
    box.exec();
}

bool MainWindow::copyFiles(const QString &destDir, int &copied)
{
    LibraryRun run(*this, Operation::Transfer);
    FileCopier copier(run);
    const bool isDone = copier.copyFiles(m_fileList, destDir);
    copied = copier.copied();
    run.publish();
    return isDone;
}

bool MainWindow::updateBriselIndex(const QString &dest)
{
    LibraryRun run(*this, Operation::Index);
    const bool isComplete = Transfer::updateIndex(run, dest);
    run.publish();
    return isComplete;
}

} // namespace brisel
