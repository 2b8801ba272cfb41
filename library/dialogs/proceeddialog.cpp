#include "library/dialogs/proceeddialog.h"

#include "ui_proceeddialog.h"

#include <QEvent>

namespace brisel
{

ProceedDialog::ProceedDialog(QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::ProceedDialog>())
{
    m_ui->setupUi(this);
    m_ui->yesPushButton->setFocus();
    showSummary();
}

ProceedDialog::~ProceedDialog() = default;

void ProceedDialog::setFilesCount(int songs, int publisherSongs, int unknown)
{
    m_songs = songs;
    m_publisherSongs = publisherSongs;
    m_unknown = unknown;
    showSummary();
}

bool ProceedDialog::getShowAgainValue() const
{
    return !m_ui->dontShowCheckBox->isChecked();
}

void ProceedDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    showSummary();
}

void ProceedDialog::showSummary()
{
    // "esaminti" is the original spelling.
    m_ui->summaryLabel->setText(
        tr("Sono stati esaminti %1 files, trovate %2 songs di cui %3 di (c)Kordia")
            .arg(m_songs + m_unknown)
            .arg(m_songs)
            .arg(m_publisherSongs));
}

} // namespace brisel
