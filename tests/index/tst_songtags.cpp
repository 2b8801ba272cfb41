#include "base/songtext.h"
#include "index/songhead.h"
#include "index/songinfoindex.h"
#include "songfile/mp3header.h"
#include "tests/songfile/tagmaker.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

/// The program's and the index's reader of MP3s agree on everything within the player's limits.
class TestSongTags : public QObject
{
    Q_OBJECT

private slots:
    void agreesWithTheProgramsReader_data();
    void agreesWithTheProgramsReader();
};

/// The text at \a id that the index must read from \a header; null if the frame's name crosses the
/// limit.
static QString expected(const Mp3Header &header, const QString &id, const QString &missing)
{
    constexpr int window = 512;
    constexpr int nameSize = 4;
    constexpr int width = 58;
    QString text;
    const int position = header.extractId3Frame(text, id);
    if (position >= 0 && position < window && position + nameSize > window)
        return {};
    if (position < 0 || position >= window || text.isEmpty())
        return missing;
    return trimmedSongText(stringToUpper(text.left(width)));
}

void TestSongTags::agreesWithTheProgramsReader_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 8; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestSongTags::agreesWithTheProgramsReader()
{
    QFETCH(const quint32, seed);
    constexpr int songs = 250;
    const QString unknown = u"<UNKNOWN>"_qs;
    int found = 0;
    TagMaker maker(seed);
    for (int i = 0; i < songs; ++i) {
        const QByteArray song = maker.song(QByteArray("\xFF\xFB\x90\x44").repeated(100));
        Mp3Header header;
        QVERIFY(header.loadHeader(song));
        SongInfoIndex indexed;
        indexed.absolutePath = u"/card/x.mp3"_qs;
        QVERIFY(SongHead::parse(song.left(SongHead::prefixSize), indexed));
        struct Text {
            QString id;
            QString missing;
            QString indexed;
        };
        for (const Text &text : {Text{u"TIT2"_qs, u"X.MP3"_qs, indexed.title},
                                 Text{u"TPE1"_qs, unknown, indexed.artist},
                                 Text{u"TCON"_qs, unknown, indexed.genre}}) {
            const QString told = expected(header, text.id, text.missing);
            if (told.isNull())
                continue;
            const QString problem = u"%1 of %2: \"%3\", not \"%4\""_qs.arg(
                text.id, maker.description(), text.indexed, told);
            QVERIFY2(text.indexed == told, qPrintable(problem));
            found += told != text.missing;
        }
    }
    QVERIFY(found > songs / 2);
}

BRISEL_TEST(QCoreApplication, TestSongTags)
#include "tst_songtags.moc"
