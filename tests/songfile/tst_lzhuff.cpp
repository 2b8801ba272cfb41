#include "songfile/lzhuff.h"
#include "tests/logcapture.h"
#include "tests/songfile/lzhuffmodel.h"
#include "tests/testprogram.h"

#include <QRandomGenerator>
#include <QtTest>

#include <memory>

using namespace brisel;

namespace
{

QByteArray compressed(const QByteArray &text)
{
    QByteArray stream("rest of an older call");
    LzHuff().compress(text, stream);
    return stream;
}

QByteArray expanded(const QByteArray &stream)
{
    QByteArray text("rest of an older call");
    return LzHuff().expand(stream, text) ? text : QByteArray("refused");
}

QByteArray randomBytes(int size, quint32 seed, int kinds = 256)
{
    QRandomGenerator random(seed);
    QByteArray bytes(size, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(random.bounded(kinds));
    return bytes;
}

/// Note events with running status and a few repeated patterns, as in a song.
QByteArray songLikeBytes(int size)
{
    QRandomGenerator random(7);
    QByteArray bytes("MThd\0\0\0\6\0\1\0\4\1\x80MTrk", 18);
    while (bytes.size() < size) {
        const int bar = static_cast<int>(random.bounded(6));
        for (int beat = 0; beat < 8; ++beat) {
            bytes += static_cast<char>(random.bounded(3) * 48);
            bytes += static_cast<char>(0x90 + random.bounded(4));
            bytes += static_cast<char>(36 + bar * 5 + beat % 3);
            bytes += static_cast<char>(60 + random.bounded(8) * 8);
        }
    }
    return bytes.left(size);
}

/// Runs of blanks, each followed by a byte greater, or lesser, than the previous one's: such
/// strings turn an unbalanced tree into a chain.
QByteArray blanksWithTails(int size, int period, bool isRising)
{
    QByteArray bytes(size, ' ');
    for (int i = period, tail = 0; i < size; i += period, tail = (tail + 1) % 200)
        bytes[i] = static_cast<char>(isRising ? 33 + tail : 255 - tail);
    return bytes;
}

} // namespace

class TestLzHuff : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_log = std::make_unique<LogCapture>();
    } // keeps thousands of lines out of the output
    void cleanup() { m_log.reset(); }

    void codesOneLiteral();
    void codesBlanksAsMatchesOfTheInitialRing();
    void codesEveryLiteralOfAFreshTree();
    void writesWhatTheModelWrites_data();
    void writesWhatTheModelWrites();
    void writesWhatTheModelWritesOfEveryShortSize();
    void takesFewStepsForTextsOfDeepTrees_data();
    void takesFewStepsForTextsOfDeepTrees();
    void expandsWhatItCompressed_data();
    void expandsWhatItCompressed();
    void compressesNothingToALengthThatIsRefused();
    void acceptsTheLargestLength();
    void refusesALengthAboveIt();
    void readsMissingLengthBytesAsFF();
    void readsZerosAfterTheEnd();
    void stopsAMatchAtTheAnnouncedLength();
    void endsWithEveryTruncation();
    void readsRandomStreamsAsTheModelDoes();
    void logsTheSizes();
    void canBeUsedAgain();
    void acceptsTheSameArrayForBoth();

private:
    std::unique_ptr<LogCapture> m_log;
};

void TestLzHuff::codesOneLiteral()
{
    // Leaf 65 of a fresh tree: nodes 65, 315, 440, 503, 534, 550, 558, 562 below the root 564;
    // odd nodes are ones, from the root's child down: 0000 1011.
    const QByteArray stream("\x01\0\0\0\x0B", 5);
    QCOMPARE(compressed("A"), stream);
    QCOMPARE(expanded(stream), QByteArray("A"));
}

void TestLzHuff::codesBlanksAsMatchesOfTheInitialRing()
{
    // The first symbol is the longest match, leaf 282: nodes 282, 424, 495, 530, 548, 557, 561,
    // 563: 1110 0100. It is 29 bytes back: upper bits 0, code 000; lower bits 28, 011100.
    const QByteArray stream = compressed(QByteArray(4096, ' '));
    QCOMPARE(stream.left(6), QByteArray("\x00\x10\0\0\xE4\x0E", 6));
    QVERIFY(stream.size() < 250);
    QCOMPARE(expanded(stream), QByteArray(4096, ' '));
    QCOMPARE(compressed(QByteArray(29, ' ')), QByteArray("\x1D\0\0\0\xE4\x0E\0", 7));
}

void TestLzHuff::codesEveryLiteralOfAFreshTree()
{
    for (int byte = 0; byte < 256; ++byte) {
        const QByteArray text(1, static_cast<char>(byte));
        QCOMPARE(compressed(text), modelCompress(text));
        QVERIFY(compressed(text).size() <= 6);
    }
}

void TestLzHuff::writesWhatTheModelWrites_data()
{
    QTest::addColumn<QByteArray>("text");
    for (const int size :
         {2, 3, 27, 28, 29, 30, 31, 40, 56, 57, 58, 59, 100, 4066, 4067, 4068, 4096, 4097, 9000}) {
        QTest::addRow("random %d", size) << randomBytes(size, static_cast<quint32>(size));
        QTest::addRow("two kinds %d", size) << randomBytes(size, 3, 2);
        QTest::addRow("five kinds %d", size) << randomBytes(size, 4, 5);
        QTest::addRow("song %d", size) << songLikeBytes(size);
    }
    QTest::newRow("zeros") << QByteArray(6000, '\0');
    QTest::newRow("blanks") << QByteArray(6000, ' ');
    QTest::newRow("text") << QByteArray("la la la, tra la la; ").repeated(300);
    QTest::newRow("rising tails") << blanksWithTails(12000, 100, true);
    QTest::newRow("falling tails") << blanksWithTails(12000, 37, false);
    QTest::newRow("window ranked thrice") << blanksWithTails(70000, 211, true);
    QTest::newRow("two rebuilt trees") << randomBytes(60000, 5);
    QTest::newRow("rebuilt tree of a song") << songLikeBytes(120000);
}

void TestLzHuff::writesWhatTheModelWrites()
{
    QFETCH(const QByteArray, text);
    const QByteArray stream = compressed(text);
    QVERIFY(stream == modelCompress(text));
    QVERIFY(expanded(stream) == text);
    QVERIFY(modelExpand(stream) == text);
}

void TestLzHuff::writesWhatTheModelWritesOfEveryShortSize()
{
    // A short text is followed by zeros for some strings and by blanks for others.
    for (int size = 1; size < 100; ++size) {
        for (quint32 seed = 0; seed < 20; ++seed) {
            QByteArray text = randomBytes(size, seed, 2);
            text.replace('\1', ' ');
            QVERIFY2(compressed(text) == modelCompress(text), text.toHex().constData());
        }
    }
}

void TestLzHuff::takesFewStepsForTextsOfDeepTrees_data()
{
    QTest::addColumn<QByteArray>("text");
    for (const int period : {30, 37, 100, 211, 1000, 4000}) {
        QTest::addRow("rising tails %d", period) << blanksWithTails(500000, period, true);
        QTest::addRow("falling tails %d", period) << blanksWithTails(500000, period, false);
    }
    QTest::newRow("song") << songLikeBytes(500000);
    QTest::newRow("random") << randomBytes(500000, 2);
    QTest::newRow("two kinds") << randomBytes(500000, 2, 2);
    QTest::newRow("blanks") << QByteArray(500000, ' ');
    QByteArray numbers;
    while (numbers.size() < 500000)
        numbers += QByteArray::number(numbers.size()).rightJustified(7, '0');
    QTest::newRow("numbers") << numbers;
}

void TestLzHuff::takesFewStepsForTextsOfDeepTrees()
{
    QFETCH(const QByteArray, text);
    MatchFinder matches;
    matches.start(text);
    const auto size = static_cast<int>(text.size());
    for (int done = 0; done < size;) {
        const int match = std::min(matches.length(), size - done);
        const int length = match > MatchFinder::threshold ? match : 1;
        done += length;
        for (int left = done < size ? length : 0; left > 0; --left)
            matches.advance(left == 1);
    }
    // A walk from the roots would visit thousands of nodes for each byte here.
    QVERIFY2(matches.visitedNodes() < 100 * text.size(),
             QByteArray::number(matches.visitedNodes()).constData());
}

void TestLzHuff::expandsWhatItCompressed_data()
{
    QTest::addColumn<QByteArray>("text");
    for (const int size : {1, 2, 3, 4, 5, 28, 29, 30, 4095, 4096, 4097, 65535, 65536, 200000}) {
        QTest::addRow("random %d", size) << randomBytes(size, 1);
        QTest::addRow("skewed %d", size) << randomBytes(size, 1, 3);
        QTest::addRow("song %d", size) << songLikeBytes(size);
        QTest::addRow("blanks %d", size) << QByteArray(size, ' ');
    }
    QTest::newRow("random, largest") << randomBytes(500000, 2);
    QTest::newRow("song, largest") << songLikeBytes(500000);
    QTest::newRow("blanks, largest") << QByteArray(500000, ' ');
    QByteArray skewed;
    // Counts like Fibonacci numbers make the deepest tree and so the longest codes.
    for (int symbol = 0, count = 1, next = 1; skewed.size() < 60000; ++symbol) {
        for (int i = 0; i < count; ++i)
            skewed += QByteArray(1, static_cast<char>(symbol)) + static_cast<char>(0x80 + i * 7);
        next += count;
        count = next - count;
    }
    QTest::newRow("deep tree") << skewed;
}

void TestLzHuff::expandsWhatItCompressed()
{
    QFETCH(const QByteArray, text);
    QVERIFY(expanded(compressed(text)) == text);
}

void TestLzHuff::compressesNothingToALengthThatIsRefused()
{
    const QByteArray stream = compressed({});
    QCOMPARE(stream, QByteArray(4, '\0'));
    QByteArray text("old");
    QVERIFY(!LzHuff().expand(stream, text));
    QVERIFY(text.isEmpty());
}

void TestLzHuff::acceptsTheLargestLength()
{
    const QByteArray stream("\x20\xA1\x07\0", 4); // 500000
    QCOMPARE(expanded(stream).size(), 500000);
}

void TestLzHuff::refusesALengthAboveIt()
{
    const LogCapture &log = *m_log;
    QByteArray text;
    QVERIFY(!LzHuff().expand(QByteArray("\x21\xA1\x07\0\x0B", 5), text));
    const QString line = QString(69, u'=') + u' ';
    QCOMPARE(log.messages(),
             QStringList({line,
                          QStringLiteral("WARNING: skipping file, compressed stream "
                                         "corrupted/wrong size !!! "),
                          QStringLiteral("Text size:  500001 "), line,
                          QStringLiteral("Expand: ERROR ")}));
}

void TestLzHuff::readsMissingLengthBytesAsFF()
{
    const LogCapture &log = *m_log;
    for (int size = 0; size < 4; ++size) {
        QByteArray text;
        QVERIFY(!LzHuff().expand(QByteArray("\x01\0\0\0", 4).left(size), text));
    }
    QVERIFY(log.contains(QStringLiteral("Text size:  4294967295 ")));
    QVERIFY(log.contains(QStringLiteral("Text size:  4278190081 ")));
}

void TestLzHuff::readsZerosAfterTheEnd()
{
    // 'A', and then zero bits down the initial tree: 'A' has moved, but not onto that path.
    const QByteArray text = expanded(QByteArray("\x03\0\0\0\x0B", 5));
    QCOMPARE(text.size(), 3);
    QCOMPARE(text, expanded(QByteArray("\x03\0\0\0\x0B\0\0\0\0\0\0", 11)));
}

void TestLzHuff::stopsAMatchAtTheAnnouncedLength()
{
    QCOMPARE(expanded(QByteArray("\x05\0\0\0\xE4\x0E\0", 7)), QByteArray(5, ' '));
}

void TestLzHuff::endsWithEveryTruncation()
{
    const QByteArray text = songLikeBytes(3000);
    const QByteArray stream = compressed(text);
    for (qsizetype size = 4; size < stream.size(); ++size)
        QCOMPARE(expanded(stream.left(size)).size(), 3000);
}

void TestLzHuff::readsRandomStreamsAsTheModelDoes()
{
    // Streams of few different bytes make deep trees, and long streams halve the counts.
    for (quint32 seed = 0; seed < 30; ++seed) {
        QByteArray bytes = randomBytes(20000, seed, seed < 20 ? 256 : 1 << (seed - 20));
        const QByteArray stream = QByteArray("\x20\xA1\0\0", 4) + bytes;
        const QByteArray text = expanded(stream);
        QCOMPARE(text.size(), 0xA120);
        QVERIFY(text == modelExpand(stream));
    }
}

void TestLzHuff::logsTheSizes()
{
    const LogCapture &log = *m_log;
    QCOMPARE(expanded(compressed("A")), QByteArray("A"));
    QCOMPARE(log.messages(), QStringList({QStringLiteral("Compress:  1  -->  5 "),
                                          QStringLiteral("Expand:  5  -->  1 ")}));
}

void TestLzHuff::canBeUsedAgain()
{
    LzHuff codec;
    const QByteArray song = songLikeBytes(50000);
    QByteArray first;
    QByteArray second;
    codec.compress(song, first);
    codec.compress(randomBytes(10, 1), second);
    codec.compress(song, second);
    QVERIFY(first == second);
    QByteArray text;
    QVERIFY(codec.expand(first, text) && text == song);
    QVERIFY(codec.expand(first, text) && text == song);
}

void TestLzHuff::acceptsTheSameArrayForBoth()
{
    QByteArray data("tra la la tra la la");
    LzHuff().compress(data, data);
    QVERIFY(LzHuff().expand(data, data));
    QCOMPARE(data, QByteArray("tra la la tra la la"));
}

BRISEL_TEST(QCoreApplication, TestLzHuff)
#include "tst_lzhuff.moc"
