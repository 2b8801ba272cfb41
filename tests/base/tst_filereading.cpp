#include "base/filereading.h"
#include "tests/testprogram.h"

#include <QDateTime>
#include <QFile>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

const QString songName = u"song.mid"_s;
const QDateTime songMoment(QDate(2004, 2, 29), QTime(23, 59, 58), Qt::UTC);

} // namespace

/// Reading a whole file, and the start of one.
class TestFileReading : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void readsWholeFilesUpToALimit();
    void readsTheStartAndTellsTheState();
    void readsAllOfAShortFile();
    void readsOnlyPlainFiles();
    void waitsForNoFifo();
};

void TestFileReading::initTestCase()
{
    QFile file(songName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write("MThd1234"), 8);
    QVERIFY(file.flush());
    QVERIFY(file.setFileTime(songMoment, QFileDevice::FileModificationTime));
}

void TestFileReading::readsWholeFilesUpToALimit()
{
    QByteArray content;
    QVERIFY(readPlainFile(songName, 8, content));
    QCOMPARE(content, QByteArray("MThd1234"));
    QVERIFY(!readPlainFile(songName, 7, content));
}

void TestFileReading::readsTheStartAndTellsTheState()
{
    QByteArray start;
    FileState state;
    QVERIFY(readFileStart(songName, 4, start, state));
    QCOMPARE(start, QByteArray("MThd"));
    QCOMPARE(state.kind, FileKind::Regular);
    QCOMPARE(state.modified, songMoment.toSecsSinceEpoch());
    QCOMPARE(fileState(songName).modified, songMoment.toSecsSinceEpoch());
}

void TestFileReading::readsAllOfAShortFile()
{
    QByteArray start("left over");
    FileState state;
    QVERIFY(readFileStart(songName, 3072, start, state));
    QCOMPARE(start, QByteArray("MThd1234"));
    QFile empty(u"empty.mid"_s);
    QVERIFY(empty.open(QIODevice::WriteOnly));
    QVERIFY(readFileStart(empty.fileName(), 3072, start, state));
    QVERIFY(start.isEmpty());
}

void TestFileReading::readsOnlyPlainFiles()
{
    QByteArray start("left over");
    FileState state{FileKind::Regular, 1};
    QVERIFY(!readFileStart(u"missing.mid"_s, 4, start, state));
    QCOMPARE(state.kind, FileKind::Missing);
    QVERIFY(start.isEmpty());
    QVERIFY(!readFileStart(u"."_s, 4, start, state));
    QCOMPARE(state.kind, FileKind::Folder);
    QVERIFY(!readFileStart(QString(), 4, start, state));
    QCOMPARE(state.kind, FileKind::Missing);
}

void TestFileReading::waitsForNoFifo()
{
    QCOMPARE(::mkfifo("fifo.mid", 0600), 0);
    QByteArray start;
    FileState state;
    QVERIFY(!readFileStart(u"fifo.mid"_s, 4, start, state));
    QCOMPARE(state.kind, FileKind::Other);
    QVERIFY(start.isEmpty());
}

BRISEL_TEST(QCoreApplication, TestFileReading)
#include "tst_filereading.moc"
