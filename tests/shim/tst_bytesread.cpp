#include "index/songhead.h"
#include "songfile/metasong.h"
#include "tests/shim/shim.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;
using namespace Samples;

namespace
{

constexpr int audioSize = 5000000;
/// The first bytes show the format and the size of a tag: they may be read twice.
constexpr int headSize = 16;
/// A save recognises the song by the first bytes of its audio.
constexpr int audioHead = 4096;

/// The number of bytes read below the working folder while \a read runs.
template <typename Read>
qint64 bytesReadBy(Read read)
{
    Shim::arm(QFile::encodeName(QDir::currentPath()).constData(), 0, Shim::Kill);
    read();
    Shim::disarm();
    return Shim::bytesRead();
}

qint64 bytesReadByImport(const QString &path, SongInfo &info)
{
    MetaSong song;
    bool isRead = false;
    const qint64 bytes = bytesReadBy([&] {
        isRead = song.importFile(path);
        song.getSongInfo(info);
    });
    return isRead ? bytes : -1;
}

} // namespace

class TestBytesRead : public QObject
{
    Q_OBJECT

private slots:
    void countsWhatIsRead();
    void readsOnlyTheHeadOfAnMp3();
    void readsAsLittleOfAnMp3WithoutATag();
    void readsOtherSongsOnce_data();
    void readsOtherSongsOnce();
    void readsOnlyTheHeadForARecord();
};

void TestBytesRead::countsWhatIsRead()
{
    write(u"file"_s, QByteArray(12345, 'x'));
    QCOMPARE(bytesReadBy([] { QCOMPARE(read(u"file"_s).size(), 12345); }), 12345);
    QCOMPARE(bytesReadBy([] {}), 0);
}

void TestBytesRead::readsOnlyTheHeadOfAnMp3()
{
    const QByteArray song = tag(frame("TIT2", "A song") + frame("TPE1", "An artist"));
    write(u"song.mp3"_s, song + audio(audioSize));
    SongInfo info;
    const qint64 bytes = bytesReadByImport(u"song.mp3"_s, info);
    QCOMPARE(info.artist, u"An artist"_s);
    QVERIFY2(bytes >= song.size() && bytes <= song.size() + audioHead + headSize,
             QByteArray::number(bytes).constData());
}

void TestBytesRead::readsAsLittleOfAnMp3WithoutATag()
{
    write(u"song.mp3"_s, audio(audioSize));
    SongInfo info;
    const qint64 bytes = bytesReadByImport(u"song.mp3"_s, info);
    QVERIFY2(bytes > 0 && bytes <= audioHead + 2 * headSize, QByteArray::number(bytes).constData());
}

void TestBytesRead::readsOtherSongsOnce_data()
{
    const QByteArray song = midi(metaEvent(3, "A song") + metaEvent(1, QByteArray(100, 'x')), 1);
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("MIDI") << u"song.mid"_s << song + QByteArray(100000, '\0');
    QTest::newRow("container") << u"song.zb3"_s << container(containerHeader("_ZB3", 512), song);
}

void TestBytesRead::readsOtherSongsOnce()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, content);
    write(name, content);
    SongInfo info;
    const qint64 bytes = bytesReadByImport(name, info);
    QVERIFY2(bytes >= content.size() && bytes <= content.size() + headSize,
             QByteArray::number(bytes).constData());
}

void TestBytesRead::readsOnlyTheHeadForARecord()
{
    write(u"song.mp3"_s, tag(frame("TIT2", "A song")) + audio(audioSize));
    QByteArray prefix;
    FileState state;
    bool isRead = false;
    const auto read = [&] { isRead = SongHead::read(u"song.mp3"_s, prefix, state); };
    QCOMPARE(bytesReadBy(read), qint64{SongHead::prefixSize});
    QVERIFY(isRead);
}

BRISEL_TEST(QCoreApplication, TestBytesRead)
#include "tst_bytesread.moc"
