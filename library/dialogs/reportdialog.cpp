#include "library/dialogs/reportdialog.h"

#include "base/filefailure.h"
#include "base/filewriting.h"
#include "base/lastfolder.h"
#include "ui_reportdialog.h"

#include <QClipboard>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QStandardPaths>

namespace brisel
{

ReportDialog::ReportDialog(RunReport report, QWidget *parent)
    : QDialog(parent), m_report(std::move(report)), m_ui(std::make_unique<Ui::ReportDialog>())
{
    m_ui->setupUi(this);
    m_ui->reportText->setPlainText(m_report.text());
    m_ui->closePushButton->setFocus();
}

ReportDialog::ReportDialog(const QString &text, QWidget *parent) : ReportDialog(RunReport(), parent)
{
    m_text = text;
    m_ui->reportText->setPlainText(m_text);
}

ReportDialog::~ReportDialog() = default;

void ReportDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    m_ui->reportText->setPlainText(text());
}

void ReportDialog::on_copyPushButton_clicked()
{
    QGuiApplication::clipboard()->setText(text());
}

void ReportDialog::on_savePushButton_clicked()
{
    const QDir folder(startFolder(Settings::reportFolder, QStandardPaths::writableLocation(
                                                              QStandardPaths::DocumentsLocation)));
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Salva resoconto"), folder.filePath(tr("resoconto.txt")), tr("Testo (*.txt)"));
    if (path.isEmpty())
        return;
    keepFolder(Settings::reportFolder, QFileInfo(path).absolutePath());
    const QByteArray bytes = text().toUtf8();
    if (replaceFile(path, bytes))
        return;
    const QString reason = whyUnwritable(path, bytes.size()).text();
    QMessageBox::warning(this, tr("Salva resoconto"),
                         tr("Il resoconto non è stato salvato: %1").arg(reason));
}

} // namespace brisel
