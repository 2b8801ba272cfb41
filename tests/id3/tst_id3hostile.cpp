#include "id3/id3plain.h"
#include "id3/id3text.h"
#include "tests/id3/handmadetag.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using HandMade::bytes;
using HandMade::tag;

namespace
{

constexpr qsizetype megabyte = 1000000;

const QByteArrayList fieldNames{"TIT2", "TPE1", "TCOM", "TCON", "TKEY",
                                "TLEN", "TBPM", "TCOP", "MEDT", "TALB"};

/// The samples: versions 2.2, 2.3 and 2.4, each with flags, texts of several encodings, a frame
/// with frames inside, and padding.
QByteArrayList sampleTags()
{
    const QByteArray inner = bytes("TIT2\0\0\0\3\0\0\0In");
    return {tag(2, 0x80,
                bytes("TT2\0\0\x09"
                      "\1\xFF\0\xFEL\0a\0\0\0"
                      "TP1\0\0\3\0Al"
                      "COM\0\0\x08\0engTP1\0"
                      "TLE\0\0\4\0"
                      "999") +
                    QByteArray(9, '\0')),
            tag(3, 0x40,
                bytes("\0\0\0\x0A"
                      "\x80\0"
                      "\0\0\0\5"
                      "\1\2\3\4") +
                    bytes("PRIV\0\0\0\x0F\0\0"
                          "x\0") +
                    inner +
                    bytes("TIT2\0\0\0\5\0\x20"
                          "G\0La\0"
                          "TCON\0\0\0\6\0\x80"
                          "\0\0\0\3xx"
                          "TPE1\0\0\0\0\0\0") +
                    QByteArray(5, '\0')),
            tag(4, 0x90,
                bytes("TIT2\0\0\0\x0C\0\3"
                      "\0\0\0\7"
                      "\3L\xC3\xA0\0Re"
                      "\0")
                        .replace("\3L", bytes("\3L")) +
                    bytes("TPE1\0\0\1\1\0\0\0") + QByteArray(128, 'y') +
                    bytes("TXXX\0\0\0\x0F\0\0"
                          "\0\0") +
                    inner)};
}

/// Reads everything from \a stored, as it is and in its plain form, and checks all positions.
void readAll(const QByteArray &stored, qint64 end)
{
    for (const QByteArray &tag : {stored, Id3Plain::tag(stored)}) {
        const Id3Frames frames(tag, end);
        QVERIFY(frames.framesStart() >= 0);
        QVERIFY(frames.framesEnd() >= frames.framesStart() ||
                frames.framesEnd() == std::min<qint64>(tag.size(), end));
        for (const QByteArray &id : fieldNames) {
            const std::optional<Id3Frame> frame = frames.find(tag, id, tag.size());
            if (!frame)
                continue;
            QVERIFY(frame->start >= 0 && frame->size > 0);
            QVERIFY(frame->start + frame->size <= tag.size());
            QVERIFY(frame->isSearched || frame->start + frame->size <= frames.framesEnd());
            QVERIFY(frames.content(tag, *frame).size() <= frame->size);
            QVERIFY(Id3Text::read(frames.content(tag, *frame), megabyte).size() <= megabyte);
        }
        QByteArray rewritten = tag;
        frames.makeSizesSynchsafe(rewritten);
        QCOMPARE(rewritten.size(), tag.size());
    }
}

} // namespace

class TestId3Hostile : public QObject
{
    Q_OBJECT

private slots:
    void readsTheSamples();
    void survivesEveryByte();
    void survivesEveryTruncation();
    void survivesEveryEnd();
    void walksAMegabyteOfTinyFrames();
    void readsAMegabyteOfOneByte();
    void readsAMegabyteOfOneName();
};

void TestId3Hostile::readsTheSamples()
{
    const QByteArrayList titles{bytes("\1\xFF\xFEL\0a\0\0\0"), bytes("\0La\0"),
                                bytes("\3L\xC3\xA0\0Re\0")};
    const QByteArrayList samples = sampleTags();
    for (qsizetype i = 0; i < samples.size(); ++i) {
        const HandMade::Walked walked(Id3Plain::tag(samples.at(i)));
        QVERIFY(walked.frames.endsInPadding());
        QCOMPARE(walked.content("TIT2"), titles.at(i));
    }
}

void TestId3Hostile::survivesEveryByte()
{
    for (const QByteArray &sample : sampleTags()) {
        for (qsizetype pos = 3; pos < sample.size(); ++pos) {
            for (int value = 0; value < 256; ++value) {
                QByteArray spoilt = sample;
                spoilt[pos] = static_cast<char>(value);
                readAll(spoilt, spoilt.size());
                if (QTest::currentTestFailed())
                    QFAIL(qPrintable(QStringLiteral("byte %1 as %2").arg(pos).arg(value)));
            }
        }
    }
}

void TestId3Hostile::survivesEveryTruncation()
{
    for (const QByteArray &sample : sampleTags()) {
        for (qsizetype size = 0; size < sample.size(); ++size) {
            readAll(sample.first(size), sample.size());
            readAll(sample.first(size), size);
            QVERIFY2(!QTest::currentTestFailed(), qPrintable(QString::number(size)));
        }
    }
}

void TestId3Hostile::survivesEveryEnd()
{
    for (const QByteArray &sample : sampleTags()) {
        for (const qint64 end : {qint64{10}, qint64{11}, qint64{30}, qint64{sample.size() + 1},
                                 qint64{0x0FFFFFFF + 10}}) {
            readAll(sample, end);
            QVERIFY2(!QTest::currentTestFailed(), qPrintable(QString::number(end)));
        }
    }
}

/// Quadratic work would take minutes.
void TestId3Hostile::walksAMegabyteOfTinyFrames()
{
    const QByteArray tiny23 = bytes("TXXX\0\0\0\1\0\0\0");
    const QByteArray tiny22 = bytes("TXX\0\0\1\0");
    const QByteArray empty = bytes("TXXX\0\0\0\0\0\0");
    const QByteArray title23 = bytes("TIT2\0\0\0\2\0\0\0x");
    const QByteArray title22 = bytes("TT2\0\0\2\0x");
    struct Sample {
        int version;
        QByteArray tiny;
        QByteArray last;
    };
    for (const Sample &sample : {Sample{2, tiny22, title22}, Sample{3, tiny23, title23},
                                 Sample{4, tiny23, title23}, Sample{3, empty, title23}}) {
        const QByteArray many = sample.tiny.repeated(megabyte / sample.tiny.size());
        const HandMade::Walked walked(Id3Plain::tag(tag(sample.version, 0x80, many + sample.last)));
        QVERIFY(walked.frames.endsInPadding());
        QCOMPARE(walked.start("TIT2"), 10 + many.size());
    }
}

void TestId3Hostile::readsAMegabyteOfOneByte()
{
    for (const int version : {2, 3, 4}) {
        for (int value = 0; value < 256; ++value) {
            const QByteArray same(megabyte, static_cast<char>(value));
            const HandMade::Walked walked(Id3Plain::tag(tag(version, 0x80, same)));
            QCOMPARE(walked.start("TIT2"), -1);
            QCOMPARE(walked.frames.endsInPadding(), value == 0);
        }
    }
}

void TestId3Hostile::readsAMegabyteOfOneName()
{
    for (const int version : {2, 3, 4}) {
        const QByteArray names = QByteArray("TIT2").repeated(megabyte / 4);
        const HandMade::Walked walked(Id3Plain::tag(tag(version, 0x80, names)));
        QVERIFY(walked.frames.isUnknown());
        QCOMPARE(walked.start("TIT2"), 10);
    }
}

BRISEL_TEST(QCoreApplication, TestId3Hostile)
#include "tst_id3hostile.moc"
