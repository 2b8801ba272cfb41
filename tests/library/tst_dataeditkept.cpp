#include "library/dialogs/dataeditdialog.h"

#include "songfile/songinfo.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include <limits>

using namespace brisel;

/// The edit dialog returns the value of each field unchanged unless the user edits it.
class TestDataEditKept : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void givesBackTextsAsLoaded_data();
    void givesBackTextsAsLoaded();
    void givesBackNumbersAsLoaded_data();
    void givesBackNumbersAsLoaded();
    void givesAnEditedTextAsItIsShown();
    void goesBackToALongTitleAsLoaded();
    void keepsAKeyThatIsNotInTheList_data();
    void keepsAKeyThatIsNotInTheList();
    void writesTheKeyThatIsChosen();

private:
    template <typename Widget>
    Widget *find(const char *name) const
    {
        return m_dialog->findChild<Widget *>(QString::fromLatin1(name));
    }

    std::unique_ptr<DataEditDialog> m_dialog;
};

void TestDataEditKept::init()
{
    m_dialog = std::make_unique<DataEditDialog>();
    m_dialog->setArtistsCombo({u"QUEUE"_qs});
    m_dialog->setGenresCombo({u"FOLK"_qs});
    m_dialog->setKeysCombo({u"C"_qs, u"A-"_qs});
}

void TestDataEditKept::givesBackTextsAsLoaded_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << u"Song"_qs;
    QTest::newRow("blanks around it") << u"  Song \u00a0 "_qs;
    QTest::newRow("line breaks") << u"one\ntwo\r\nthree\rfour\u2028five\u2029six"_qs;
    QTest::newRow("tabs and controls") << u"one\ttwo\u0001three\u007f\u0085"_qs;
    QTest::newRow("zero") << u"one"_qs + QChar(0) + u"two"_qs;
    QTest::newRow("beyond Latin-1") << u"Città Ω \U0001F3B5"_qs;
    QTest::newRow("half a surrogate pair") << u"a"_qs + QChar(0xD83C) + u"b"_qs;
    QTest::newRow("in the list but for its case") << u"Folk"_qs;
    QTest::newRow("longer than a field") << QString(40000, u'x') + u"end"_qs;
    QTest::newRow("cut within a surrogate pair") << QString(32766, u'x') + u"\U0001F3B5"_qs;
}

void TestDataEditKept::givesBackTextsAsLoaded()
{
    QFETCH(QString, text);
    SongInfo loaded;
    loaded.title = text;
    loaded.artist = u'1' + text;
    loaded.genre = u'2' + text;
    loaded.author = u'3' + text;
    m_dialog->setOtherInfo(loaded);
    m_dialog->show();
    SongInfo info;
    m_dialog->getInfo(info);
    QCOMPARE(info.title, loaded.title);
    QCOMPARE(info.artist, loaded.artist);
    QCOMPARE(info.genre, loaded.genre);
    QCOMPARE(info.author, loaded.author);
}

void TestDataEditKept::givesBackNumbersAsLoaded_data()
{
    QTest::addColumn<int>("number");
    for (const int number : {0, 59, 60, 999, 1000, 5999, 6000, 6065, 1000000,
                             std::numeric_limits<int>::max(), -1, std::numeric_limits<int>::min()})
        QTest::addRow("%d", number) << number;
}

void TestDataEditKept::givesBackNumbersAsLoaded()
{
    QFETCH(int, number);
    SongInfo loaded;
    loaded.length = number;
    loaded.userBpm = number;
    m_dialog->setOtherInfo(loaded);
    m_dialog->show();
    SongInfo info;
    m_dialog->getInfo(info);
    QCOMPARE(info.length, number);
    QCOMPARE(info.userBpm, number);
}

void TestDataEditKept::givesAnEditedTextAsItIsShown()
{
    SongInfo loaded;
    loaded.title = QString(32766, u'x') + u"yz"_qs;
    loaded.artist = u"one\ntwo"_qs;
    m_dialog->setOtherInfo(loaded);
    auto *title = find<QLineEdit>("titleLineEdit");
    title->setCursorPosition(0);
    QTest::keyClick(title, Qt::Key_Delete);
    QTest::keyClicks(find<QComboBox>("artistComboBox")->lineEdit(), u"!"_qs);
    SongInfo info;
    m_dialog->getInfo(info);
    QCOMPARE(info.title, QString(32765, u'x') + u'y');
    QCOMPARE(info.artist, u"one\ntwo!"_qs);
}

void TestDataEditKept::goesBackToALongTitleAsLoaded()
{
    SongInfo loaded;
    loaded.title = QString(40000, u'x');
    loaded.fileName = u"/songs/name.mp3"_qs;
    m_dialog->setOtherInfo(loaded);
    find<QAbstractButton>("radioButtonTitle2")->click();
    SongInfo info;
    m_dialog->getInfo(info);
    QCOMPARE(info.title, u"name"_qs);
    find<QAbstractButton>("radioButtonTitle1")->click();
    m_dialog->getInfo(info);
    QCOMPARE(info.title, loaded.title);
}

void TestDataEditKept::keepsAKeyThatIsNotInTheList_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("unknown") << u"12A"_qs;
    QTest::newRow("written in another way") << u"Am"_qs;
    QTest::newRow("other case") << u"a-"_qs;
    QTest::newRow("empty") << QString();
}

void TestDataEditKept::keepsAKeyThatIsNotInTheList()
{
    QFETCH(QString, key);
    SongInfo info;
    info.key = u"C"_qs;
    m_dialog->setOtherInfo(info);
    info.key = key;
    m_dialog->setOtherInfo(info);
    QCOMPARE(find<QComboBox>("keyComboBox")->currentIndex(), -1);
    m_dialog->getInfo(info);
    QCOMPARE(info.key, key);
}

void TestDataEditKept::writesTheKeyThatIsChosen()
{
    SongInfo info;
    info.key = u"Am"_qs;
    m_dialog->setOtherInfo(info);
    QTest::keyClick(find<QComboBox>("keyComboBox"), Qt::Key_Down);
    m_dialog->getInfo(info);
    QCOMPARE(info.key, u"C"_qs);
}

BRISEL_TEST(QApplication, TestDataEditKept)
#include "tst_dataeditkept.moc"
