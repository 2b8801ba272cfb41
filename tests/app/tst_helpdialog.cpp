#include "app/helpdialog.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSettings>
#include <QTest>
#include <QTextBrowser>
#include <QTextTable>
#include <QTranslator>

using namespace brisel;

class TestHelpDialog : public QObject
{
    Q_OBJECT

private slots:
    void choosesPageByLanguage_data();
    void choosesPageByLanguage();
    void showsItalianWithoutSetting();
    void setsTitle();
    void loadsPageAndTitleAgainOnLanguageChange();
    void keepsViewWhenPageIsMissing();
    void jumpsFromContentsToChapter();
    void closesByButtonAndEscape();
    void hasTheSameChaptersInEveryLanguage();
    void linksOnlyToItsOwnChaptersAndPictures_data();
    void linksOnlyToItsOwnChaptersAndPictures();
    void readsAsUtf8_data();
    void readsAsUtf8();
    void explainsWhatMustBeKnown_data();
    void explainsWhatMustBeKnown();
};

namespace
{

void setLanguage(const QString &code)
{
    QSettings settings(QStringLiteral("kordia"), QStringLiteral("brisel2pc"));
    settings.setValue(QStringLiteral("language"), code);
}

QTextEdit *view(const QDialog &dialog)
{
    return dialog.findChild<QTextEdit *>(QStringLiteral("textEdit"));
}

QString heading(const QDialog &dialog)
{
    return view(dialog)->document()->firstBlock().text();
}

QString pageSource(const QString &language)
{
    QFile page(QStringLiteral(":/help/help_%1.html").arg(language));
    return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
}

QStringList captures(const QString &text, const QString &pattern)
{
    QStringList found;
    QRegularExpressionMatchIterator matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured(1));
    return found;
}

void addLanguages()
{
    QTest::addColumn<QString>("language");
    for (const char *code : {"it", "en", "de"})
        QTest::newRow(code) << QString::fromLatin1(code);
}

class EnglishTitle : public QTranslator
{
public:
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return qstrcmp(source, "Aiuto") == 0 ? QStringLiteral("Help for Brisel2 PC") : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

void TestHelpDialog::choosesPageByLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("title");
    QTest::newRow("it") << QStringLiteral("it") << QStringLiteral("Brisel2 PC: guida all'uso");
    QTest::newRow("en") << QStringLiteral("en") << QStringLiteral("Brisel2 PC: user guide");
    QTest::newRow("de") << QStringLiteral("de") << QStringLiteral("Brisel2 PC: Benutzerhandbuch");
    QTest::newRow("fr") << QStringLiteral("fr") << QStringLiteral("Brisel2 PC: user guide");
    QTest::newRow("IT") << QStringLiteral("IT") << QStringLiteral("Brisel2 PC: user guide");
}

void TestHelpDialog::choosesPageByLanguage()
{
    QFETCH(QString, language);
    QFETCH(QString, title);
    setLanguage(language);
    const HelpDialog dialog;
    QCOMPARE(heading(dialog), title);
    QVERIFY(view(dialog)->isReadOnly());
}

void TestHelpDialog::showsItalianWithoutSetting()
{
    QSettings(QStringLiteral("kordia"), QStringLiteral("brisel2pc")).clear();
    const HelpDialog dialog;
    QCOMPARE(heading(dialog), QStringLiteral("Brisel2 PC: guida all'uso"));
}

void TestHelpDialog::setsTitle()
{
    const HelpDialog dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Aiuto"));
}

void TestHelpDialog::loadsPageAndTitleAgainOnLanguageChange()
{
    setLanguage(QStringLiteral("it"));
    HelpDialog dialog;
    setLanguage(QStringLiteral("en"));
    QCOMPARE(heading(dialog), QStringLiteral("Brisel2 PC: guida all'uso"));
    EnglishTitle english;
    QCoreApplication::installTranslator(&english);
    QCoreApplication::processEvents();
    QCOMPARE(heading(dialog), QStringLiteral("Brisel2 PC: user guide"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Help for Brisel2 PC"));
    QCoreApplication::removeTranslator(&english);
    QCoreApplication::processEvents();
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Aiuto"));
}

void TestHelpDialog::keepsViewWhenPageIsMissing()
{
    setLanguage(QStringLiteral("it"));
    HelpDialog dialog;
    Q_CLEANUP_RESOURCE(brisel_help);
    const HelpDialog empty;
    setLanguage(QStringLiteral("en"));
    dialog.loadHelp();
    Q_INIT_RESOURCE(brisel_help);
    QVERIFY(view(empty)->document()->isEmpty());
    QCOMPARE(heading(dialog), QStringLiteral("Brisel2 PC: guida all'uso"));
}

void TestHelpDialog::jumpsFromContentsToChapter()
{
    setLanguage(QStringLiteral("en"));
    HelpDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto *browser = qobject_cast<QTextBrowser *>(view(dialog));
    QVERIFY(browser != nullptr);
    QTextCursor link = browser->document()->find(QStringLiteral("Keeping your files safe"));
    QVERIFY(!link.isNull());
    browser->setTextCursor(link);
    browser->ensureCursorVisible();
    const QPoint place = browser->cursorRect(link).center() - QPoint(20, 0);
    QTest::mouseClick(browser->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTRY_VERIFY(browser->verticalScrollBar()->value() >
                browser->verticalScrollBar()->maximum() / 2);
    QCOMPARE(heading(dialog), QStringLiteral("Brisel2 PC: user guide"));
}

void TestHelpDialog::closesByButtonAndEscape()
{
    HelpDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto *buttons = dialog.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
    QTest::mouseClick(buttons->buttons().constFirst(), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
    dialog.show();
    QTest::keyClick(view(dialog), Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

void TestHelpDialog::hasTheSameChaptersInEveryLanguage()
{
    const QString anchors = QStringLiteral("<a name=\"([a-z]+)\">");
    const QStringList expected = captures(pageSource(QStringLiteral("it")), anchors);
    QVERIFY(expected.size() > 10);
    for (const char *code : {"en", "de"}) {
        const QString page = pageSource(QLatin1StringView(code));
        QCOMPARE(captures(page, anchors), expected);
        QCOMPARE(page.count(QStringLiteral("<tr>")),
                 pageSource(QStringLiteral("it")).count(QStringLiteral("<tr>")));
    }
}

void TestHelpDialog::linksOnlyToItsOwnChaptersAndPictures_data()
{
    addLanguages();
}

void TestHelpDialog::linksOnlyToItsOwnChaptersAndPictures()
{
    QFETCH(QString, language);
    const QString page = pageSource(language);
    const QStringList anchors = captures(page, QStringLiteral("<a name=\"([a-z]+)\">"));
    const QStringList links = captures(page, QStringLiteral("<a href=\"([^\"]*)\""));
    QVERIFY(links.size() > 20);
    for (const QString &link : links)
        QVERIFY2(link.startsWith(u'#') && anchors.contains(link.mid(1)), qPrintable(link));
    const QStringList images = captures(page, QStringLiteral("<img src=\"([^\"]*)\""));
    QVERIFY(!images.isEmpty());
    for (const QString &image : images)
        QVERIFY2(!QImage(image).isNull(), qPrintable(image));
}

void TestHelpDialog::readsAsUtf8_data()
{
    addLanguages();
}

void TestHelpDialog::readsAsUtf8()
{
    QFETCH(QString, language);
    setLanguage(language);
    const HelpDialog dialog;
    const QString text = view(dialog)->toPlainText();
    QVERIFY(!text.contains(QChar::ReplacementCharacter));
    QVERIFY(!text.contains(u'\u00c3'));
    if (language == QStringLiteral("it"))
        QVERIFY(text.contains(QStringLiteral("tonalit\u00e0")));
    if (language == QStringLiteral("de"))
        QVERIFY(text.contains(QStringLiteral("\u00fcbertragen")));
}

void TestHelpDialog::explainsWhatMustBeKnown_data()
{
    addLanguages();
}

void TestHelpDialog::explainsWhatMustBeKnown()
{
    QFETCH(QString, language);
    setLanguage(language);
    const HelpDialog dialog;
    const QString text = view(dialog)->toPlainText();
    for (const char *fact :
         {"Alt+D", "log.txt", ".pts", "Averyl-1.mid", "SFX", "BRIDGE", "PLAYLIST", "65", "45",
          "SongsList.csv", ".cdg", "backup_kordia_", "/Volumes"})
        QVERIFY2(text.contains(QLatin1StringView(fact)), fact);
}

BRISEL_TEST(QApplication, TestHelpDialog)
#include "tst_helpdialog.moc"
