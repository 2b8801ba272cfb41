#include "app/helpdialog.h"

#include "base/settings.h"
#include "ui_helpdialog.h"

#include <QEvent>
#include <QFile>
#include <QSettings>

namespace brisel
{

namespace
{

QString helpPage(const QString &language)
{
    // German has a page, though the menu does not offer German.
    if (language == QStringLiteral("it") || language == QStringLiteral("de"))
        return QStringLiteral(":/help/help_%1.html").arg(language);
    return QStringLiteral(":/help/help_en.html");
}

} // namespace

HelpDialog::HelpDialog(QWidget *parent) : QDialog(parent), m_ui(std::make_unique<Ui::HelpDialog>())
{
    m_ui->setupUi(this);
    setWindowTitle(tr("Aiuto"));
    loadHelp();
}

HelpDialog::~HelpDialog() = default;

void HelpDialog::loadHelp()
{
    const QSettings settings = openSettings();
    QFile page(helpPage(Settings::language.in(settings)));
    if (page.open(QIODevice::ReadOnly))
        m_ui->textEdit->setHtml(QString::fromUtf8(page.readAll()));
}

void HelpDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    setWindowTitle(tr("Aiuto"));
    loadHelp();
}

} // namespace brisel
