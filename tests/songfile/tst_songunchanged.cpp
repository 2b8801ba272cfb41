#include "tests/id3/handmadetag.h"
#include "tests/logcapture.h"
#include "tests/songfile/songs.h"
#include "tests/testprogram.h"

#include <QtTest>

#include <memory>

using namespace brisel;

using namespace Qt::StringLiterals;
using HandMade::bytes;
using HandMade::tag;
using Samples::header;
using Samples::infoOf;
using Samples::kordiaEvent;
using Samples::metaEvent;
using Samples::opened;

namespace
{

/// The song \a content after \a change was applied to its record and saved by hand.
template <typename Change>
QByteArray savedByHand(const QString &name, const QByteArray &content, Change change)
{
    MetaSong song = opened(name, content);
    SongInfo info = infoOf(song);
    change(info);
    song.setSongInfo(info, true);
    if (!song.saveToFile(name))
        qFatal("not saved");
    return Samples::read(name);
}

void setTempo(SongInfo &info)
{
    info.userBpm = 97;
}

/// A MIDI file of one track.
QByteArray fileOf(const QByteArray &track)
{
    return bytes("MThd\0\0\0\6\0\0\0\1\0\x60MTrk\0\0\0") + static_cast<char>(track.size()) + track;
}

/// The header of a saved container, without its sizes.
QByteArray headOf(const QByteArray &container)
{
    QByteArray head = container.left(512);
    return head.replace(4, 4, QByteArray(4, '\0')).replace(12, 4, QByteArray(4, '\0'));
}

} // namespace

/// Saves by hand in which the user did not change a field.
class TestSongUnchanged : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_log = std::make_unique<LogCapture>(); }
    void cleanup() { m_log.reset(); }

    void keepsFramesThatHoldMore();
    void keepsFramesOfVersion22();
    void keepsALengthToTheMillisecond();
    void movesPlainFrames();
    void writesChangedFields();
    void removesATextThatTheUserTookAway();
    void keepsExistingFieldsInASynchronisation();
    void synchronisesNoArtistOverOneThatCantBeRead();
    void keepsBytesAfterAContainersText();
    void writesATextOfAContainerWithoutItsBlanks();
    void writesChangedFieldsOfAContainer();
    void writesAnEmptyFieldOfAContainer();
    void keepsDeltaTimesOfATrackThatCannotBeWalked_data();
    void keepsDeltaTimesOfATrackThatCannotBeWalked();
    void movesEventsThatLoseNothing();
    void keepsEventsThatHoldMore();

private:
    std::unique_ptr<LogCapture> m_log;
};

void TestSongUnchanged::keepsFramesThatHoldMore()
{
    const QByteArray title = bytes("TIT2\0\0\0\x0D\0\0\1\xFF\xFE"
                                   "C\0i\0t\0t\0\xE0\0");
    const QByteArray artist = bytes("TPE1\0\0\0\x0B\0\0\3Al\xC3\xAC\0Two\0");
    const QByteArray genre = bytes("TCON\0\0\0\x08\0\x09\0\0\0\5xxxx");
    const QByteArray audio = Samples::audio(60);
    const QByteArray written = bytes("MEDT\0\0\0\4\0\0\0\0\0\0TBPM\0\0\0\3\0\0\0"
                                     "97");
    QCOMPARE(savedByHand(u"a.mp3"_s, tag(4, 0, title + artist + genre) + audio, setTempo),
             tag(4, 0, written + title + artist + genre) + audio);
    // Again with an existing tempo.
    QCOMPARE(savedByHand(u"a.mp3"_s, tag(4, 0, written + title + artist + genre) + audio,
                         [](SongInfo &info) { info.userBpm = 98; }),
             tag(4, 0,
                 bytes("TBPM\0\0\0\3\0\0\0"
                       "98") +
                     written.first(14) + title + artist + genre) +
                 audio);
}

void TestSongUnchanged::keepsFramesOfVersion22()
{
    const QByteArray title = bytes("TT2\0\0\x0D\1\xFF\xFE"
                                   "C\0i\0t\0t\0\xE0\0");
    const QByteArray artist = bytes("TP1\0\0\7\0One\0\0x");
    QCOMPARE(savedByHand(u"a.mp3"_s, tag(2, 0, title + artist), setTempo),
             tag(2, 0,
                 bytes("MED\0\0\4\0\0\0\0TBP\0\0\3\0"
                       "97") +
                     title + artist));
}

void TestSongUnchanged::keepsALengthToTheMillisecond()
{
    const QByteArray length = bytes("TLEN\0\0\0\7\0\0\0"
                                    "185999");
    const QByteArray written = bytes("MEDT\0\0\0\4\0\0\0\0\0\0TBPM\0\0\0\3\0\0\0"
                                     "97");
    QCOMPARE(savedByHand(u"a.mp3"_s, tag(3, 0, length), setTempo), tag(3, 0, written + length));
    const QByteArray tempo = bytes("TBPM\0\0\0\6\0\0\0"
                                   "120.5");
    QCOMPARE(savedByHand(u"a.mp3"_s, tag(3, 0, tempo), [](SongInfo &info) { info.key = u"C"_s; }),
             tag(3, 0, bytes("MEDT\0\0\0\4\0\0\0\0\0\0TKEY\0\0\0\2\0\0\0C") + tempo));
}

void TestSongUnchanged::movesPlainFrames()
{
    // A frame that is written again moves to the start.
    const QByteArray title = bytes("TIT2\0\0\0\3\0\0\0La");
    const QByteArray artist = bytes("TPE1\0\0\0\3\0\0\0Io");
    const QByteArray album = bytes("TALB\0\0\0\2\0\0\0A");
    const QByteArray written = bytes("MEDT\0\0\0\4\0\0\0\0\0\0");
    const QByteArray tempo = bytes("TBPM\0\0\0\3\0\0\0"
                                   "97");
    QCOMPARE(savedByHand(u"a.mp3"_s, tag(3, 0, title + album + artist), setTempo),
             tag(3, 0, written + artist + tempo + title + album));
}

void TestSongUnchanged::writesChangedFields()
{
    const QByteArray title = bytes("TIT2\0\0\0\x0D\0\0\1\xFF\xFE"
                                   "C\0i\0t\0t\0\xE0\0");
    const QByteArray artist = bytes("TPE1\0\0\0\x08\0\0\0One\0Two");
    QCOMPARE(savedByHand(u"a.mp3"_s, tag(3, 0, title + artist),
                         [](SongInfo &info) { info.artist = u"Io"_s; }),
             tag(3, 0, bytes("MEDT\0\0\0\4\0\0\0\0\0\0TPE1\0\0\0\3\0\0\0Io") + title));
}

void TestSongUnchanged::removesATextThatTheUserTookAway()
{
    const QByteArray artist = bytes("TPE1\0\0\0\x08\0\0\0One\0Two");
    QCOMPARE(
        savedByHand(u"a.mp3"_s, tag(3, 0, artist), [](SongInfo &info) { info.artist.clear(); }),
        tag(3, 0, bytes("MEDT\0\0\0\4\0\0\0\0\0\0")));
}

void TestSongUnchanged::keepsExistingFieldsInASynchronisation()
{
    const auto synchronised = [](const QString &name, const QByteArray &content) {
        MetaSong song = opened(name, content);
        SongInfo info = infoOf(song);
        song.setSongInfo(info, false);
        return song.saveToFile(name) ? Samples::read(name) : QByteArray();
    };
    const QByteArray artist = bytes("TPE1\0\0\0\4\0\0\0A\0B");
    const QByteArray rest = bytes("TIT2\0\0\0\2\0\0\0TTCOM\0\0\0\2\0\0\0CTCON\0\0\0\2\0\0\0G"
                                  "MEDT\0\0\0\4\0\0\0\0\0\0");
    QCOMPARE(synchronised(u"a.mp3"_s, tag(4, 0, artist + rest)), tag(4, 0, artist + rest));
    const QByteArray titles = metaEvent(3, "T") + metaEvent(3, "T and more");
    const QByteArray events = titles + kordiaEvent(1, "G") + kordiaEvent(2, "A") +
                              kordiaEvent(2, "B") + kordiaEvent(3, "C") +
                              kordiaEvent(6, bytes("\0\1M"));
    QCOMPARE(synchronised(u"a.mid"_s, Samples::midi(events)), Samples::midi(events));
}

void TestSongUnchanged::synchronisesNoArtistOverOneThatCantBeRead()
{
    const QByteArray artist = bytes("TPE1\0\0\0\5\0\4Exxxx");
    MetaSong song = opened(u"a.mp3"_s, tag(4, 0, artist));
    SongInfo info = infoOf(song);
    info.artist = u"Catalogue's"_s;
    info.altArtist = u"Other"_s;
    song.setSongInfo(info, false);
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QVERIFY(Samples::read(u"a.mp3"_s).contains(artist));
    QVERIFY(!Samples::read(u"a.mp3"_s).contains("Other"));
}

void TestSongUnchanged::keepsBytesAfterAContainersText()
{
    const QByteArray head = header(Samples::titleField, bytes("La\0old rest"))
                                .replace(Samples::genreField, 8, bytes("Polka\0\0x"));
    const QByteArray saved = savedByHand(u"a.zb3"_s, Samples::container(head, Samples::midi()),
                                         [](SongInfo &info) { info.artist = u"Io"_s; });
    QByteArray expected = head;
    expected.replace(Samples::artistField, 2, "Io");
    QCOMPARE(headOf(saved), headOf(expected));
}

void TestSongUnchanged::writesATextOfAContainerWithoutItsBlanks()
{
    const QByteArray head = header(Samples::artistField, QByteArray("Io").leftJustified(32, ' '))
                                .replace(Samples::authorField, 4, "  Me");
    const QByteArray saved = savedByHand(u"a.zb3"_s, Samples::container(head, Samples::midi()),
                                         [](SongInfo &info) { info.title = u"La"_s; });
    QByteArray expected = header(Samples::titleField, "La");
    expected.replace(Samples::artistField, 2, "Io").replace(Samples::authorField, 2, "Me");
    QCOMPARE(headOf(saved), headOf(expected));
}

void TestSongUnchanged::writesChangedFieldsOfAContainer()
{
    const QByteArray head =
        header(Samples::titleField, bytes("La\0old rest"))
            .replace(Samples::artistField, 32, QByteArray("Io").leftJustified(32, ' '));
    const QByteArray saved =
        savedByHand(u"a.zb3"_s, Samples::container(head, Samples::midi()), [](SongInfo &info) {
            info.title = u"Lo"_s;
            info.artist = u"Tu"_s;
        });
    QByteArray expected = header(Samples::titleField, "Lo");
    expected.replace(Samples::artistField, 2, "Tu");
    QCOMPARE(headOf(saved), headOf(expected));
}

void TestSongUnchanged::writesAnEmptyFieldOfAContainer()
{
    const QByteArray head = header(Samples::titleField, bytes("La\0old rest"));
    const QByteArray saved = savedByHand(u"a.zb3"_s, Samples::container(head, Samples::midi()),
                                         [](SongInfo &info) { info.title.clear(); });
    QCOMPARE(headOf(saved), headOf(header(Samples::titleField, {})));
}

void TestSongUnchanged::keepsDeltaTimesOfATrackThatCannotBeWalked_data()
{
    QTest::addColumn<QByteArray>("track");
    QTest::addColumn<QByteArray>("before");
    const QByteArray note = bytes("\0\x90\x3C\x40");
    const QByteArray key = bytes("\x8F\0\xFF\x59\2\0\0");
    const QByteArray title = bytes("\x8F\0\xFF\x03\2La");
    const QByteArray clock = bytes("\0\xF8");
    const QByteArray cut = bytes("\x60\x80\x3C");
    const QByteArray titleWritten = metaEvent(3, {});
    QTest::newRow("a key and a clock") << note + key + clock << titleWritten;
    QTest::newRow("a clock and a key") << note + clock + key << titleWritten;
    QTest::newRow("a key and half an event") << note + key + cut << titleWritten;
    QTest::newRow("a title and a clock") << note + title + clock << QByteArray();
    QTest::newRow("a clock and a title") << note + clock + title << QByteArray();
    QTest::newRow("a title and half an event") << note + title + cut << QByteArray();
}

void TestSongUnchanged::keepsDeltaTimesOfATrackThatCannotBeWalked()
{
    QFETCH(const QByteArray, track);
    QFETCH(const QByteArray, before);
    QCOMPARE(savedByHand(u"a.mid"_s, fileOf(track), setTempo),
             fileOf(kordiaEvent(1, {}) + kordiaEvent(2, {}) + kordiaEvent(5, "97") +
                    kordiaEvent(3, {}) + before + kordiaEvent(4, "0") + track));
}

void TestSongUnchanged::movesEventsThatLoseNothing()
{
    // An event that is written again moves to the start.
    const QByteArray note = bytes("\0\x90\x3C\x40");
    const QByteArray key = bytes("\0\xFF\x59\2\1\0");
    QCOMPARE(savedByHand(u"a.mid"_s,
                         fileOf(note + kordiaEvent(4, "0185") + metaEvent(3, bytes(" La \0\0")) +
                                kordiaEvent(1, " Pop ") + key + kordiaEvent(5, {})),
                         [](SongInfo &info) { info.artist = u"Io"_s; }),
             fileOf(kordiaEvent(1, "Pop") + kordiaEvent(2, "Io") + kordiaEvent(5, "0") +
                    kordiaEvent(3, {}) + metaEvent(3, "La") + kordiaEvent(4, "185") + key + note));
}

void TestSongUnchanged::keepsEventsThatHoldMore()
{
    const QByteArray track = bytes("\0\x90\x3C\x40") + kordiaEvent(4, "3:05") +
                             metaEvent(3, bytes("La\0more")) + kordiaEvent(1, "Pop") +
                             kordiaEvent(1, "Folk") + bytes("\x60\x80\x3C\x40") +
                             bytes("\0\xFF\x59\2\1\0");
    QCOMPARE(savedByHand(u"a.mid"_s, fileOf(track), setTempo),
             fileOf(kordiaEvent(2, {}) + kordiaEvent(5, "97") + kordiaEvent(3, {}) + track));
}

BRISEL_TEST(QCoreApplication, TestSongUnchanged)
#include "tst_songunchanged.moc"
