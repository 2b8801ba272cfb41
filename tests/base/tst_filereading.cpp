#include "base/filereading.h"
#include "tests/testprogram.h"

#include <QDateTime>
#include <QFile>
#include <QTest>

#include <limits>
#include <utility>

#include <sys/stat.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

const QString songName = u"song.mid"_s;
const QDateTime songMoment(QDate(2004, 2, 29), QTime(23, 59, 58), Qt::UTC);

} // namespace

/// Reading a whole file, and the start of a file.
class TestFileReading : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void readsWholeFilesUpToALimit();
    void givesTheReasonWhyAFileIsNotRead();
    void refusesAFileThatChangesItsSize();
    void readsPiecesOfAnOpenFile();
    void keepsReadingTheFileThatWasOpened();
    void readsTheStartAndGivesTheState();
    void readsAllOfAShortFile();
    void readsOnlyPlainFiles();
    void doesNotWaitForFifos();
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
    const FileContent whole = readWholeFile(songName, 8);
    QCOMPARE(whole.result, ReadResult::Done);
    QCOMPARE(whole.bytes, QByteArray("MThd1234"));
    QVERIFY(whole.state == fileState(songName));
    QCOMPARE(whole.state.size, 8);
    const FileContent tooLarge = readWholeFile(songName, 7);
    QCOMPARE(tooLarge.result, ReadResult::TooLarge);
    QVERIFY(tooLarge.bytes.isEmpty());
    QVERIFY(tooLarge.state == fileState(songName));
}

void TestFileReading::givesTheReasonWhyAFileIsNotRead()
{
    QVERIFY(QFile::link(u"loop"_s, u"loop"_s));
    QCOMPARE(::mkfifo("pipe.mid", 0600), 0);
    const auto refusal = [](const QString &path, FileKind kind) {
        const FileContent content = readWholeFile(path, 1 << 20);
        return content.state.kind == kind && content.bytes.isEmpty() ? content.result
                                                                     : ReadResult::Done;
    };
    QCOMPARE(refusal(u"missing.mid"_s, FileKind::Missing), ReadResult::NotOpened);
    QCOMPARE(refusal(u"loop"_s, FileKind::Unreachable), ReadResult::NotOpened);
    QCOMPARE(refusal(u"."_s, FileKind::Folder), ReadResult::NoPlainFile);
    QCOMPARE(refusal(u"pipe.mid"_s, FileKind::Other), ReadResult::NoPlainFile);
    QCOMPARE(refusal(u"/dev/zero"_s, FileKind::Other), ReadResult::NoPlainFile);
    const FileContent closed = readWholeFile(PlainFile(), 1 << 20);
    QCOMPARE(closed.result, ReadResult::NotOpened);
    QVERIFY(closed.bytes.isEmpty());
}

void TestFileReading::refusesAFileThatChangesItsSize()
{
    for (const qint64 size : {7, 9}) {
        QFile file(u"growing.mid"_s);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        QCOMPARE(file.write("MThd1234"), 8);
        QVERIFY(file.flush());
        PlainFile open;
        QVERIFY(open.open(file.fileName()));
        QVERIFY(file.resize(size));
        const FileContent content = readWholeFile(open, 1 << 20);
        QCOMPARE(content.result, ReadResult::CutShort);
        QVERIFY(content.bytes.isEmpty());
    }
}

void TestFileReading::readsPiecesOfAnOpenFile()
{
    PlainFile file;
    QByteArray bytes("left over");
    QVERIFY(!file.read(0, 0, bytes) && bytes.isEmpty());
    QVERIFY(file.open(songName));
    QVERIFY(file.isOpen() && file.handle() >= 0);
    QCOMPARE(file.size(), 8);
    QVERIFY(file.state() == fileState(songName));
    QVERIFY(file.read(4, 4, bytes));
    QCOMPARE(bytes, QByteArray("1234"));
    QVERIFY(file.read(8, 0, bytes) && bytes.isEmpty());
    for (const auto &[pos, count] : {std::pair<qint64, qsizetype>{4, 5},
                                     {9, 0},
                                     {-1, 1},
                                     {0, -1},
                                     {1, std::numeric_limits<qsizetype>::max()}}) {
        bytes = "left over";
        QVERIFY(!file.read(pos, count, bytes));
        QVERIFY(bytes.isEmpty());
    }
    QVERIFY(!file.open(u"."_s));
    QVERIFY(!file.isOpen() && file.handle() == -1);
}

void TestFileReading::keepsReadingTheFileThatWasOpened()
{
    QVERIFY(QFile::copy(songName, u"swapped.mid"_s));
    PlainFile file;
    QVERIFY(file.open(u"swapped.mid"_s));
    QVERIFY(QFile::remove(u"swapped.mid"_s));
    QCOMPARE(::mkfifo("swapped.mid", 0600), 0);
    QByteArray bytes;
    QVERIFY(file.read(0, 8, bytes));
    QCOMPARE(bytes, QByteArray("MThd1234"));
    QVERIFY(file.state() != fileState(u"swapped.mid"_s));
}

void TestFileReading::readsTheStartAndGivesTheState()
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
    FileState state = fileState(songName);
    QVERIFY(!readFileStart(u"missing.mid"_s, 4, start, state));
    QCOMPARE(state.kind, FileKind::Missing);
    QVERIFY(start.isEmpty());
    QVERIFY(!readFileStart(u"."_s, 4, start, state));
    QCOMPARE(state.kind, FileKind::Folder);
    QVERIFY(!readFileStart(QString(), 4, start, state));
    QCOMPARE(state.kind, FileKind::Missing);
}

void TestFileReading::doesNotWaitForFifos()
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
