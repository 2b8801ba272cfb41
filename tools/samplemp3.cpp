#include "tools/samplesongs.h"

#include <utility>

namespace brisel
{

namespace SampleSongs
{

namespace
{

// MPEG-1 Layer III, 128 kbit/s, 44.1 kHz, stereo: 144 * bit rate / sample rate bytes a frame; a
// padding byte in most frames makes up for the fraction.
constexpr int sampleRate = 44100;
constexpr int samplesPerFrame = 1152;
constexpr int bytesPerSecondTimes144 = 144 * 128000;

/// Silence: frames whose side information says that nothing is coded.
QByteArray audio(int seconds)
{
    QByteArray data;
    int remainder = 0;
    const int frames = seconds * sampleRate / samplesPerFrame;
    for (int i = 0; i < frames; ++i) {
        remainder += bytesPerSecondTimes144 % sampleRate;
        const bool isPadded = remainder >= sampleRate;
        if (isPadded)
            remainder -= sampleRate;
        QByteArray frame(bytesPerSecondTimes144 / sampleRate + (isPadded ? 1 : 0), '\0');
        frame.replace(0, 3, isPadded ? "\xFF\xFB\x92" : "\xFF\xFB\x90");
        data += frame;
    }
    return data;
}

QByteArray synchsafe(qsizetype size)
{
    QByteArray data;
    for (const int shift : {21, 14, 7, 0})
        data.append(static_cast<char>((size >> shift) & 0x7F));
    return data;
}

QByteArray plainSize(qsizetype size, int bytes)
{
    QByteArray data;
    while (bytes-- > 0)
        data.append(static_cast<char>(size >> (8 * bytes)));
    return data;
}

/// The names of the fields that we write, in version 2.2 and in the later ones.
struct FrameName {
    const char *old;
    const char *current;
};

QByteArray frame(Tag tag, const FrameName &name, const QByteArray &content)
{
    switch (tag) {
    case Tag::Id3v22:
        return name.old + plainSize(content.size(), 3) + content;
    case Tag::Id3v23:
        return name.current + plainSize(content.size(), 4) + QByteArray(2, '\0') + content;
    default:
        return name.current + synchsafe(content.size()) + QByteArray(2, '\0') + content;
    }
}

QByteArray frames(Tag tag, const SongInfo &info)
{
    QList<std::pair<FrameName, QString>> fields{{{"TT2", "TIT2"}, info.title},
                                                {{"TP1", "TPE1"}, info.artist},
                                                {{"TCM", "TCOM"}, info.author},
                                                {{"TCO", "TCON"}, info.genre},
                                                {{"TKE", "TKEY"}, info.key}};
    if (info.length > 0)
        fields.append({{"TLE", "TLEN"}, QString::number(info.length) + u"000"_qs});
    if (info.userBpm > 0)
        fields.append({{"TBP", "TBPM"}, QString::number(info.userBpm)});
    if (info.isKordia)
        fields.append({{"TCR", "TCOP"}, u"2013 Kordia"_qs});
    fields.append({{"TRK", "TRCK"}, u"1"_qs}); // a field that the program does not know

    QByteArray data;
    for (const auto &[name, text] : std::as_const(fields)) {
        if (!text.isEmpty())
            data += frame(tag, name, '\0' + text.toLatin1());
    }
    return data + frame(tag, {"COM", "COMM"}, QByteArray("\0ita\0Base di prova", 18));
}

} // namespace

QByteArray mp3(Tag tag, const SongInfo &info, int seconds)
{
    if (tag == Tag::None)
        return audio(seconds);
    const int padding = 128;
    const QByteArray content = frames(tag, info) + QByteArray(padding, '\0');
    const char version = tag == Tag::Id3v22 ? 2 : tag == Tag::Id3v23 ? 3 : 4;
    return "ID3" + QByteArray(1, version) + QByteArray(2, '\0') + synchsafe(content.size()) +
           content + audio(seconds);
}

QByteArray cdg(int seconds)
{
    const int packetsPerSecond = 300;
    const int packetSize = 24;
    QByteArray data(seconds * packetsPerSecond * packetSize, '\0');
    const char graphics = 9;
    const char memoryPreset = 1;
    const int repeats = 16; // so that a scratch on a disc loses no packet
    for (int i = 0; i < repeats; ++i) {
        data[i * packetSize] = graphics;
        data[i * packetSize + 1] = memoryPreset;
        data[i * packetSize + 5] = static_cast<char>(i); // the number of the repetition
    }
    return data;
}

} // namespace SampleSongs

} // namespace brisel
