#include "songfile/zbxheader.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QtTest>

#include <functional>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

ZbxHeader loadedHeader(const QByteArray &data)
{
    ZbxHeader header;
    if (!header.loadHeader(data))
        qFatal("header refused");
    return header;
}

QByteArray sample()
{
    return Samples::containerHeader("_ZB3", 512);
}

QByteArray sampleWith(int offset, const QByteArray &field)
{
    return sample().replace(offset, field.size(), field);
}

} // namespace

class TestZbxHeader : public QObject
{
    Q_OBJECT

private slots:
    void acceptsEachGeneration();
    void refusesShortHeadersAndKeepsTheType();
    void refusesOtherMagics();
    void readsEachFieldAtItsPlace_data();
    void readsEachFieldAtItsPlace();
    void endsTheEditorWhereTheFlagsBegin();
    void keepsTextOf32CharactersWithoutTerminator();
    void cutsLongerTexts();
    void clearsTheRestOfTheField();
    void trimsAndStopsAtZero();
    void readsAndJudgesTheTempo();
    void writesTheLow16BitsOfTheTempo();
    void addsFlagsOnly();
    void widensFlagsWithTheirSign();
    void writesSizesLittleEndian();
    void changesNothingElse();
    void losesBytesAfterAText_data();
    void losesBytesAfterAText();
    void worksWithoutAHeader();
};

void TestZbxHeader::acceptsEachGeneration()
{
    QCOMPARE(loadedHeader(sample()).fileType(), SongInfo::Zb3);
    QCOMPARE(loadedHeader(Samples::containerHeader("_ZB4", 512)).fileType(), SongInfo::Zb4);
    const QByteArray large = Samples::containerHeader("_ZB5", 1024);
    QCOMPARE(loadedHeader(large).fileType(), SongInfo::Zb5);
    QCOMPARE(loadedHeader(large).header(), large);
}

void TestZbxHeader::refusesShortHeadersAndKeepsTheType()
{
    ZbxHeader header = loadedHeader(Samples::containerHeader("_ZB4", 512));
    QVERIFY(!header.loadHeader(sample().left(511)));
    QCOMPARE(header.fileType(), SongInfo::Zb4);
    QVERIFY(header.header().isEmpty());
    QVERIFY(!header.loadHeader(Samples::containerHeader("_ZB5", 600)));
    QCOMPARE(header.fileType(), SongInfo::Zb4);
    for (int size = 4; size < 1024; ++size)
        QVERIFY(!header.loadHeader(Samples::containerHeader("_ZB5", 1024).left(size)));
    QVERIFY(header.loadHeader(Samples::containerHeader("_ZB5", 1024)));
}

void TestZbxHeader::refusesOtherMagics()
{
    ZbxHeader header = loadedHeader(sample());
    for (const char *magic : {"_ZB2", "_ZB6", "_zb3", "MThd"}) {
        QVERIFY(!header.loadHeader(Samples::containerHeader(magic, 1024)));
        QCOMPARE(header.fileType(), SongInfo::Unknown);
        QVERIFY(header.header().isEmpty());
    }
    for (int size = 0; size < 4; ++size)
        QVERIFY(!header.loadHeader(sample().left(size)));
}

void TestZbxHeader::readsEachFieldAtItsPlace_data()
{
    using Getter = std::function<QString(const ZbxHeader &)>;
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("width");
    QTest::addColumn<Getter>("get");
    QTest::newRow("long name") << 42 << 13 << Getter(&ZbxHeader::longName);
    QTest::newRow("copyright") << 90 << 20 << Getter(&ZbxHeader::copyright);
    QTest::newRow("title") << 122 << 32 << Getter(&ZbxHeader::title);
    QTest::newRow("editor") << 154 << 31 << Getter(&ZbxHeader::editor);
    QTest::newRow("author") << 186 << 32 << Getter(&ZbxHeader::author);
    QTest::newRow("artist") << 218 << 32 << Getter(&ZbxHeader::artist);
    QTest::newRow("genre") << 250 << 32 << Getter(&ZbxHeader::genre);
}

void TestZbxHeader::readsEachFieldAtItsPlace()
{
    QFETCH(const int, offset);
    QFETCH(const int, width);
    QFETCH(const std::function<QString(const ZbxHeader &)>, get);
    QByteArray text(width, 'x');
    text[0] = 'A';
    text[width - 1] = '\xE9';
    QCOMPARE(get(loadedHeader(sampleWith(offset, text))), QString::fromLatin1(text));
    QCOMPARE(get(loadedHeader(sampleWith(offset, "short"))), u"short"_s);
    QCOMPARE(get(loadedHeader(sample())), QString());
}

void TestZbxHeader::endsTheEditorWhereTheFlagsBegin()
{
    const ZbxHeader header = loadedHeader(sampleWith(154, QByteArray(31, 'e') + '\x41'));
    QCOMPARE(header.editor(), QString(31, u'e'));
    QCOMPARE(header.flags(), 0x41);
}

void TestZbxHeader::keepsTextOf32CharactersWithoutTerminator()
{
    ZbxHeader header = loadedHeader(sample());
    const QString title = u"12345678901234567890123456789012"_s;
    header.setTitle(title);
    QCOMPARE(header.header(), sampleWith(122, title.toLatin1()));
    QCOMPARE(header.title(), title);
    header.setArtist(title);
    QCOMPARE(header.artist(), title);
}

void TestZbxHeader::cutsLongerTexts()
{
    ZbxHeader header = loadedHeader(sample());
    header.setTitle(QString(32, u'a') + u"cut off!"_s);
    QCOMPARE(header.title(), QString(32, u'a'));
    QCOMPARE(header.header(), sampleWith(122, QByteArray(32, 'a')));
    header.setGenre(QString(31, u'g') + u'\u20ac' + u'x'); // Latin-1 has no euro sign
    QCOMPARE(header.genre(), QString(31, u'g') + u'?');
}

void TestZbxHeader::clearsTheRestOfTheField()
{
    ZbxHeader header = loadedHeader(sampleWith(186, QByteArray(96, 'o')));
    header.setAuthor(u"New"_s);
    header.setArtist(u"B"_s);
    header.setGenre(QString());
    QCOMPARE(header.header(), sampleWith(186, "New").replace(218, 1, "B"));
    QVERIFY(header.hasAuthor() && header.hasArtist() && !header.hasGenre() && !header.hasTitle());
}

void TestZbxHeader::trimsAndStopsAtZero()
{
    const ZbxHeader header = loadedHeader(sampleWith(122, Samples::bytes(" \tLa la \0rest")));
    QCOMPARE(header.title(), u"La la"_s);
    QVERIFY(!loadedHeader(sampleWith(42, "   ")).hasLongName());
    QVERIFY(loadedHeader(sampleWith(42, "LONG")).hasLongName());
}

void TestZbxHeader::readsAndJudgesTheTempo()
{
    const auto withTempo = [](const QByteArray &two) { return loadedHeader(sampleWith(38, two)); };
    QCOMPARE(withTempo("\x2C\x01").tempo(), 300);
    QVERIFY(withTempo("\x2C\x01").hasValidTempo());
    QVERIFY(!withTempo(QByteArray(2, '\0')).hasValidTempo());
    QVERIFY(withTempo(Samples::bytes("\x01\x00")).hasValidTempo());
    QVERIFY(withTempo("\xF3\x01").hasValidTempo());  // 499
    QVERIFY(!withTempo("\xF4\x01").hasValidTempo()); // 500
    QCOMPARE(withTempo("\xFF\xFF").tempo(), 65535);
}

void TestZbxHeader::writesTheLow16BitsOfTheTempo()
{
    ZbxHeader header = loadedHeader(sample());
    header.setTempo(300);
    QCOMPARE(header.header(), sampleWith(38, "\x2C\x01"));
    header.setTempo(65536 + 7);
    QCOMPARE(header.tempo(), 7);
    header.setTempo(-1);
    QCOMPARE(header.tempo(), 65535);
}

void TestZbxHeader::addsFlagsOnly()
{
    ZbxHeader header = loadedHeader(sampleWith(185, "\x44"));
    header.setFlag(ZbxHeader::HasMarkers);
    header.setFlag(ZbxHeader::HasMarkers);
    QCOMPARE(header.header(), sampleWith(185, "\x45"));
    QCOMPARE(header.flags(), 0x45);
}

void TestZbxHeader::widensFlagsWithTheirSign()
{
    QCOMPARE(loadedHeader(sampleWith(185, "\xC8")).flags(), -56);
    QCOMPARE(loadedHeader(sampleWith(185, "\x7F")).flags(), 127);
}

void TestZbxHeader::writesSizesLittleEndian()
{
    ZbxHeader header = loadedHeader(sample());
    header.setSize(0x81020304);
    header.setOrigSize(0xFFFFFFFF);
    QCOMPARE(header.header(), sampleWith(4, "\x04\x03\x02\x81").replace(12, 4, "\xFF\xFF\xFF\xFF"));
}

void TestZbxHeader::changesNothingElse()
{
    const QByteArray before = Samples::containerHeader("_ZB5", 1024);
    ZbxHeader header = loadedHeader(before);
    header.setTitle(u"t"_s);
    header.setSize(1);
    const QByteArray after = header.header();
    QCOMPARE(after.size(), before.size());
    for (int i = 0; i < before.size(); ++i)
        QVERIFY(after.at(i) == before.at(i) || (i >= 4 && i < 8) || i == 122);
}

void TestZbxHeader::losesBytesAfterAText_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("loses");
    const QString wide(32, u'x');
    QTest::newRow("plain") << QByteArray("La") << u"La"_s << false;
    QTest::newRow("full") << QByteArray(32, 'x') << wide << false;
    QTest::newRow("empty") << QByteArray() << QString() << false;
    QTest::newRow("bytes after the zero") << Samples::bytes("La\0old") << u"La"_s << true;
    QTest::newRow("bytes after an empty text") << Samples::bytes("\0old") << QString() << true;
    QTest::newRow("bytes after blanks") << Samples::bytes(" \0old") << QString() << true;
    QTest::newRow("blanks at the end")
        << QByteArray("La").leftJustified(32, ' ') << u"La"_s << false;
    QTest::newRow("blanks before") << QByteArray("  La") << u"La"_s << false;
    QTest::newRow("blanks alone") << QByteArray(32, ' ') << QString() << false;
    QTest::newRow("blanks after the zero") << Samples::bytes("La\0 ") << u"La"_s << true;
    QTest::newRow("another text") << Samples::bytes("La\0old") << u"Lo"_s << false;
    QTest::newRow("longer than the field") << QByteArray(32, 'x') << wide + u'y' << false;
}

void TestZbxHeader::losesBytesAfterAText()
{
    QFETCH(const QByteArray, field);
    QFETCH(const QString, text);
    QFETCH(const bool, loses);
    using Field = ZbxHeader::Field;
    struct Text {
        int offset;
        Field field;
        QString SongInfo::*member;
    };
    for (const Text &one :
         {Text{122, Field::Title, &SongInfo::title}, Text{186, Field::Author, &SongInfo::author},
          Text{218, Field::Artist, &SongInfo::artist}, Text{250, Field::Genre, &SongInfo::genre}}) {
        const ZbxHeader header = loadedHeader(sampleWith(one.offset, field));
        SongInfo info;
        info.*one.member = text;
        QCOMPARE(header.wouldLose(one.field, info), loses);
    }
    QVERIFY(!ZbxHeader().wouldLose(Field::Title, SongInfo()));
}

void TestZbxHeader::worksWithoutAHeader()
{
    ZbxHeader header;
    header.setTitle(u"x"_s);
    header.setAuthor(u"x"_s);
    header.setArtist(u"x"_s);
    header.setGenre(u"x"_s);
    header.setTempo(1);
    header.setFlag(ZbxHeader::HasMarkers);
    header.setSize(1);
    header.setOrigSize(1);
    QVERIFY(header.header().isEmpty());
    QVERIFY(header.title().isEmpty() && header.longName().isEmpty() && header.editor().isEmpty());
    QVERIFY(header.copyright().isEmpty());
    QCOMPARE(header.flags(), 0);
    QVERIFY(!header.hasValidTempo());
    QCOMPARE(header.fileType(), SongInfo::Unknown);
}

BRISEL_TEST(QCoreApplication, TestZbxHeader)
#include "tst_zbxheader.moc"
