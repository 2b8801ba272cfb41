#include "tests/app/workflowtest.h"
#include "tests/testprogram.h"

#include <QComboBox>
#include <QLineEdit>

/// The edit dialog over songs of the window: what it tells before a save, and what a save leaves
/// alone.
class TestEditDialog : public WorkflowTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void tempoLeavesAKeyThatIsNotInTheList_data();
    void tempoLeavesAKeyThatIsNotInTheList();

private:
    /// Makes an MP3 with a tag of version 2.3 around \a frames, and imports it.
    void importMp3(const QString &name, const QByteArray &frames);
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

BRISEL_TEST(QApplication, TestEditDialog)
#include "tst_editdialog.moc"
