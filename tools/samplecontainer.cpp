#include "songfile/lzhuff.h"
#include "tools/samplesongs.h"

#include <utility>

namespace brisel
{

namespace SampleSongs
{

namespace
{

void putText(QByteArray &header, int offset, int width, const QString &text)
{
    const QByteArray bytes = text.toLatin1().left(width);
    header.replace(offset, bytes.size(), bytes);
}

void putNumber(QByteArray &header, int offset, int bytes, qsizetype value)
{
    for (int i = 0; i < bytes; ++i)
        header[offset + i] = static_cast<char>(value >> (8 * i));
}

/// The second generation has three more bytes at the start of the first track, which the track's
/// length does not include.
QByteArray withTrackMark(QByteArray midi)
{
    return midi.insert(midi.indexOf("MTrk") + 8, "\xFF\x00\xFF", 3);
}

} // namespace

QByteArray container(SongInfo::fileTypeEnum generation, const SongInfo &info,
                     const QByteArray &midi)
{
    QByteArray header(generation == SongInfo::Zb5 ? 1024 : 512, '\0');
    const QByteArray data = generation == SongInfo::Zb4 ? withTrackMark(midi) : midi;
    QByteArray packed;
    LzHuff().compress(data, packed);

    header.replace(0, 4, "_ZB" + QByteArray::number(generation));
    putNumber(header, 4, 4, header.size() + packed.size());
    putNumber(header, 12, 4, data.size());
    putNumber(header, 38, 2, info.userBpm);
    putText(header, 42, 13, info.zbxLongName);
    putText(header, 90, 20, u"(C) Kordia"_qs);
    putText(header, 122, 32, info.title);
    putText(header, 154, 31, u"Kordia"_qs);
    putNumber(header, 185, 1, info.zbxFlags);
    putText(header, 186, 32, info.author);
    putText(header, 218, 32, info.artist);
    putText(header, 250, 32, info.genre);
    return header + packed;
}

} // namespace SampleSongs

} // namespace brisel
