#include "fuzz/keptsongs.h"

#include "fuzz/fuzzing.h"
#include "fuzz/id3parser.h"
#include "songfile/lzhuff.h"
#include "tests/songfile/midireader.h"

#include <algorithm>

namespace brisel
{

namespace
{

constexpr qsizetype longestMidi = 65536; ///< bytes: reading takes time and memory
constexpr qsizetype mostFrames = 4096;

/// The names of the frames that the program writes, in all versions.
const QByteArrayList ownFrames{"TIT2", "TPE1", "TCOM", "TCON", "TKEY", "TLEN", "TBPM", "MEDT",
                               "TT2",  "TP1",  "TCM",  "TCO",  "TKE",  "TLE",  "TBP",  "MED"};

QList<Id3Parser::Frame> otherFrames(const Id3Parser::Tag &tag)
{
    QList<Id3Parser::Frame> frames = tag.frames;
    frames.removeIf([](const Id3Parser::Frame &frame) { return ownFrames.contains(frame.name); });
    return frames;
}

void requireMp3Kept(const QByteArray &before, const QByteArray &after)
{
    const std::optional<Id3Parser::Tag> old = Id3Parser::parse(before, mostFrames);
    if (!old && before.startsWith("ID3"))
        return;
    const std::optional<Id3Parser::Tag> now = Id3Parser::parse(after, mostFrames + 16);
    REQUIRE(now.has_value());
    REQUIRE(after.mid(now->size) == before.mid(old ? old->size : 0));
    if (!old)
        return;
    REQUIRE(now->version == old->version);
    const QList<Id3Parser::Frame> kept = otherFrames(*old);
    const QList<Id3Parser::Frame> found = otherFrames(*now);
    REQUIRE(std::equal(kept.begin(), kept.end(), found.begin(), found.end(),
                       [](const Id3Parser::Frame &a, const Id3Parser::Frame &b) {
                           return a.name == b.name && a.flags == b.flags && a.content == b.content;
                       }));
}

/// The first track's events except for those that the program writes.
QList<MidiReader::Event> otherEvents(const MidiReader::Track &track)
{
    constexpr int title = 0x03;
    constexpr int key = 0x59;
    constexpr int makers = 0x4B;
    constexpr int lastMakersType = 6;
    QList<MidiReader::Event> events = track.events;
    events.removeIf([](const MidiReader::Event &event) {
        if (event.delta != 0 || event.metaType != makers)
            return event.delta == 0 && (event.metaType == title || event.metaType == key);
        const int type = event.data.isEmpty() ? 0 : static_cast<quint8>(event.data.front());
        return type >= 1 && type <= lastMakersType;
    });
    return events;
}

bool isSame(const QList<MidiReader::Event> &a, const QList<MidiReader::Event> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const MidiReader::Event &first, const MidiReader::Event &second) {
                          return first.tick == second.tick && first.status == second.status &&
                                 first.metaType == second.metaType && first.data == second.data;
                      });
}

void requireMidiKept(const QByteArray &before, const QByteArray &after)
{
    if (before.size() > longestMidi)
        return;
    const auto old = MidiReader::readTracks(before);
    if (!old)
        return;
    const auto now = MidiReader::readTracks(after);
    REQUIRE(now && now->size() == old->size());
    REQUIRE(isSame(otherEvents(old->first()), otherEvents(now->first())));
    for (qsizetype i = 1; i < old->size(); ++i)
        REQUIRE(isSame(old->at(i).events, now->at(i).events));
    REQUIRE(after.mid(now->last().end) == before.mid(old->last().end));
}

/// The header without the fields that a save writes.
QByteArray otherHeaderBytes(const QByteArray &file, qsizetype headerSize)
{
    constexpr qsizetype sizes = 4;
    constexpr qsizetype originalSize = 12;
    constexpr qsizetype tempo = 38;
    constexpr qsizetype title = 122;
    constexpr qsizetype flags = 185; // and the texts after it
    constexpr qsizetype textsEnd = 282;
    QByteArray header = file.first(headerSize);
    header.replace(sizes, 4, QByteArray(4, '\0'));
    header.replace(originalSize, 4, QByteArray(4, '\0'));
    header.replace(tempo, 2, QByteArray(2, '\0'));
    header.replace(title, 32, QByteArray(32, '\0'));
    return header.replace(flags, textsEnd - flags, QByteArray(textsEnd - flags, '\0'));
}

QByteArray musicOf(const QByteArray &file, qsizetype headerSize)
{
    constexpr qsizetype trackHeader = 8;
    constexpr qsizetype markSize = 3;
    QByteArray midi;
    REQUIRE(LzHuff().expand(file.mid(headerSize), midi));
    const qsizetype track = midi.indexOf("MTrk");
    return file.startsWith("_ZB4") && track >= 0 ? midi.remove(track + trackHeader, markSize)
                                                 : midi;
}

} // namespace

void requireAllElseKept(const QByteArray &before, const QByteArray &after)
{
    if (before.startsWith("MThd")) {
        requireMidiKept(before, after);
    } else if (before.startsWith("_ZB")) {
        const qsizetype headerSize = before.startsWith("_ZB5") ? 1024 : 512;
        REQUIRE(otherHeaderBytes(before, headerSize) == otherHeaderBytes(after, headerSize));
        requireMidiKept(musicOf(before, headerSize), musicOf(after, headerSize));
    } else {
        requireMp3Kept(before, after);
    }
}

} // namespace brisel
