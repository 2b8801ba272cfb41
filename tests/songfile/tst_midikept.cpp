#include "songfile/rawmidifile.h"
#include "tests/songfile/loadedmidi.h"
#include "tests/songfile/midireader.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QDirIterator>
#include <QtTest>

#include <functional>
#include <random>

using namespace brisel;

using namespace Qt::StringLiterals;
using Samples::bytes;
using Samples::kordiaEvent;
using Samples::metaEvent;

namespace
{

/// Makes songs as other programs write them, with many bytes that look like our events.
class SongMaker
{
public:
    explicit SongMaker(unsigned seed) : m_random(seed) {}

    QByteArray song()
    {
        const int format = upTo(1);
        const int tracks = format == 0 ? 1 : 1 + upTo(2);
        QByteArray file = bytes("MThd\0\0\0\6\0") + char(format) + '\0' + char(tracks) +
                          bytes("\1\xE0") + chunk("MTrk", track());
        for (int i = 1; i < tracks; ++i)
            file += (upTo(3) == 0 ? chunk("XXXX", lookalikes()) : QByteArray()) +
                    chunk("MTrk", track());
        return upTo(2) == 0 ? file + lookalikes() : file;
    }

private:
    int upTo(int most) { return static_cast<int>(m_random() % static_cast<unsigned>(most + 1)); }

    static QByteArray number(quint32 value)
    {
        QByteArray written(1, char(value & 0x7F));
        while ((value >>= 7) != 0)
            written.prepend(char(0x80 | (value & 0x7F)));
        return written;
    }

    static QByteArray chunk(const QByteArray &id, const QByteArray &data)
    {
        QByteArray size;
        for (const int shift : {24, 16, 8, 0})
            size += char(data.size() >> shift & 0xFF);
        return id + size + data;
    }

    /// Bytes that look like events, or like the starts of events.
    QByteArray lookalikes()
    {
        const QList<QByteArray> all{
            metaEvent(3, "T"),   keyEvent("\1\0"),        kordiaEvent(1 + upTo(5), "text"),
            bytes("\0\xFF\x03"), bytes("\0\xFF\x59"),     bytes("\0\xFF\x4B\x7F\x02"),
            bytes("\xFF\x2F\0"), QByteArray(upTo(3), 'x')};
        QByteArray some;
        for (int i = upTo(4); i >= 0; --i)
            some += all.at(upTo(static_cast<int>(all.size()) - 1));
        return some;
    }

    QByteArray delta()
    {
        switch (upTo(7)) {
        case 0:
            return number(1920); // 8F 00
        case 1:
            return number(static_cast<quint32>(128 << upTo(10)));
        case 2:
            return number(static_cast<quint32>(upTo(200000)));
        case 3:
            return bytes("\x80\0"); // another form of zero
        case 4:                     // looks like an event's start after a zero byte
            return QByteArray(1, '\xFF') + QByteArray("\x03\x59\x4B").mid(upTo(2), 1);
        default:
            return bytes("\0");
        }
    }

    static QByteArray sized(const QByteArray &head, const QByteArray &data)
    {
        return head + number(static_cast<quint32>(data.size())) + data;
    }

    QByteArray channelMessage()
    {
        const bool hasTwo = m_status < 0 || upTo(3) != 0;
        if (m_status < 0 || upTo(2) == 0)
            m_status = hasTwo ? 0x90 + upTo(15) : 0xC0 + upTo(15);
        else
            return dataBytes(m_status);
        return char(m_status) + dataBytes(m_status);
    }

    QByteArray dataBytes(int status)
    {
        const QByteArray last(1, char(upTo(2) == 0 ? upTo(127) : 0));
        return status >= 0xC0 ? last : char(upTo(127)) + last;
    }

    QByteArray meta(int type, const QByteArray &data)
    {
        return sized(QByteArray(1, '\xFF') + char(type), data);
    }

    QByteArray text()
    {
        const int length = upTo(20) == 0 ? 128 + upTo(19872) : upTo(30);
        return upTo(4) == 0 ? lookalikes() : QByteArray(length, 't');
    }

    QByteArray event()
    {
        switch (upTo(9)) {
        case 0:
            return meta(0x03, text());
        case 1:
            return meta(0x59, QByteArray(1, char(upTo(7))) + char(upTo(1)));
        case 2:
            return meta(0x4B, char(1 + upTo(5)) + text());
        case 3:
            return meta(1 + upTo(6), lookalikes());
        case 4:
            return meta(0x7F, lookalikes());
        case 5:
            return sized(QByteArray(1, upTo(1) == 0 ? '\xF0' : '\xF7'), lookalikes() + '\xF7');
        default:
            return channelMessage();
        }
    }

    QByteArray track()
    {
        m_status = -1;
        QByteArray events;
        for (int i = upTo(30); i >= 0; --i)
            events += delta() + event();
        if (upTo(5) == 0)
            return events;
        events += delta() + bytes("\xFF\x2F\0");
        return upTo(5) == 0 ? events + lookalikes() : events;
    }

    std::mt19937 m_random;
    int m_status = -1; ///< running, of channel messages
};

/// A change of one field: what it removes and what it writes.
struct HandChange {
    const char *name;
    std::function<void(RawMidiFile &)> make;
    MidiReader::Kind kind;
    QByteArray written;
};

const QList<HandChange> &changes()
{
    static const QString longText(200, u'l');
    static const QByteArray cut(125, 'l');
    static const QList<HandChange> all{
        {"title", [](auto &f) { f.setTitle(u"La"_s); }, {0x03}, metaEvent(3, "La")},
        {"long title", [](auto &f) { f.setTitle(longText); }, {0x03}, metaEvent(3, cut)},
        {"genre", [](auto &f) { f.setGenre(u"Pop"_s); }, {0x4B, 1}, kordiaEvent(1, "Pop")},
        {"artist", [](auto &f) { f.setArtist(longText); }, {0x4B, 2}, kordiaEvent(2, cut)},
        {"author", [](auto &f) { f.setAuthor({}); }, {0x4B, 3}, kordiaEvent(3, {})},
        {"length", [](auto &f) { f.setLength(185); }, {0x4B, 4}, kordiaEvent(4, "185")},
        {"tempo", [](auto &f) { f.setUserBpm(97); }, {0x4B, 5}, kordiaEvent(5, "97")},
        {"key", [](auto &f) { f.setKey(u"F#-"_s); }, {0x59}, keyEvent("\3\1")},
        {"no key", [](auto &f) { f.setKey({}); }, {0x59}, {}},
        {"markers",
         [](auto &f) {
             f.setMarkersList({{longText, 1}, {u"B"_s, 2}});
         },
         {0x4B, 3},
         kordiaEvent(6, bytes("\0\1") + cut.left(124)) + kordiaEvent(6, bytes("\0\2B"))},
        {"a marker more",
         [](auto &f) { f.insertMarker(u"M"_s, 3); },
         {0x4B, 0x100}, // removes nothing
         kordiaEvent(6, bytes("\0\3M"))}};
    return all;
}

/// Describes what is wrong with \a song after \a change; empty if nothing is.
QString brokenBy(const HandChange &change, const QByteArray &song)
{
    RawMidiFile file = loaded(song);
    change.make(file);
    const QString problem =
        MidiReader::whatChanged(song, file.stream(), change.kind, change.written);
    return problem.isEmpty() ? problem : u"%1: %2"_s.arg(QLatin1StringView(change.name), problem);
}

} // namespace

/// A change of one field leaves all other events of all tracks where they are.
class TestMidiKept : public QObject
{
    Q_OBJECT

private slots:
    void keepsEverySong();
    void keepsTheCorpus();
};

void TestMidiKept::keepsEverySong()
{
    constexpr int songs = 1200;
    constexpr unsigned seed = 12;
    SongMaker maker(seed);
    for (int i = 0; i < songs; ++i) {
        const QByteArray song = maker.song();
        QVERIFY(MidiReader::readTracks(song));
        for (const HandChange &change : changes()) {
            const QString problem = brokenBy(change, song);
            QVERIFY2(problem.isEmpty(),
                     qPrintable(u"song %1, %2"_s.arg(QString::number(i), problem)));
        }
    }
}

void TestMidiKept::keepsTheCorpus()
{
    const QString folder = qEnvironmentVariable("BRISEL_CORPUS");
    if (folder.isEmpty())
        QSKIP("BRISEL_CORPUS names no folder with songs");
    int songs = 0;
    QDirIterator files(folder, {u"*.mid"_s, u"*.midi"_s, u"*.kar"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        const QByteArray song = Samples::read(path);
        RawMidiFile file;
        if (!MidiReader::readTracks(song) || !file.loadData(song))
            continue;
        ++songs;
        for (const HandChange &change : changes()) {
            const QString problem = brokenBy(change, song);
            QVERIFY2(problem.isEmpty(), qPrintable(u"%1, %2"_s.arg(path, problem)));
        }
    }
    QVERIFY2(songs > 0, "no song of the folder can be read");
    qInfo("%d songs", songs);
}

BRISEL_TEST(QCoreApplication, TestMidiKept)
#include "tst_midikept.moc"
