#include "tools/samplesongs.h"

#include <QMap>

#include <algorithm>
#include <utility>

namespace brisel
{

namespace SampleSongs
{

namespace
{

constexpr int ticksPerQuarter = 96;
constexpr int ticksPerSixteenth = ticksPerQuarter / 4;
constexpr int introBars = 4;
constexpr int endingBars = 2;

// Meta-events of the Standard MIDI File.
constexpr int metaText = 0x01;
constexpr int metaCopyright = 0x02;
constexpr int metaTrackName = 0x03;
constexpr int metaMarker = 0x06;
constexpr int metaEndOfTrack = 0x2F;
constexpr int metaTempo = 0x51;
constexpr int metaTimeSignature = 0x58;
constexpr int metaKeySignature = 0x59;
// The maker's own meta-event, and its kinds.
constexpr int metaKordia = 0x4B;
constexpr int kordiaGenre = 1;
constexpr int kordiaArtist = 2;
constexpr int kordiaAuthor = 3;
constexpr int kordiaLength = 4;
constexpr int kordiaUserBpm = 5;
constexpr int kordiaMarker = 6;
constexpr qsizetype longestText = 125; ///< bytes: the player's lengths are single bytes

// Channels and General MIDI sounds.
constexpr int chordChannel = 0;
constexpr int bassChannel = 1;
constexpr int melodyChannel = 3;
constexpr int drumChannel = 9;
constexpr int piano = 0;
constexpr int fingeredBass = 33;
constexpr int flute = 73;
constexpr int bassDrum = 36;
constexpr int snareDrum = 38;
constexpr int closedHiHat = 42;

QByteArray bigEndian(quint32 value, int bytes)
{
    QByteArray data;
    while (bytes-- > 0)
        data.append(static_cast<char>(value >> (8 * bytes)));
    return data;
}

QByteArray variableLength(quint32 value)
{
    QByteArray data(1, static_cast<char>(value & 0x7F));
    while ((value >>= 7) != 0)
        data.prepend(static_cast<char>((value & 0x7F) | 0x80));
    return data;
}

QByteArray meta(int type, const QByteArray &data)
{
    QByteArray event("\xFF");
    event.append(static_cast<char>(type));
    return event + variableLength(static_cast<quint32>(data.size())) + data;
}

QByteArray textMeta(int type, const QString &text)
{
    return meta(type, text.toLatin1().left(longestText));
}

QByteArray kordiaMeta(int kind, const QByteArray &data)
{
    return meta(metaKordia, static_cast<char>(kind) + data.left(longestText));
}

/// The events of one track, collected in any order.
class Track
{
public:
    /// Events of one tick keep the order in which they were added, ends of notes first.
    void add(int tick, const QByteArray &event) { m_events[{tick, 1}].append(event); }

    void addNote(int channel, int tick, int length, int pitch, int velocity)
    {
        const char on[] = {static_cast<char>(0x90 | channel), static_cast<char>(pitch),
                           static_cast<char>(velocity)};
        const char off[] = {static_cast<char>(0x80 | channel), static_cast<char>(pitch), 64};
        m_events[{tick, 1}].append(QByteArray(on, 3));
        m_events[{tick + length, 0}].append(QByteArray(off, 3));
    }

    void addProgram(int channel, int sound)
    {
        const char event[] = {static_cast<char>(0xC0 | channel), static_cast<char>(sound)};
        add(0, QByteArray(event, 2));
    }

    void take(const Track &other)
    {
        for (auto event = other.m_events.begin(); event != other.m_events.end(); ++event)
            m_events[event.key()].append(event.value());
    }

    /// The whole chunk; the track ends at \a lastTick.
    QByteArray chunk(int lastTick) const
    {
        QByteArray data;
        int now = 0;
        for (auto events = m_events.begin(); events != m_events.end(); ++events) {
            for (const QByteArray &event : events.value()) {
                data += variableLength(static_cast<quint32>(events.key().first - now)) + event;
                now = events.key().first;
            }
        }
        data += variableLength(static_cast<quint32>(std::max(0, lastTick - now)));
        data += meta(metaEndOfTrack, {});
        return "MTrk" + bigEndian(static_cast<quint32>(data.size()), 4) + data;
    }

private:
    QMap<std::pair<int, int>, QList<QByteArray>> m_events; ///< by tick, then ends before starts
};

struct Chord {
    int root = 0; ///< half tones above C
    bool isMinor = false;
    bool isSeventh = false;
};

Chord parseChord(const QString &name)
{
    static const QString letters = QStringLiteral("C D EF G A B");
    const int accidental = static_cast<int>(name.mid(1).count(u'#') - name.mid(1).count(u'b'));
    const int root = static_cast<int>(letters.indexOf(name.at(0))) + accidental;
    return {(root + 12) % 12, name.contains(u'm'), name.contains(u'7')};
}

/// Sharps as a positive number, flats as a negative one.
int sharpsOf(const QString &key)
{
    static const QString fifths = QStringLiteral("FCGDAEB");
    const int accidental = static_cast<int>(key.mid(1).count(u'#') - key.mid(1).count(u'b'));
    const int major = static_cast<int>(fifths.indexOf(key.at(0))) - 1 + 7 * accidental;
    return key.endsWith(u'-') ? major - 3 : major;
}

/// A song that is being made.
class Arrangement
{
public:
    explicit Arrangement(const MidiOptions &options) : m_options(options), m_tune(options.tune) {}

    QByteArray file()
    {
        addHead();
        addMelody();
        addAccompaniment();
        if (m_options.karaoke)
            addWords();
        const int end = tickOfBar(introBars + m_options.verses * m_tune.bars() + endingBars);
        QList<Track> tracks{m_head, m_melody, m_chords, m_bass, m_drums};
        if (m_options.karaoke)
            tracks.append(m_words);
        if (m_options.format == 0) {
            for (qsizetype i = 1; i < tracks.size(); ++i)
                tracks.first().take(tracks.at(i));
            tracks.resize(1);
        }
        QByteArray file = "MThd" + bigEndian(6, 4) + bigEndian(m_options.format, 2) +
                          bigEndian(static_cast<quint32>(tracks.size()), 2) +
                          bigEndian(ticksPerQuarter, 2);
        for (const Track &track : std::as_const(tracks))
            file += track.chunk(end);
        return file;
    }

private:
    /// Bars are counted from 0.
    int tickOfBar(int bar) const { return bar * m_tune.barLength() * ticksPerSixteenth; }

    void name(Track &track, const char *text) const
    {
        if (m_options.format == 1)
            track.add(0, meta(metaTrackName, text));
    }

    void addHead()
    {
        const SongInfo &info = m_options.info;
        if (!info.title.isEmpty())
            m_head.add(0, textMeta(metaTrackName, info.title));
        m_head.add(0, meta(metaCopyright, info.isKordia ? "(C) Kordia" : "Public domain"));
        addKordiaEvents();
        if (m_options.karaoke) {
            m_head.add(0, meta(metaText, "@KMIDI KARAOKE FILE"));
            m_head.add(0, meta(metaText, "@V0100"));
        }
        const int bpm = m_options.bpm > 0 ? m_options.bpm : m_tune.bpm;
        m_head.add(0, meta(metaTempo, bigEndian(60000000 / static_cast<quint32>(bpm), 3)));
        const char signature[] = {static_cast<char>(m_tune.beats), 2, 24, 8};
        m_head.add(0, meta(metaTimeSignature, QByteArray(signature, 4)));
        if (!info.key.isEmpty()) {
            const char key[] = {static_cast<char>(sharpsOf(info.key)),
                                static_cast<char>(info.key.endsWith(u'-') ? 1 : 0)};
            m_head.add(0, meta(metaKeySignature, QByteArray(key, 2)));
        }
        for (const Marker &marker : info.markers)
            m_head.add(tickOfBar(marker.bar - 1), textMeta(metaMarker, marker.text));
    }

    void addKordiaEvents()
    {
        const SongInfo &info = m_options.info;
        for (const auto &[kind, text] :
             {std::pair(kordiaGenre, info.genre), std::pair(kordiaArtist, info.artist),
              std::pair(kordiaAuthor, info.author)}) {
            if (!text.isEmpty())
                m_head.add(0, kordiaMeta(kind, text.toLatin1()));
        }
        for (const auto &[kind, number] :
             {std::pair(kordiaLength, info.length), std::pair(kordiaUserBpm, info.userBpm)}) {
            if (number > 0)
                m_head.add(0, kordiaMeta(kind, QByteArray::number(number)));
        }
        for (const Marker &marker : info.markers)
            m_head.add(0, kordiaMeta(kordiaMarker, bigEndian(static_cast<quint32>(marker.bar), 2) +
                                                       marker.text.toLatin1()));
    }

    void addMelody()
    {
        name(m_melody, "Melodia");
        m_melody.addProgram(melodyChannel, flute);
        for (int verse = 0; verse < m_options.verses; ++verse) {
            int tick =
                tickOfBar(introBars + verse * m_tune.bars()) - m_tune.pickup * ticksPerSixteenth;
            for (const Note &note : m_tune.melody) {
                const int length = note.length * ticksPerSixteenth;
                if (note.pitch > 0)
                    m_melody.addNote(melodyChannel, tick, length - 2, note.pitch, 96);
                tick += length;
            }
        }
    }

    void addAccompaniment()
    {
        name(m_chords, "Accordi");
        name(m_bass, "Basso");
        name(m_drums, "Batteria");
        m_chords.addProgram(chordChannel, piano);
        m_bass.addProgram(bassChannel, fingeredBass);
        const int bars = introBars + m_options.verses * m_tune.bars() + endingBars;
        for (int bar = 0; bar < bars; ++bar) {
            // The introduction has the last bars of the verse; the song ends on the chord of the
            // verse's last bar.
            const int ofTune = bar < bars - endingBars
                                   ? (bar - introBars + m_tune.bars()) % m_tune.bars()
                                   : m_tune.bars() - 1;
            addBar(bar, m_tune.chords.at(ofTune));
            addDrums(bar);
        }
    }

    void addBar(int bar, const QString &chords)
    {
        const QStringList names = chords.split(u',');
        for (int beat = 0; beat < m_tune.beats; ++beat) {
            const qsizetype half = names.size() * beat / m_tune.beats;
            const Chord chord = parseChord(names.at(half));
            const int tick = tickOfBar(bar) + beat * ticksPerQuarter;
            const bool isChange = half != names.size() * (beat - 1) / m_tune.beats;
            if (beat == 0 || isChange) {
                m_bass.addNote(bassChannel, tick, ticksPerQuarter - 4, 36 + chord.root, 90);
                continue;
            }
            const int third = chord.isMinor ? 3 : 4;
            const int fifth = 7;
            const int seventh = 10;
            const int base = chord.root < 6 ? 60 + chord.root : 48 + chord.root;
            m_chords.addNote(chordChannel, tick, ticksPerQuarter / 2, base, 70);
            m_chords.addNote(chordChannel, tick, ticksPerQuarter / 2, base + third, 70);
            m_chords.addNote(chordChannel, tick, ticksPerQuarter / 2,
                             base + (chord.isSeventh ? seventh : fifth), 70);
        }
    }

    void addDrums(int bar)
    {
        for (int beat = 0; beat < m_tune.beats; ++beat) {
            const int tick = tickOfBar(bar) + beat * ticksPerQuarter;
            const bool isLow = beat == 0 || (m_tune.beats == 4 && beat == 2);
            m_drums.addNote(drumChannel, tick, ticksPerQuarter / 4, isLow ? bassDrum : snareDrum,
                            isLow ? 90 : 70);
            for (const int offset : {0, ticksPerQuarter / 2})
                m_drums.addNote(drumChannel, tick + offset, ticksPerQuarter / 4, closedHiHat, 50);
        }
    }

    /// The lyrics of the first verse in the form of karaoke players.
    void addWords()
    {
        name(m_words, "Words");
        m_words.add(0, meta(metaText, "@LITAL"));
        m_words.add(0, textMeta(metaText, u"@T"_qs + m_options.info.title));
        int tick = tickOfBar(introBars) - m_tune.pickup * ticksPerSixteenth;
        const qsizetype count = std::min(m_tune.lyrics.size(), m_tune.melody.size());
        for (qsizetype i = 0; i < count; ++i) {
            m_words.add(tick, textMeta(metaText, m_tune.lyrics.at(i)));
            tick += m_tune.melody.at(i).length * ticksPerSixteenth;
        }
    }

    const MidiOptions &m_options;
    const Tune &m_tune;
    Track m_head;
    Track m_melody;
    Track m_chords;
    Track m_bass;
    Track m_drums;
    Track m_words;
};

} // namespace

QByteArray midi(const MidiOptions &options)
{
    return Arrangement(options).file();
}

QList<Marker> markers(const Tune &tune, int verses)
{
    QList<Marker> list{{u"Intro"_qs, 1}};
    for (int verse = 0; verse < verses; ++verse)
        list.append({u"Verse %1"_qs.arg(verse + 1), 1 + introBars + verse * tune.bars()});
    list.append({u"Fine"_qs, 1 + introBars + verses * tune.bars()});
    return list;
}

int seconds(const Tune &tune, int verses, int bpm)
{
    const int beats = (introBars + verses * tune.bars() + endingBars) * tune.beats;
    return (beats * 60 + bpm / 2) / bpm;
}

} // namespace SampleSongs

} // namespace brisel
