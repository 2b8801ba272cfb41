#include "player/karaoke.h"
#include "tests/literalbytes.h"
#include "tests/midibytes.h"
#include "tests/testprogram.h"

using namespace brisel;

using LiteralBytes::bytes;

/// A syllable each half second.
class TestKaraoke : public QObject
{
    Q_OBJECT

private slots:
    void joinsLyricsUntilALineEnds();
    void readsTextsWithKaraokeMarks();
    void takesNoPlainTexts();
    void prefersLyricsToTexts();
    void endsLongLinesAtAWord();
    void endsALineWithoutWords();
    void readsUtf8AndLatin1();
    void showsTheLastTextThatHasBegun();
};

static QByteArray syllable(int type, const QByteArray &text)
{
    return bytes("\x60\xFF") + static_cast<char>(type) + static_cast<char>(text.size()) + text;
}

static QList<TimedText> linesOf(int type, const QList<QByteArray> &syllables)
{
    QByteArray track;
    for (const QByteArray &text : syllables)
        track += syllable(type, text);
    const auto timeline = SongTimeline::read(MidiBytes::file({track + MidiBytes::endOfTrack()}));
    return timeline.has_value() ? karaokeLines(*timeline) : QList<TimedText>();
}

void TestKaraoke::joinsLyricsUntilALineEnds()
{
    const QList<TimedText> lines = linesOf(5, {"Vo", "la", "re\r", "oh ", "oh\n", "/can", "ta"});
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(0), (TimedText{500, u"Volare"_qs}));
    QCOMPARE(lines.at(1), (TimedText{2000, u"oh oh"_qs}));
    QCOMPARE(lines.at(2), (TimedText{3000, u"canta"_qs}));
}

void TestKaraoke::readsTextsWithKaraokeMarks()
{
    const QList<TimedText> lines =
        linesOf(1, {"@KMIDI KARAOKE FILE", "@TThe title", "\\Nel ", "blu", "/di", "pinto"});
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.at(0), (TimedText{1500, u"Nel blu"_qs}));
    QCOMPARE(lines.at(1), (TimedText{2500, u"dipinto"_qs}));
}

void TestKaraoke::takesNoPlainTexts()
{
    QCOMPARE(linesOf(1, {"made by somebody", "for a/player"}).size(), 0);
    QCOMPARE(linesOf(5, {}).size(), 0);
    QCOMPARE(linesOf(5, {" ", "\r", ""}).size(), 0);
}

void TestKaraoke::prefersLyricsToTexts()
{
    const QByteArray track = syllable(1, "\\text") + syllable(5, "lyric");
    const auto timeline = SongTimeline::read(MidiBytes::file({track + MidiBytes::endOfTrack()}));
    QVERIFY(timeline.has_value());
    QCOMPARE(karaokeLines(*timeline), QList{(TimedText{1000, u"lyric"_qs})});
}

void TestKaraoke::endsLongLinesAtAWord()
{
    const QList<TimedText> lines = linesOf(5, QList<QByteArray>(20, "parola "));
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(0).text, (QStringList(QList<QString>(8, u"parola"_qs)).join(u' ')));
    QCOMPARE(lines.at(1).ms, 500 * 9);
}

void TestKaraoke::endsALineWithoutWords()
{
    const QList<TimedText> lines = linesOf(5, QList<QByteArray>(100, "abc"));
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(0).text.size(), 120);
}

void TestKaraoke::readsUtf8AndLatin1()
{
    QCOMPARE(eventText(bytes("perch\xE9")), u"perché"_qs);
    QCOMPARE(eventText(bytes("perch\xC3\xA9")), u"perché"_qs);
    QCOMPARE(eventText(bytes("a\x00\x1B\x7F") + "b"), u"a   b"_qs);
}

void TestKaraoke::showsTheLastTextThatHasBegun()
{
    const QList<TimedText> texts{{100, u"A"_qs}, {200, u"B"_qs}, {200, u"C"_qs}};
    QCOMPARE(textAt(texts, 99), QString());
    QCOMPARE(textAt(texts, 100), u"A"_qs);
    QCOMPARE(textAt(texts, 199), u"A"_qs);
    QCOMPARE(textAt(texts, 5000), u"C"_qs);
    QCOMPARE(textAt({}, 5), QString());
}

BRISEL_TEST(QCoreApplication, TestKaraoke)
#include "tst_karaoke.moc"
