#include "library/lastlist.h"
#include "tests/fulldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QCoreApplication>
#include <QDir>
#include <QTest>

#include <sys/stat.h>

using namespace brisel;

/// The file in which the list of songs is kept for the next start, against bytes written by hand.
class TestLastList : public QObject
{
    Q_OBJECT

private slots:
    void writesAnArrayOfPaths();
    void readsWhatWasWritten_data();
    void readsWhatWasWritten();
    void readsNothingFromInvalidFiles_data();
    void readsNothingFromInvalidFiles();
    void keepsTheListBeforeAnEmptyOne();
    void writesAnUnchangedListOnce();
    void keepsTheOldFileOnAFullDisk();
    void waitsForNoPipe();
    void isInTheDataFolder();
};

void TestLastList::writesAnArrayOfPaths()
{
    LastList(u"new/folder/list.json"_qs).keep({u"/a/b.mid"_qs, u"/è \"x\"\n.mp3"_qs});
    QCOMPARE(fileContent(u"new/folder/list.json"_qs),
             QByteArray("[\"/a/b.mid\",\"/\xc3\xa8 \\\"x\\\"\\n.mp3\"]"));
}

void TestLastList::readsWhatWasWritten_data()
{
    QTest::addColumn<QStringList>("songs");
    QTest::newRow("one") << QStringList(u"/a.mid"_qs);
    QTest::newRow("signs") << QStringList(
        {u"/a\\b.mid"_qs, u"/\t,[]{}.mid"_qs, u"/\u0416\u4e2d.mid"_qs});
    QStringList many;
    for (int i = 0; i < 65535; ++i)
        many.append(u"/home/anna/basi musicali/liscio/canzone numero %1.mid"_qs.arg(i));
    QTest::newRow("65535") << many;
}

void TestLastList::readsWhatWasWritten()
{
    QFETCH(QStringList, songs);
    LastList(u"list.json"_qs).keep(songs);
    QVERIFY(LastList(u"list.json"_qs).exists());
    QCOMPARE(LastList(u"list.json"_qs).songs(), songs);
}

void TestLastList::readsNothingFromInvalidFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut") << QByteArray("[\"/a.mid\",\"/b");
    QTest::newRow("object") << QByteArray("{\"songs\":[\"/a.mid\"]}");
    QTest::newRow("no paths") << QByteArray("[1,null,[\"/a.mid\"],\"a.mid\",\"\"]");
    QTest::newRow("deep") << QByteArray(100000, '[');
}

void TestLastList::readsNothingFromInvalidFiles()
{
    QFETCH(QByteArray, bytes);
    makeFile(u"invalid.json"_qs, bytes);
    QCOMPARE(LastList(u"invalid.json"_qs).songs(), QStringList());
    QCOMPARE(LastList(u"missing.json"_qs).songs(), QStringList());
    QVERIFY(!LastList(u"missing.json"_qs).exists());
}

void TestLastList::keepsTheListBeforeAnEmptyOne()
{
    LastList list(u"kept.json"_qs);
    list.keep({u"/a.mid"_qs});
    list.keep({});
    QCOMPARE(list.songs(), QStringList(u"/a.mid"_qs));
}

void TestLastList::writesAnUnchangedListOnce()
{
    LastList list(u"once.json"_qs);
    list.keep({u"/a.mid"_qs});
    makeFile(u"once.json"_qs, "[]");
    list.keep({u"/a.mid"_qs});
    QCOMPARE(fileContent(u"once.json"_qs), QByteArray("[]"));
    list.keep({u"/b.mid"_qs});
    QCOMPARE(fileContent(u"once.json"_qs), QByteArray("[\"/b.mid\"]"));
}

void TestLastList::keepsTheOldFileOnAFullDisk()
{
    LastList list(u"full.json"_qs);
    list.keep({u"/a.mid"_qs});
    {
        const FullDisk disk(4);
        list.keep({u"/b.mid"_qs});
    }
    QCOMPARE(fileContent(u"full.json"_qs), QByteArray("[\"/a.mid\"]"));
    QCOMPARE(QDir().entryList({u"full*"_qs}, QDir::Files | QDir::Hidden).size(), 1);
    list.keep({u"/b.mid"_qs}); // not taken for written
    QCOMPARE(list.songs(), QStringList(u"/b.mid"_qs));
}

void TestLastList::waitsForNoPipe()
{
    QCOMPARE(mkfifo("pipe.json", 0600), 0);
    LastList list(u"pipe.json"_qs);
    QVERIFY(!list.exists());
    QCOMPARE(list.songs(), QStringList());
    list.keep({u"/a.mid"_qs});
    QVERIFY(!list.exists());
}

void TestLastList::isInTheDataFolder()
{
    QVERIFY(QDir::isAbsolutePath(LastList::defaultPath()));
    QVERIFY(LastList::defaultPath().endsWith(u"/lastlist.json"_qs));
}

BRISEL_TEST(QCoreApplication, TestLastList)
#include "tst_lastlist.moc"
