#include "library/dialogs/nocopyrightdialog.h"

#include "ui_nocopyrightdialog.h"

#include <QEvent>

namespace brisel
{

NoCopyrightDialog::NoCopyrightDialog(QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::NoCopyrightDialog>())
{
    m_ui->setupUi(this);
}

NoCopyrightDialog::~NoCopyrightDialog() = default;

Run::Answer NoCopyrightDialog::ask(QWidget *parent, const QString &path, const QString &message,
                                   Run::Answer whenClosed)
{
    NoCopyrightDialog dialog(parent);
    dialog.setAnswerWhenClosed(whenClosed);
    dialog.setFilename(path);
    if (!message.isEmpty())
        dialog.setMessage(message);
    return static_cast<Run::Answer>(dialog.exec());
}

void NoCopyrightDialog::setFilename(const QString &fileName)
{
    m_fileName = fileName;
    showTexts();
}

void NoCopyrightDialog::setMessage(const QString &message)
{
    m_message = message;
    showTexts();
}

void NoCopyrightDialog::setYesNoOnly(bool on)
{
    m_ui->yesAllPushButton->setVisible(!on);
    m_ui->noAllPushButton->setVisible(!on);
}

void NoCopyrightDialog::setAnswerWhenClosed(Run::Answer answer)
{
    m_whenClosed = answer;
    QPushButton *button = answer == Run::Answer::Yes ? m_ui->yesPushButton : m_ui->noPushButton;
    button->setDefault(true);
    button->setFocus();
}

void NoCopyrightDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    showTexts();
}

void NoCopyrightDialog::showTexts()
{
    m_ui->fileNameLabel->setText(m_fileName);
    if (!m_message.isEmpty())
        m_ui->messageLabel->setText(m_message);
}

} // namespace brisel
