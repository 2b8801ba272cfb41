#include "tests/app/windowtest.h"

#include "app/startup.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QToolButton>

using namespace brisel;

/// The content of the window: texts, images, menus, and their order.
class TestMainWindowForm : public WindowTest
{
    Q_OBJECT

private slots:
    void init() { QSettings(settingsOrganisation, settingsApplication).clear(); }
    void cleanup() { m_window.reset(); }
    void opensWithItsTextsAndButtons();
    void opensWithoutWhatIsNotYetNeeded();
    void showsLogosWithoutText();
    void showsEachImageInItsPlace();
    void standsInItsOrder();
    void ordersItsMenus();
    void fillsItsSubmenus_data();
    void fillsItsSubmenus();
    void fitsItsTexts_data();
    void fitsItsTexts();
};

void TestMainWindowForm::opensWithItsTextsAndButtons()
{
    const LogCapture log;
    open();
    QVERIFY(log.contains(QStringLiteral("DB initialized correctly ")));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Brisel2 PC"));
    auto *select = find<QToolButton>("selectDirToolButton");
    auto *update = find<QToolButton>("updateDataToolButton");
    auto *transfer = find<QToolButton>("transferFilesToolButton");
    QCOMPARE(
        select->text(),
        QStringLiteral("Seleziona le basi musicali che desideri inserire nella memoria di Brisel"));
    QCOMPARE(update->text(), QStringLiteral("Sincronizza song con il database Kordia"));
    QCOMPARE(transfer->text(), QStringLiteral("Trasferisci song nella memoria di Brisel"));
    QVERIFY(select->isEnabled());
    QVERIFY(!update->isEnabled());
    QVERIFY(!transfer->isEnabled());
    for (QToolButton *button : {select, update, transfer})
        QVERIFY(!button->icon().availableSizes().isEmpty());
    for (const char *group : {"debugKordiaGroupBox", "debugGroupBox"})
        QVERIFY(!find<QWidget>(group)->isVisible());
    QCOMPARE(find<QCheckBox>("dbgLogEnableCheckBox")->text(),
             QStringLiteral("Abilita log (riavvio necessario!)"));
    QCOMPARE(find<QCheckBox>("dbgLogClearCheckBox")->text(),
             QStringLiteral("Cancella log ad ogni avvio"));
    const QList<std::pair<const char *, QString>> buttons{
        {"dbgAddMarkerPushButton", QStringLiteral("Add Marker")},
        {"dbgSavePushButton", QStringLiteral("Save")},
        {"dbgImportPushButton", QStringLiteral("Import again")},
        {"dbgHidePushButton", QStringLiteral("Hide Debug")},
        {"dbgBackupPushButton", QStringLiteral("Backup")},
        {"dbgShowDialogPushButton", QStringLiteral("Manual Dialog")}};
    for (const auto &[name, text] : buttons)
        QCOMPARE(find<QPushButton>(name)->text(), text);
    QVERIFY(!find<QAction>("actionGerman")->isVisible());
    QVERIFY(find<QAction>("actionItalian")->isVisible());
}

void TestMainWindowForm::opensWithoutWhatIsNotYetNeeded()
{
    open();
    QCOMPARE(m_window->findChildren<QDialog *>().size(), 0);
}

void TestMainWindowForm::showsLogosWithoutText()
{
    open();
    for (const char *name : {"logoBriselLabel", "logoKordiaLabel"}) {
        auto *logo = find<QLabel>(name);
        QVERIFY(logo->text().isEmpty());
        const QImage image = logo->grab().toImage();
        bool painted = false;
        for (int x = 0; x < image.width() && !painted; ++x)
            painted = image.pixel(x, image.height() / 2) != image.pixel(0, 0);
        QVERIFY2(painted, name);
    }
}

void TestMainWindowForm::showsEachImageInItsPlace()
{
    open();
    const QList<std::pair<const char *, QString>> icons{
        {"selectDirToolButton", QStringLiteral(":/imgs/icon-folder.png")},
        {"updateDataToolButton", QStringLiteral(":/imgs/icon-sync.png")},
        {"transferFilesToolButton", QStringLiteral(":/imgs/icon-media.png")}};
    for (const auto &[name, file] : icons) {
        const QImage wanted = QIcon(file).pixmap(40).toImage();
        QVERIFY(!wanted.isNull());
        QVERIFY2(find<QToolButton>(name)->icon().pixmap(40).toImage() == wanted, name);
    }
    QCOMPARE(find<QLabel>("logoBriselLabel")->styleSheet(),
             QStringLiteral("image: url(:/imgs/logo-brisel2.png);"));
    QCOMPARE(find<QLabel>("logoKordiaLabel")->styleSheet(),
             QStringLiteral("image: url(:/imgs/logo-kordia.png);"));
}

void TestMainWindowForm::standsInItsOrder()
{
    open();
    QTest::keyClick(m_window.get(), Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    QCoreApplication::processEvents();
    const auto place = [this](const char *name) {
        auto *widget = find<QWidget>(name);
        return QRect(widget->mapTo(m_window.get(), QPoint(0, 0)), widget->size());
    };
    const QRect logo = place("logoBriselLabel");
    const QRect rightLogo = place("logoKordiaLabel");
    QCOMPARE(rightLogo.top(), logo.top());
    QVERIFY(rightLogo.left() > logo.right());
    int bottom = logo.bottom();
    for (const char *name :
         {"selectDirToolButton", "searchLineEdit", "userLibraryTableView", "updateDataToolButton",
          "transferFilesToolButton", "debugKordiaGroupBox", "debugGroupBox", "statusBar"}) {
        QVERIFY2(place(name).top() > bottom, name);
        bottom = place(name).bottom();
    }
}

void TestMainWindowForm::ordersItsMenus()
{
    open();
    QStringList menus;
    QStringList entries;
    for (QAction *menu : m_window->menuBar()->actions()) {
        menus.append(menu->text().remove(u'&'));
        if (menu->menu()->objectName() == QStringLiteral("menuView"))
            continue; // tst_columnlayout looks at its entries
        for (QAction *action : menu->menu()->actions())
            entries.append(action->text().remove(u'&'));
    }
    QCOMPARE(menus.join(u'|'), QStringLiteral("File|Preferenze|Vista|Strumenti|Aiuto"));
    QCOMPARE(entries.join(u'|'),
             QStringLiteral(
                 "Seleziona brani...|Aggiungi brani...|Aggiungi cartella...|"
                 "Aggiungi da una cartella recente|Riprendi l'ultima lista||"
                 "Sincronizza song con il database Kordia|"
                 "Trasferisci song nella memoria di Brisel||"
                 "Esci|Lingua|Messaggi Copyright|SoundFont per i MIDI...|Memoria...|Rigenera il "
                 "database delle song|Salva "
                 "lista delle song|Anteprima sincronizzazione...|Mostra il piano prima "
                 "del trasferimento|Cronologia modifiche...|"
                 "Ripristina backup...|Aiuto Brisel PC|Informazioni|Informazioni su "
                 "QT"));
}

void TestMainWindowForm::fillsItsSubmenus_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("texts");
    QTest::addColumn<QString>("actions");
    QTest::newRow("language") << "menuLanguage"
                              << "Italiano|English|Deutsch"
                              << "actionItalian|actionEnglish|actionGerman";
    QTest::newRow("copyright") << "menuCopyright"
                               << "Si|No"
                               << "actionCopyrightYes|actionCopyrightNo";
}

void TestMainWindowForm::fillsItsSubmenus()
{
    QFETCH(QString, menu);
    open();
    QStringList texts;
    QStringList actions;
    for (const QAction *action : m_window->findChild<QMenu *>(menu)->actions()) {
        texts.append(action->text());
        actions.append(action->objectName());
    }
    QTEST(texts.join(u'|'), "texts");
    QTEST(actions.join(u'|'), "actions");
}

void TestMainWindowForm::fitsItsTexts_data()
{
    QTest::addColumn<QString>("action");
    QTest::newRow("italian") << "actionItalian";
    QTest::newRow("english") << "actionEnglish";
}

void TestMainWindowForm::fitsItsTexts()
{
    QFETCH(QString, action);
    open();
    m_window->findChild<QAction *>(action)->trigger();
    QTest::keyClick(m_window.get(), Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    QCoreApplication::processEvents();
    m_window->resize(m_window->minimumSizeHint());
    QCoreApplication::processEvents();
    QVERIFY2(m_window->width() <= 1000, "opens on a small screen");
    for (QAbstractButton *button : m_window->findChildren<QAbstractButton *>()) {
        if (button->isVisible() && !button->text().isEmpty())
            QVERIFY2(button->width() >= button->sizeHint().width(), qPrintable(button->text()));
    }
}

BRISEL_TEST(QApplication, TestMainWindowForm)
#include "tst_mainwindow_form.moc"
