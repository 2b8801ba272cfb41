#include "tests/app/windowtest.h"

#include "app/startup.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QHeaderView>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QToolButton>
#include <QTranslator>

using namespace brisel;

/// What the window stores and restores: language, questions, log.
class TestMainWindowSettings : public WindowTest
{
    Q_OBJECT

private slots:
    void init() { QSettings(settingsOrganisation, settingsApplication).clear(); }
    void cleanup() { m_window.reset(); }
    void switchesToEnglishAtOnce();
    void switchesBackToItalian();
    void switchesTheTextsOfQtAfterAnItalianStart();
    void showsHeadingsWholeAfterASwitch();
    void headsEveryColumnInBothLanguages();
    void showsEnglishForGerman();
    void checksTheStoredLanguage_data();
    void checksTheStoredLanguage();
    void keepsTheCheckMarkOfTheLanguageClickedAgain();
    void showsStoredCopyrightChoice();
    void storesCopyrightChoice();
    void storesLogOptions();
    void showsStoredLogOptions();

private:
    static QVariant stored(const char *key)
    {
        return QSettings(settingsOrganisation, settingsApplication).value(QString::fromLatin1(key));
    }
    static void store(const char *key, const QVariant &value)
    {
        QSettings(settingsOrganisation, settingsApplication)
            .setValue(QString::fromLatin1(key), value);
    }
    QString heading(int column) const
    {
        return find<QTableView>("userLibraryTableView")
            ->model()
            ->headerData(column, Qt::Horizontal)
            .toString();
    }
    QString headings() const
    {
        QStringList texts;
        for (int column = 0; column < 12; ++column)
            texts.append(heading(column));
        return texts.join(u'|');
    }
};

void TestMainWindowSettings::switchesToEnglishAtOnce()
{
    open();
    find<QAction>("actionEnglish")->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(stored("language").toString(), QStringLiteral("en"));
    QCOMPARE(find<QAction>("actionQuit")->text(), QStringLiteral("Quit"));
    QCOMPARE(m_window->menuBar()->actions().at(1)->text(), QStringLiteral("&Preferences"));
    QCOMPARE(find<QToolButton>("transferFilesToolButton")->text(),
             QStringLiteral("Transfer songs in the Brisel2 memory"));
    QCOMPARE(heading(2), QStringLiteral("Title"));
    QCOMPARE(heading(10), QStringLiteral("File name"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Brisel2 PC"));
    QVERIFY(find<QAction>("actionEnglish")->isChecked());
    QVERIFY(!find<QAction>("actionItalian")->isChecked());
}

void TestMainWindowSettings::switchesBackToItalian()
{
    open();
    find<QAction>("actionEnglish")->trigger();
    QCoreApplication::processEvents();
    find<QAction>("actionItalian")->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(stored("language").toString(), QStringLiteral("it"));
    QCOMPARE(find<QAction>("actionQuit")->text(), QStringLiteral("Esci"));
    QCOMPARE(heading(2), QStringLiteral("Titolo"));
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "&Yes"), QStringLiteral("&Sì"));
    find<QAction>("actionEnglish")->trigger();
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "&Yes"), QStringLiteral("&Yes"));
}

/// The translators of an Italian start must not keep the texts of Qt Italian.
void TestMainWindowSettings::switchesTheTextsOfQtAfterAnItalianStart()
{
    auto *program = new QTranslator(qApp);
    auto *qt = new QTranslator(qApp);
    loadTranslations(QStringLiteral("it"), *program, *qt);
    const auto yes = [] {
        const QMessageBox box(QMessageBox::Question, QString(), QString(), QMessageBox::Yes);
        return box.button(QMessageBox::Yes)->text();
    };
    open();
    QCOMPARE(yes(), QStringLiteral("&Sì"));
    find<QAction>("actionEnglish")->trigger();
    QCOMPARE(yes(), QStringLiteral("&Yes"));
    find<QAction>("actionItalian")->trigger();
    QCOMPARE(yes(), QStringLiteral("&Sì"));
    delete program;
    delete qt;
}

void TestMainWindowSettings::showsHeadingsWholeAfterASwitch()
{
    open();
    auto *table = m_window->findChild<QTableView *>();
    for (const char *language : {"actionEnglish", "actionItalian"}) {
        find<QAction>(language)->trigger();
        QCoreApplication::processEvents();
        const QHeaderView *header = table->horizontalHeader();
        for (int column = 0; column < header->count(); ++column) {
            if (!header->isSectionHidden(column))
                QVERIFY2(header->sectionSize(column) >= header->sectionSizeHint(column),
                         qPrintable(heading(column)));
        }
    }
}

void TestMainWindowSettings::headsEveryColumnInBothLanguages()
{
    const QString italian = QStringLiteral("Num|Formato|Titolo|Artista|Genere|Autore|Durata|Bpm|"
                                           "Tonalita'||Nome file|");
    open();
    QCOMPARE(headings(), italian);
    find<QAction>("actionEnglish")->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(headings(), QStringLiteral("Num|Format|Title|Artist|Genre|Author|Length|Bpm|Key||"
                                        "File name|"));
    find<QAction>("actionItalian")->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(headings(), italian);
}

void TestMainWindowSettings::showsEnglishForGerman()
{
    open();
    find<QAction>("actionGerman")->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(stored("language").toString(), QStringLiteral("de"));
    QCOMPARE(find<QAction>("actionQuit")->text(), QStringLiteral("Quit"));
    QVERIFY(find<QAction>("actionGerman")->isChecked());
    QVERIFY(!find<QAction>("actionEnglish")->isChecked());
}

void TestMainWindowSettings::checksTheStoredLanguage_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("action");
    QTest::newRow("none") << ""
                          << "actionItalian";
    QTest::newRow("it") << "it"
                        << "actionItalian";
    QTest::newRow("en") << "en"
                        << "actionEnglish";
    QTest::newRow("de") << "de"
                        << "actionGerman";
    QTest::newRow("other") << "fr"
                           << "actionEnglish";
}

void TestMainWindowSettings::checksTheStoredLanguage()
{
    QFETCH(QString, code);
    QFETCH(QString, action);
    if (!code.isEmpty())
        store("language", code);
    open();
    for (const char *name : {"actionItalian", "actionEnglish", "actionGerman"})
        QCOMPARE(find<QAction>(name)->isChecked(), action == QLatin1StringView(name));
}

void TestMainWindowSettings::keepsTheCheckMarkOfTheLanguageClickedAgain()
{
    store("language", QStringLiteral("en"));
    open();
    find<QAction>("actionEnglish")->trigger();
    QVERIFY(find<QAction>("actionEnglish")->isChecked());
}

void TestMainWindowSettings::showsStoredCopyrightChoice()
{
    open();
    QVERIFY(find<QAction>("actionCopyrightYes")->isChecked());
    QVERIFY(!stored("copyrightAsk").isValid());
    m_window.reset();
    store("copyrightAsk", false);
    open();
    QVERIFY(!find<QAction>("actionCopyrightYes")->isChecked());
    QVERIFY(find<QAction>("actionCopyrightNo")->isChecked());
}

void TestMainWindowSettings::storesCopyrightChoice()
{
    open();
    find<QAction>("actionCopyrightNo")->trigger();
    QCOMPARE(stored("copyrightAsk").toBool(), false);
    QVERIFY(!find<QAction>("actionCopyrightYes")->isChecked());
    QVERIFY(find<QAction>("actionCopyrightNo")->isChecked());
    find<QAction>("actionCopyrightNo")->trigger();
    QVERIFY(find<QAction>("actionCopyrightNo")->isChecked());
    find<QAction>("actionCopyrightYes")->trigger();
    QCOMPARE(stored("copyrightAsk").toBool(), true);
    QVERIFY(find<QAction>("actionCopyrightYes")->isChecked());
    QVERIFY(!find<QAction>("actionCopyrightNo")->isChecked());
}

void TestMainWindowSettings::storesLogOptions()
{
    open();
    QTest::keyClick(m_window.get(), Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    auto *enable = find<QCheckBox>("dbgLogEnableCheckBox");
    auto *clear = find<QCheckBox>("dbgLogClearCheckBox");
    QVERIFY(!clear->isEnabled());
    enable->click();
    QCOMPARE(stored("logenabled").toBool(), true);
    QVERIFY(clear->isEnabled());
    clear->click();
    QCOMPARE(stored("logclear").toBool(), true);
    enable->click();
    QCOMPARE(stored("logenabled").toBool(), false);
    QVERIFY(!clear->isEnabled());
    QCOMPARE(stored("logclear").toBool(), true);
}

void TestMainWindowSettings::showsStoredLogOptions()
{
    store("logenabled", true);
    store("logclear", true);
    open();
    QVERIFY(find<QCheckBox>("dbgLogEnableCheckBox")->isChecked());
    QVERIFY(find<QCheckBox>("dbgLogClearCheckBox")->isChecked());
    QVERIFY(find<QCheckBox>("dbgLogClearCheckBox")->isEnabled());
}

BRISEL_TEST(QApplication, TestMainWindowSettings)
#include "tst_mainwindow_settings.moc"
