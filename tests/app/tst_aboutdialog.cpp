#include "app/aboutdialog.h"
#include "app/startup.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>
#include <QTranslator>

#include <memory>

using namespace brisel;

class TestAboutDialog : public QObject
{
    Q_OBJECT

private slots:
    void parsesDaysPaddedWithABlank();
    void findsNoDateInAnyOtherText();
    void showsProductVersionAndDate();
    void showsTheDayOfTheBuildAsTheSystemWritesIt();
    void takesTheDayOfTheBuildFromTheCompiler();
    void showsContactLineAsRichText();
    void setsItsTextsInTheirFonts();
    void keepsTextsOnLanguageChange();
    void closesByButtonAndEscape();
};

namespace
{

std::unique_ptr<QTextDocument> shownPage(const QDialog &dialog, const char *name)
{
    auto page = std::make_unique<QTextDocument>();
    page->setHtml(dialog.findChild<QLabel *>(QLatin1StringView(name))->text());
    return page;
}

QString shownText(const QDialog &dialog, const char *name)
{
    return shownPage(dialog, name)->toPlainText();
}

/// The font of the last letter.
QFont shownFont(const QDialog &dialog, const char *name)
{
    const std::unique_ptr<QTextDocument> page = shownPage(dialog, name);
    QTextCursor cursor(page.get());
    cursor.movePosition(QTextCursor::End);
    return cursor.charFormat().font();
}

/// Translates the window's title, and the version text with other words around its placeholders.
class EnglishTexts : public QTranslator
{
public:
    QString translate(const char *, const char *source, const char *, int) const override
    {
        if (qstrcmp(source, "Informazioni") == 0)
            return QStringLiteral("About");
        if (qstrncmp(source, "Version:", 8) == 0)
            return QStringLiteral("Edition %1<br/>Made on %2<br/>");
        return {};
    }
    bool isEmpty() const override { return false; }
};

} // namespace

void TestAboutDialog::parsesDaysPaddedWithABlank()
{
    QCOMPARE(AboutDialog::dateOfStamp(QStringLiteral("Dec  3 2013")), QDate(2013, 12, 3));
    QCOMPARE(AboutDialog::dateOfStamp(QStringLiteral("Feb 28 2025")), QDate(2025, 2, 28));
    QLocale::setDefault(QLocale(QLocale::Italian));
    QCOMPARE(AboutDialog::dateOfStamp(QStringLiteral("May  1 2024")), QDate(2024, 5, 1));
    QLocale::setDefault(QLocale::system());
}

void TestAboutDialog::findsNoDateInAnyOtherText()
{
    QVERIFY(!AboutDialog::dateOfStamp(QString()).isValid());
    QVERIFY(!AboutDialog::dateOfStamp(QStringLiteral("??? ?? ????")).isValid());
    QVERIFY(!AboutDialog::dateOfStamp(QStringLiteral("Feb 30 2025")).isValid());
}

void TestAboutDialog::showsProductVersionAndDate()
{
    const AboutDialog dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Informazioni"));
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("label"))->text(),
             QStringLiteral("Brisel2 PC"));
    const QString version = shownText(dialog, "versionLabel");
    QVERIFY2(version.startsWith(QStringLiteral("Version:")), qPrintable(version));
    const QString firstLine = version.section(u'\n', 0, 0);
    QVERIFY2(firstLine.endsWith(QStringLiteral(" 2.0")), qPrintable(firstLine));
    QVERIFY(dialog.findChild<QLabel *>(QStringLiteral("logoLabel"))
                ->styleSheet()
                .contains(QStringLiteral(":/imgs/logo-kordia_512.png")));
}

void TestAboutDialog::showsTheDayOfTheBuildAsTheSystemWritesIt()
{
    QLocale::setDefault(QLocale(QLocale::Italian));
    const AboutDialog dialog;
    QLocale::setDefault(QLocale::system());
    const QDate day = AboutDialog::dateOfStamp(buildDate());
    QVERIFY(day.isValid());
    const QString text = QLocale::system().toString(day, QLocale::ShortFormat);
    QVERIFY(text != QLocale(QLocale::Italian).toString(day, QLocale::ShortFormat));
    QCOMPARE(shownText(dialog, "versionLabel").section(u'\n', 1, 1),
             QStringLiteral("Build date: ") + text);
}

/// The source was compiled after its last change, and before it was linked into this program. One
/// day of tolerance allows for a build in another time zone.
void TestAboutDialog::takesTheDayOfTheBuildFromTheCompiler()
{
    const QFileInfo source(QStringLiteral(BRISEL_TREE "/app/startup.cpp"));
    const QFileInfo program(QCoreApplication::applicationFilePath());
    QVERIFY(source.exists() && program.exists());
    const QDate day = AboutDialog::dateOfStamp(buildDate());
    QVERIFY2(day >= source.lastModified().date().addDays(-1), qPrintable(buildDate()));
    QVERIFY2(day <= program.lastModified().date().addDays(1), qPrintable(buildDate()));
}

void TestAboutDialog::showsContactLineAsRichText()
{
    const AboutDialog dialog;
    auto *label = dialog.findChild<QLabel *>(QStringLiteral("infoLabel"));
    QCOMPARE(label->textFormat(), Qt::RichText);
    QVERIFY(label->text().contains(QStringLiteral("font-size:10pt")));
    QVERIFY(shownText(dialog, "infoLabel").startsWith(QStringLiteral("Kordia")));
}

void TestAboutDialog::setsItsTextsInTheirFonts()
{
    const AboutDialog dialog;
    const QFont product = dialog.findChild<QLabel *>(QStringLiteral("label"))->font();
    QCOMPARE(product.pointSize(), 20);
    QVERIFY(product.bold());
    const QFont version = shownFont(dialog, "versionLabel");
    QCOMPARE(version.families(), QStringList(QStringLiteral("Sans Serif")));
    QCOMPARE(version.pointSize(), 12);
    QCOMPARE(shownFont(dialog, "infoLabel").pointSize(), 10);
}

void TestAboutDialog::keepsTextsOnLanguageChange()
{
    AboutDialog dialog;
    EnglishTexts english;
    QCoreApplication::installTranslator(&english);
    QCoreApplication::processEvents();
    QCOMPARE(dialog.windowTitle(), QStringLiteral("About"));
    QVERIFY(shownText(dialog, "versionLabel").startsWith(QStringLiteral("Edition 2.0")));
    QVERIFY(!shownText(dialog, "infoLabel").isEmpty());
    QCoreApplication::removeTranslator(&english);
    QCoreApplication::processEvents();
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Informazioni"));
    QVERIFY(shownText(dialog, "versionLabel").startsWith(QStringLiteral("Version:")));
}

void TestAboutDialog::closesByButtonAndEscape()
{
    AboutDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto *buttons = dialog.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
    QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

BRISEL_TEST(QApplication, TestAboutDialog)
#include "tst_aboutdialog.moc"
