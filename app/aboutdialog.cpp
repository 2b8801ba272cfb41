#include "app/aboutdialog.h"

#include "app/startup.h"
#include "ui_aboutdialog.h"

#include <QEvent>
#include <QLocale>

namespace brisel
{

namespace
{

/// \a html as a rich text page in the labels' own font.
QString richText(const QString &html, int points)
{
    return QStringLiteral("<html><head><meta name=\"qrichtext\" content=\"1\" />"
                          "<style type=\"text/css\">p, li { white-space: pre-wrap; }</style></head>"
                          "<body style=\"font-family:'Sans Serif'; font-size:%1pt;\">"
                          "<p style=\"margin:0px;\">%2</p></body></html>")
        .arg(QString::number(points), html);
}

} // namespace

AboutDialog::AboutDialog(QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::AboutDialog>())
{
    m_ui->setupUi(this);
    showTexts();
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

AboutDialog::~AboutDialog() = default;

QDate AboutDialog::dateOfStamp(const QString &stamp)
{
    // Days below 10 are padded with a blank, which the pattern does not take.
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    return english.toDate(stamp.simplified(), QStringLiteral("MMM d yyyy"));
}

void AboutDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    showTexts();
}

void AboutDialog::showTexts()
{
    const QDate date = dateOfStamp(buildDate());
    const QString dateText = QLocale::system().toString(date, QLocale::ShortFormat);
    setWindowTitle(tr("Informazioni"));
    m_ui->versionLabel->setText(
        richText(tr("Version:&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp; %1<br/>Build date: %2<br/>")
                     .arg(programVersion(), dateText),
                 12));
    m_ui->infoLabel->setText(richText(
        tr("<b>Kordia</b><br/>Per informazioni e assistenza rivolgersi al servizio clienti Kordia "
           "o al proprio rivenditore."),
        10));
}

} // namespace brisel
