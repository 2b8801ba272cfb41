#include "songfile/rawmidifile.h"
#include "tests/logcapture.h"
#include "tests/songfile/loadedmidi.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QElapsedTimer>
#include <QtTest>

using namespace brisel;

using namespace Qt::StringLiterals;
using Samples::kordiaEvent;
using Samples::metaEvent;
using Samples::midi;

class TestHostileMidi : public QObject
{
    Q_OBJECT

private slots:
    void staysFastOnHostileData_data();
    void staysFastOnHostileData();
    void survivesEveryTruncation();
    void survivesEveryLengthByte();
    void worksWithoutData();

private:
    static void useEverything(RawMidiFile &file);
};

void TestHostileMidi::staysFastOnHostileData_data()
{
    QTest::addColumn<QByteArray>("piece");
    QTest::newRow("patterns alone") << Samples::bytes("\0\xFF\x4B");
    QTest::newRow("artists") << kordiaEvent(2, "x");
    QTest::newRow("empty removals") << Samples::bytes("\0\xFF\x4B\xFC\x02");
    QTest::newRow("one-byte removals") << Samples::bytes("\0\xFF\x4B\xFD\x02");
    QTest::newRow("markers that claim the rest") << Samples::bytes("\xFF\x4B\x01\x06");
    QTest::newRow("markers of length 0") << Samples::bytes("\xFF\x4B\x00\x06");
    QTest::newRow("markers of length 255") << Samples::bytes("\xFF\x4B\xFF\x06xxxx");
    QTest::newRow("titles") << Samples::bytes("\0\xFF\x03\x80");
    QTest::newRow("keys") << Samples::bytes("\0\xFF\x59\x00");
    QTest::newRow("keys after pauses") << Samples::bytes("\x8F\0\xFF\x59\0");
    QTest::newRow("artists of two-byte lengths") << Samples::bytes("\0\xFF\x4B\x80\x01\x02");
    QTest::newRow("titles after a program each") << Samples::bytes("\0\xC0\0\0\xFF\x03\0");
    QTest::newRow("MTrk") << Samples::bytes("MTrk");
    QTest::newRow("FF") << Samples::bytes("\xFF");
}

void TestHostileMidi::staysFastOnHostileData()
{
    QFETCH(const QByteArray, piece);
    constexpr qsizetype size = 1024 * 1024;
    RawMidiFile file = loaded(midi(piece.repeated(size / piece.size())));
    LogCapture log;
    QElapsedTimer timer;
    timer.start();
    useEverything(file);
    QVERIFY2(timer.elapsed() < 4000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(Samples::trackLength(file.stream()), file.stream().size() - 22);
}

void TestHostileMidi::useEverything(RawMidiFile &file)
{
    file.isKordia();
    file.key();
    file.length();
    file.userBpm();
    file.markersList();
    file.setMarkersList({{u"m"_s, 1}});
    file.setTitle(u"t"_s);
    file.setGenre(u"g"_s);
    file.setArtist(u"a"_s);
    file.setAuthor(u"b"_s);
    file.setLength(1);
    file.setUserBpm(2);
    file.setKey(u"G"_s);
    file.insertMarker(u"m"_s, 3);
}

void TestHostileMidi::survivesEveryTruncation()
{
    LogCapture log;
    const QByteArray whole =
        midi(metaEvent(3, "Title") + kordiaEvent(6, Samples::bytes("\0\1A")) +
                 kordiaEvent(2, "Anna") + keyEvent("\x01\x01") + metaEvent(2, "Kordia"),
             1);
    for (int size = 0; size <= whole.size(); ++size) {
        RawMidiFile file;
        if (!file.loadData(whole.left(size)))
            continue;
        QVERIFY(size >= 18);
        useEverything(file);
        if (size >= 22)
            QCOMPARE(file.title(), u"t"_s);
        else
            QCOMPARE(file.stream().size(), size);
    }
}

void TestHostileMidi::survivesEveryLengthByte()
{
    LogCapture log;
    const QByteArray whole =
        midi(metaEvent(3, "Title") + kordiaEvent(6, Samples::bytes("\0\1A")) +
                 kordiaEvent(2, "Anna") + keyEvent("\x01\x01") + metaEvent(2, "Kordia"),
             1);
    for (int index = 14; index < whole.size(); ++index) {
        for (const int value : {0, 1, 0x7F, 0x80, 0xFF}) {
            QByteArray data = whole;
            data[index] = static_cast<char>(value);
            RawMidiFile file;
            if (!file.loadData(data))
                continue;
            const bool wasRight = Samples::trackLength(data) == Samples::trackBytes(data);
            useEverything(file);
            if (wasRight)
                QCOMPARE(Samples::trackLength(file.stream()), Samples::trackBytes(file.stream()));
        }
    }
}

void TestHostileMidi::worksWithoutData()
{
    RawMidiFile file;
    QCOMPARE(file.fileType(), SongInfo::Unknown);
    useEverything(file);
    file.updateTrackSize();
    QVERIFY(file.stream().isEmpty());
    QVERIFY(!file.hasTitle() && !file.hasMarkers() && !file.hasKey());
    QCOMPARE(file.dbgInsertMarker(u"x"_s, 1), 0);
    QCOMPARE(RawMidiFile::indexOfKordiaMetaevent({}, 5, RawMidiFile::Genre), -1);
    QCOMPARE(RawMidiFile::indexOfKordiaMetaevent("\xFF\x4B", 0, RawMidiFile::Genre), -1);
}

BRISEL_TEST(QCoreApplication, TestHostileMidi)
#include "tst_hostilemidi.moc"
