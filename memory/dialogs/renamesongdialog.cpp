#include "memory/dialogs/renamesongdialog.h"

#include "memory/songrename.h"
#include "ui_renamesongdialog.h"

#include <QEvent>

namespace brisel
{

RenameSongDialog::RenameSongDialog(const SongRename &rename, QWidget *parent)
    : QDialog(parent), m_rename(rename), m_ui(std::make_unique<Ui::RenameSongDialog>())
{
    m_ui->setupUi(this);
    m_ui->suffixLabel->setText(rename.suffix());
    m_ui->nameLineEdit->setText(rename.base());
    m_ui->nameLineEdit->selectAll();
    showProblem();
}

RenameSongDialog::~RenameSongDialog() = default;

/// Some systems type a letter and its accent apart, which the code page does not have.
QString RenameSongDialog::base() const
{
    return m_ui->nameLineEdit->text().normalized(QString::NormalizationForm_C);
}

/// The name that the song has is not possible, either, but that needs no explanation.
void RenameSongDialog::showProblem()
{
    const QString problem = m_rename.problem(base());
    m_ui->renamePushButton->setEnabled(problem.isEmpty());
    m_ui->problemLabel->setText(base() == m_rename.base() ? QString() : problem);
    m_ui->nameLineEdit->setAccessibleDescription(m_ui->problemLabel->text());
}

void RenameSongDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    showProblem();
}

} // namespace brisel
