#include "base/filefailure.h"
#include "base/runreport.h"
#include "tests/app/reporttest.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>

using namespace brisel;

/// The edit dialog over songs of the window: what it shows before a save, and what a save leaves
/// unchanged.
class TestEditDialog : public ReportTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void tempoLeavesAKeyThatIsNotInTheList_data();
    void tempoLeavesAKeyThatIsNotInTheList();
    void keepsWhatAnotherProgramChangedDuringTheEdit();
    void reportsASongThatBecameAnother();
    void describesWhatAMidiSongCannotHold_data();
    void describesWhatAMidiSongCannotHold();
    void describesWhatTheOtherSongsCannotHold_data() { describesWhatAMidiSongCannotHold_data(); }
    void describesWhatTheOtherSongsCannotHold();
    void hintFollowsTheLanguage();
    void interruptsApplyToAll();
    void countsHiddenSongsBeforeApplyToAll_data();
    void countsHiddenSongsBeforeApplyToAll();

private:
    /// Makes an MP3 with a tag of version 2.3 around \a frames, and imports it.
    void importMp3(const QString &name, const QByteArray &frames);
    /// Changes the language as a user does, by the menu.
    void choose(const QString &language)
    {
        m_window->findChild<QAction *>(u"action"_qs + language)->trigger();
        QCoreApplication::processEvents(); // the event that reaches the windows is posted
    }
    /// The hint under that text; empty while it is hidden.
    static QString hint(const QWidget *dialog, const QString &datum)
    {
        const auto *label = dialog->findChild<QLabel *>(datum + u"HintLabel"_qs);
        return label->isVisible() ? label->text() : QString();
    }
};

void TestEditDialog::importMp3(const QString &name, const QByteArray &frames)
{
    QVERIFY(frames.size() < 128);
    makeFile(at(name), QByteArray("ID3\3\0\0\0\0\0", 9) + char(frames.size()) + frames +
                           QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(400, '\x55'));
    import({name});
}

void TestEditDialog::tempoLeavesAKeyThatIsNotInTheList_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::newRow("Am") << QByteArray("TKEY\0\0\0\3\0\0\0Am", 13);
    QTest::newRow("12A") << QByteArray("TKEY\0\0\0\4\0\0\0"
                                       "12A",
                                       14);
}

void TestEditDialog::tempoLeavesAKeyThatIsNotInTheList()
{
    QFETCH(QByteArray, frame);
    importMp3(u"one.mp3"_qs, QByteArray("TIT2\0\0\0\4\0\0\0One", 14) + frame);
    expectEdit([](QWidget *widget) {
        QCOMPARE(widget->findChild<QComboBox *>(u"keyComboBox"_qs)->currentIndex(), -1);
        auto *tempo = widget->findChild<QLineEdit *>(u"bpmLineEdit"_qs);
        tempo->selectAll();
        QTest::keyClicks(tempo, u"97"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    doubleClick(0);
    verifyScript();
    const QByteArray saved = fileContent(at(u"one.mp3"_qs));
    QCOMPARE(saved.count(frame), 1);
    QCOMPARE(saved.count("TKEY"), 1);
    QCOMPARE(saved.count(QByteArray("TBPM\0\0\0\3\0\0\0"
                                    "97",
                                    13)),
             1);
}

void TestEditDialog::keepsWhatAnotherProgramChangedDuringTheEdit()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    expectEdit([this](QWidget *widget) {
        makeFile(at(u"one.mid"_qs), Sample::midi("Their title", false));
        DialogScript::type(widget->findChild<QLineEdit *>(u"authorLineEdit"_qs), u"Author"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    doubleClick(0);
    verifyScript();
    QCOMPARE(Sample::infoOf(at(u"one.mid"_qs)).author, u"Author"_qs);
    QCOMPARE(title(u"one.mid"_qs), u"Their title"_qs);
    QCOMPARE(model().index(0, model().fieldIndex(u"title"_qs)).data().toString(),
             u"Their title"_qs);
}

void TestEditDialog::reportsASongThatBecameAnother()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    QByteArray other = Sample::midi("Another song", false);
    other.replace(QByteArray::fromHex("3c40"), QByteArray::fromHex("4540"));
    expectEdit([this, other](QWidget *widget) {
        makeFile(at(u"one.mid"_qs), other);
        DialogScript::type(widget->findChild<QLineEdit *>(u"authorLineEdit"_qs), u"Author"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    m_script->expectMessage(u"Modifica dati song"_qs,
                            u"La song non è stata salvata: "_qs + FileReason::changed.text(),
                            QMessageBox::Ok);
    expectEdit([](QWidget *widget) { DialogScript::click(widget, u"exitPushButton"_qs); });
    doubleClick(0);
    verifyScript();
    QCOMPARE(fileContent(at(u"one.mid"_qs)), other);
    QVERIFY(reportLines().last().contains(FileReason::changed.text()));
}

void TestEditDialog::describesWhatAMidiSongCannotHold_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("here");
    QTest::addColumn<QString>("elsewhere");
    QTest::newRow("it") << u"Italian"_qs << u"Nel file diventeranno \"?\": Ω"_qs
                        << u"Nei file che non sono MP3 diventeranno \"?\": Ω"_qs;
    QTest::newRow("en") << u"English"_qs << u"In the file these will become \"?\": Ω"_qs
                        << u"In files other than MP3 these will become \"?\": Ω"_qs;
}

void TestEditDialog::describesWhatAMidiSongCannotHold()
{
    QFETCH(QString, language);
    QFETCH(QString, here);
    choose(language);
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    expectEdit([here](QWidget *widget) {
        auto *title = widget->findChild<QLineEdit *>(u"titleLineEdit"_qs);
        QCOMPARE(hint(widget, u"title"_qs), QString());
        title->selectAll();
        DialogScript::type(title, u"Città Ω"_qs);
        QCOMPARE(hint(widget, u"title"_qs), here);
        QTest::keyClick(title, Qt::Key_Backspace);
        QCOMPARE(hint(widget, u"title"_qs), QString());
        DialogScript::type(title, u"Ω"_qs);
        QCOMPARE(hint(widget, u"title"_qs), here);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    doubleClick(0);
    verifyScript();
    QCOMPARE(title(u"one.mid"_qs), u"Città ?"_qs);
    expectEdit([](QWidget *widget) {
        QCOMPARE(hint(widget, u"title"_qs), QString());
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    doubleClick(0);
    verifyScript();
}

void TestEditDialog::describesWhatTheOtherSongsCannotHold()
{
    QFETCH(QString, language);
    QFETCH(QString, elsewhere);
    choose(language);
    importMp3(u"one.mp3"_qs, QByteArray("TIT2\0\0\0\4\0\0\0One", 14));
    expectEdit([elsewhere](QWidget *widget) {
        const auto tick = [widget](QMessageBox::StandardButton answer) {
            DialogScript inner;
            inner.expect("QMessageBox", [answer](QWidget *box) {
                QTest::mouseClick(qobject_cast<QMessageBox *>(box)->button(answer), Qt::LeftButton);
            });
            DialogScript::click(widget, u"checkBoxToAllAuthor"_qs);
        };
        DialogScript::type(widget->findChild<QLineEdit *>(u"authorLineEdit"_qs), u"Città Ω"_qs);
        QCOMPARE(hint(widget, u"author"_qs), QString());
        tick(QMessageBox::No);
        QCOMPARE(hint(widget, u"author"_qs), QString());
        tick(QMessageBox::Yes);
        QCOMPARE(hint(widget, u"author"_qs), elsewhere);
        DialogScript::click(widget, u"checkBoxToAllAuthor"_qs);
        QCOMPARE(hint(widget, u"author"_qs), QString());
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    doubleClick(0);
    verifyScript();
}

void TestEditDialog::hintFollowsTheLanguage()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    expectEdit([this](QWidget *widget) {
        auto *genre = widget->findChild<QComboBox *>(u"genreComboBox"_qs);
        genre->setEditText(u"Ω"_qs);
        QCOMPARE(hint(widget, u"genre"_qs), u"Nel file diventeranno \"?\": Ω"_qs);
        choose(u"English"_qs);
        const QString english = u"In the file these will become \"?\": Ω"_qs;
        QCOMPARE(hint(widget, u"genre"_qs), english);
        QCOMPARE(genre->accessibleDescription(), genre->toolTip() + u". "_qs + english);
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    doubleClick(0);
    verifyScript();
}

void TestEditDialog::interruptsApplyToAll()
{
    const QStringList names{u"a.mid"_qs, u"b.mid"_qs, u"c.mid"_qs, u"d.mid"_qs};
    makeSongs(names, false);
    import(names);
    expectEdit([](QWidget *widget) {
        DialogScript::type(widget->findChild<QLineEdit *>(u"authorLineEdit"_qs), u"Author"_qs);
        DialogScript inner;
        inner.expect("QMessageBox", [](QWidget *box) {
            QTest::mouseClick(qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes),
                              Qt::LeftButton);
        });
        DialogScript::click(widget, u"checkBoxToAllAuthor"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    atProgress(u"Aggiornamento file"_qs, u"2 di 4"_qs, [this](QProgressDialog *dialog) {
        // The window is blocked: a click on its button opens no file dialog.
        auto *button = tool("selectDirToolButton");
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {},
                          button->mapTo(m_window, button->rect().center()));
        QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
    });
    doubleClick(0);
    verifyScript();
    QCOMPARE(statuses(), u"2200"_qs);
    QCOMPARE(Sample::infoOf(at(u"b.mid"_qs)).author, u"Author"_qs);
    QCOMPARE(Sample::infoOf(at(u"c.mid"_qs)).author, QString());
    QVERIFY(reportLines().contains(
        line(u"Non modificata"_qs, u"c.mid"_qs, u"operazione interrotta"_qs)));
}

void TestEditDialog::countsHiddenSongsBeforeApplyToAll_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("shown");
    QTest::newRow("it") << u"Italian"_qs
                        << u"Song da modificare: 3\nAnche quelle nascoste dalla ricerca: 2"_qs;
    QTest::newRow("en") << u"English"_qs
                        << u"Songs to be changed: 3\nIncluding those hidden by the search: 2"_qs;
}

void TestEditDialog::countsHiddenSongsBeforeApplyToAll()
{
    QFETCH(QString, language);
    QFETCH(QString, shown);
    choose(language);
    const QStringList names{u"a.mid"_qs, u"b.mid"_qs, u"c.mid"_qs};
    makeSongs(names, false);
    import(names);
    m_window->findChild<QLineEdit *>(u"searchLineEdit"_qs)->setText(u"b.mid"_qs);
    expectEdit([shown](QWidget *widget) {
        DialogScript inner;
        inner.expect("QMessageBox", [shown](QWidget *box) {
            QCOMPARE(qobject_cast<QMessageBox *>(box)->informativeText(), shown);
            QTest::keyClick(box->focusWidget(), Qt::Key_Return);
        });
        DialogScript::click(widget, u"checkBoxToAllAuthor"_qs);
        QVERIFY(!widget->findChild<QCheckBox *>(u"checkBoxToAllAuthor"_qs)->isChecked());
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    doubleClick(1);
    verifyScript();
}

BRISEL_TEST(QApplication, TestEditDialog)
#include "tst_editdialog.moc"
