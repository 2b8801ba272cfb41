#include "bench/songmemory.h"

#include "tests/midibytes.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>

namespace brisel
{

namespace
{

using MidiBytes::kordiaEvent;
using MidiBytes::metaEvent;

constexpr quint32 seed = 1;
constexpr int songSize = 4000; ///< bytes: more than the index reads

struct Texts {
    QByteArray title;
    QByteArray artist;
    QByteArray genre;
};

QByteArray midiSong(const Texts &texts, QRandomGenerator &random)
{
    QByteArray track = metaEvent(3, texts.title) + kordiaEvent(2, texts.artist) +
                       kordiaEvent(1, texts.genre) + metaEvent(0x51, QByteArray::fromHex("07A120"));
    while (track.size() < songSize) {
        const char note = static_cast<char>(random.bounded(0x80));
        for (int i = 0; i < 10; ++i)
            track += QByteArray("\x10\x90", 2) + note + '\x40';
        track += metaEvent(5, "la");
    }
    return MidiBytes::file({track});
}

QByteArray frame(const QByteArray &identifier, const QByteArray &text)
{
    return identifier + QByteArray("\0\0\0", 3) + static_cast<char>(text.size() + 1) +
           QByteArray("\0\0\0", 3) + text;
}

QByteArray mp3Song(const Texts &texts)
{
    return QByteArray("ID3\3\0\0\0\0\1\0", 10) + frame("TIT2", texts.title) +
           frame("TPE1", texts.artist) + frame("TCON", texts.genre) + QByteArray(songSize, '\xFB');
}

QByteArray containerSong(const Texts &texts)
{
    constexpr int titleAt = 138;
    constexpr int artistAt = 234;
    constexpr int genreAt = 266;
    QByteArray song(songSize, '\0');
    song.replace(0, 4, "_ZB4");
    song.replace(titleAt, texts.title.size(), texts.title);
    song.replace(artistAt, texts.artist.size(), texts.artist);
    song.replace(genreAt, texts.genre.size(), texts.genre);
    return song;
}

void put(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can't lay %s", qPrintable(path));
}

} // namespace

SongMemory::SongMemory(int songs, int folders)
{
    constexpr int artists = 3000;
    constexpr int genres = 40;
    constexpr int inTwenty = 20; // of twenty songs twelve are MIDI files and five MP3s
    QRandomGenerator random(seed);
    for (int i = 0; i < folders; ++i)
        QDir(root()).mkdir(QStringLiteral("F%1").arg(i));
    for (int i = 0; i < songs; ++i) {
        const Texts texts{"Love Song " + QByteArray::number(random.bounded(songs * 2)),
                          "Artist " + QByteArray::number(random.bounded(artists)),
                          "Genre " + QByteArray::number(random.bounded(genres))};
        const QString path = QStringLiteral("%1/F%2/S%3").arg(root()).arg(i % folders).arg(i);
        if (i % inTwenty < 12)
            put(path + QStringLiteral(".MID"), midiSong(texts, random));
        else if (i % inTwenty < 17)
            put(path + QStringLiteral(".MP3"), mp3Song(texts));
        else
            put(path + QStringLiteral(".ZB4"), containerSong(texts));
    }
}

} // namespace brisel
