#pragma once

#include <QByteArray>
#include <QHash>

#include <cstddef>

namespace brisel
{

class PlainFile;

/// Identifies the content of a song file: docs/formats/history.md, "Checksums".
struct Fingerprint {
    static constexpr qint64 checkedAudio = 4096; ///< bytes of an MP3's audio that are checked

    QByteArray checksum; ///< 16 bytes; empty if the file was not read
    qint64 size = 0;     ///< of the file, in bytes
    /// The bytes of an MP3 before its audio; -1 for the other formats, whose whole file is checked.
    qint64 tagSize = -1;

    /// Of a MIDI file or container with this content.
    static Fingerprint ofWhole(const QByteArray &content);
    /// Of an MP3 of \a size bytes that starts with \a tag and then \a audio, of which only the
    /// first #checkedAudio bytes count: the audio is never changed.
    static Fingerprint ofMp3(const QByteArray &tag, const QByteArray &audio, qint64 size);

    /// The checksum of \a file for the same size and tagSize; empty if it can't be read, or if more
    /// than MetaSong::maxSongSize would have to be read.
    QByteArray checksumOf(const PlainFile &file) const;
    /// Returns true if \a file has this content. Reads nothing if its size differs.
    [[nodiscard]] bool isOf(const PlainFile &file) const;

    bool operator==(const Fingerprint &other) const = default;
};

inline std::size_t qHash(const Fingerprint &fingerprint, std::size_t seed = 0)
{
    return qHashMulti(seed, fingerprint.checksum, fingerprint.size, fingerprint.tagSize);
}

} // namespace brisel
