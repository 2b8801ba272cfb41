#include "memory/dialogs/memorywindow.h"
#include "tests/app/samplewindow.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QShortcut>

#include <algorithm>

using namespace brisel;

/// The keys of the main window, of which every entry of a menu has one, and those of the memory.
class TestKeys : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_sample = std::make_unique<SampleWindow>(); }
    void cleanup() { m_sample.reset(); }
    void everyEntryHasAMnemonic_data();
    void everyEntryHasAMnemonic();
    void mnemonicsOpenTheMenus();
    void everyOperationHasAShortcut();
    void noShortcutIsUsedTwice();
    void theGuideListsEveryKey_data();
    void theGuideListsEveryKey();
    void shortcutsWorkInTheWindow();
    void deletesTheFileOfTheChosenRow();
    void restoresTheChosenRow();
    void heldKeysWorkOnce();

private:
    /// The keys of \a window and of what is in it, as QKeySequence::listToString() writes those
    /// of one action.
    static QStringList keysOf(const QWidget &window)
    {
        QStringList keys;
        for (const QAction *action : window.findChildren<QAction *>())
            keys.append(QKeySequence::listToString(action->shortcuts()));
        for (const QShortcut *shortcut : window.findChildren<QShortcut *>())
            keys.append(QKeySequence::listToString(shortcut->keys()));
        keys.removeAll(QString());
        return keys;
    }
    QAction *action(const QString &name) const
    {
        return m_sample->window->findChild<QAction *>(name);
    }
    /// All menus of the bar, as they are when they open.
    QList<QMenu *> menus() const
    {
        const QList<QMenu *> menus = m_sample->window->menuBar()->findChildren<QMenu *>();
        for (QMenu *menu : menus)
            emit menu->aboutToShow();
        return menus;
    }
    static void verifyMnemonics(const QList<QAction *> &actions)
    {
        QStringList keys;
        for (const QAction *action : actions) {
            if (action->isSeparator())
                continue;
            const QKeySequence key = QKeySequence::mnemonic(action->text());
            QVERIFY2(!key.isEmpty(), qPrintable(action->text()));
            QVERIFY2(!keys.contains(key.toString()), qPrintable(action->text()));
            keys.append(key.toString());
        }
        QVERIFY(!keys.isEmpty());
    }

    /// Presses a key in the table; the script then has nothing left.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        m_sample->window->activateWindow(); // the dialog before was the active one
        QVERIFY(QTest::qWaitForWindowActive(m_sample->window.get()));
        QTest::keyClick(m_sample->table, key, modifiers);
        QVERIFY2(m_sample->script.isDone(), qPrintable(m_sample->script.problems().join(u'\n')));
    }

    std::unique_ptr<SampleWindow> m_sample;
};

void TestKeys::everyEntryHasAMnemonic_data()
{
    QTest::addColumn<QStringList>("languages");
    QTest::newRow("italian") << QStringList(u"actionItalian"_qs);
    QTest::newRow("english") << QStringList(u"actionEnglish"_qs);
    QTest::newRow("changed") << QStringList({u"actionEnglish"_qs, u"actionItalian"_qs});
}

void TestKeys::everyEntryHasAMnemonic()
{
    QFETCH(QStringList, languages);
    for (const QString &language : languages) {
        action(language)->trigger();
        verifyMnemonics(m_sample->window->menuBar()->actions());
        for (const QMenu *menu : menus())
            verifyMnemonics(menu->actions());
    }
}

void TestKeys::mnemonicsOpenTheMenus()
{
    m_sample->window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_sample->window.get()));
    QString opened;
    m_sample->script.expectMenu([&opened](QMenu *menu) {
        opened = menu->objectName();
        menu->close();
    });
    QTest::keyClick(m_sample->window.get(), Qt::Key_S, Qt::AltModifier);
    QTRY_COMPARE(opened, u"menuTools"_qs);
}

void TestKeys::everyOperationHasAShortcut()
{
    // Choices of a setting and the pages about the program have their mnemonics only.
    const QStringList choices{
        u"actionItalian"_qs,      u"actionEnglish"_qs,     u"actionGerman"_qs,
        u"actionCopyrightYes"_qs, u"actionCopyrightNo"_qs, u"actionSoundFont"_qs,
        u"actionTransferPlan"_qs, u"actionAbout"_qs,       u"actionAbout_QT"_qs};
    int operations = 0;
    for (const QMenu *menu : menus()) {
        for (const QAction *action : menu->actions()) {
            if (action->objectName().isEmpty() || action->menu() != nullptr ||
                action->objectName().startsWith(u"actionColumn"_qs) ||
                choices.contains(action->objectName()))
                continue;
            QVERIFY2(!action->shortcut().isEmpty(), qPrintable(action->objectName()));
            ++operations;
        }
    }
    QCOMPARE(operations, 16);
}

void TestKeys::noShortcutIsUsedTwice()
{
    QHash<QString, QString> owners;
    for (const QAction *action : m_sample->window->findChildren<QAction *>()) {
        for (const QKeySequence &key : action->shortcuts()) {
            QVERIFY2(!owners.contains(key.toString()), qPrintable(key.toString()));
            owners.insert(key.toString(), action->objectName());
        }
    }
    QCOMPARE(owners.value(u"Ctrl+O"_qs), u"actionSelectSongs"_qs);
    QCOMPARE(owners.value(u"Ctrl+R"_qs), u"actionRestore"_qs);
}

void TestKeys::theGuideListsEveryKey_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QStringList>("names"); // of Ctrl, Shift, ..., Down
    QTest::newRow("italian") << u"help_it"_qs
                             << QStringList({u"Ctrl"_qs, u"Maiusc"_qs, u"Canc"_qs, u"Invio"_qs,
                                             u"Barra spaziatrice"_qs, u"Su"_qs, u"Giù"_qs});
    QTest::newRow("english") << u"help_en"_qs
                             << QStringList({u"Ctrl"_qs, u"Shift"_qs, u"Delete"_qs, u"Return"_qs,
                                             u"Space bar"_qs, u"Up"_qs, u"Down"_qs});
    QTest::newRow("german") << u"help_de"_qs
                            << QStringList({u"Strg"_qs, u"Umschalt"_qs, u"Entf"_qs, u"Eingabe"_qs,
                                            u"Leertaste"_qs, u"Pfeil auf"_qs, u"Pfeil ab"_qs});
}

void TestKeys::theGuideListsEveryKey()
{
    QFETCH(QString, page);
    QFETCH(QStringList, names);
    QFile file(u":/help/%1.html"_qs.arg(page));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString guide = QString::fromUtf8(file.readAll());
    const MemoryWindow memory;
    QStringList keys = keysOf(*m_sample->window);
    QVERIFY(keys.size() >= 15);
    QVERIFY(keysOf(memory).contains(u"Alt+Up"_qs));
    keys += keysOf(memory);
    const QStringList portable{u"Ctrl"_qs,  u"Shift"_qs, u"Del"_qs, u"Return"_qs,
                               u"Space"_qs, u"Up"_qs,    u"Down"_qs};
    for (QString key : keys) {
        for (qsizetype i = 0; i < portable.size(); ++i)
            key.replace(portable.at(i), names.at(i));
        const QStringList sameKeys = key.split(u"; "_qs); // on some desktops there are more
        QVERIFY2(std::any_of(sameKeys.cbegin(), sameKeys.cend(),
                             [&guide](const QString &text) {
                                 return guide.contains(u"<td>%1</td>"_qs.arg(text));
                             }),
                 qPrintable(key));
    }
}

void TestKeys::shortcutsWorkInTheWindow()
{
    m_sample->import({u"ONE.mid"_qs});
    m_sample->script.expectFilesCancelled();
    press(Qt::Key_O, Qt::ControlModifier);
    m_sample->script.expectFilesCancelled();
    press(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    m_sample->script.expectFilesCancelled();
    press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    m_sample->script.expect("BackupDialog", [](QWidget *dialog) { dialog->close(); });
    press(Qt::Key_F5, Qt::NoModifier);
    m_sample->script.expectFilesCancelled();
    press(Qt::Key_T, Qt::ControlModifier);
    m_sample->script.expect("HistoryDialog", [](QWidget *dialog) { dialog->close(); });
    press(Qt::Key_H, Qt::ControlModifier | Qt::ShiftModifier);
}

void TestKeys::deletesTheFileOfTheChosenRow()
{
    m_sample->import({u"ONE.mid"_qs, u"TWO.mid"_qs});
    m_sample->table->setFocus();
    m_sample->table->selectRow(1);
    m_sample->script.expect("QMessageBox", [](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        QCOMPARE(box->text(), u"Sei sicuro di voler cancellare il file?"_qs);
        QCOMPARE(box->informativeText(), u"TWO.mid"_qs);
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    });
    press(Qt::Key_Delete, Qt::ShiftModifier);
    QVERIFY(!QFile::exists(m_sample->at(u"TWO.mid"_qs)));
    QVERIFY(QFile::exists(m_sample->at(u"ONE.mid"_qs)));
    QCOMPARE(m_sample->model->rowCount(), 1);
}

void TestKeys::restoresTheChosenRow()
{
    m_sample->import({u"ONE.mid"_qs, u"TWO.mid"_qs});
    m_sample->table->setFocus();
    m_sample->table->selectRow(1);
    m_sample->script.expectMessage(
        u"Ripristino"_qs, u"Per le song scelte non c'è nulla da ripristinare"_qs, QMessageBox::Ok);
    press(Qt::Key_R, Qt::ControlModifier);
    const QByteArray before = fileContent(m_sample->at(u"TWO.mid"_qs));
    m_sample->script.expect(
        "BackupDialog", [](QWidget *dialog) { DialogScript::click(dialog, u"exitPushButton"_qs); });
    press(Qt::Key_F5, Qt::NoModifier);
    QVERIFY(fileContent(m_sample->at(u"TWO.mid"_qs)) != before);
    press(Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(fileContent(m_sample->at(u"TWO.mid"_qs)), before);
}

void TestKeys::heldKeysWorkOnce()
{
    for (const QMenu *menu : menus()) {
        for (const QAction *action : menu->actions()) {
            if (!action->shortcut().isEmpty())
                QVERIFY2(!action->autoRepeat(), qPrintable(action->objectName()));
        }
    }
}

BRISEL_TEST(QApplication, TestKeys)
#include "tst_keys.moc"
