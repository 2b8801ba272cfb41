#pragma once

#include "tests/midibytes.h"

#include <QByteArray>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

namespace brisel
{

/// A memory in a temporary folder, with the songs and bytes that tests of the index need.
class SampleMemory
{
public:
    SampleMemory() { QDir(m_folder.path()).mkdir(QStringLiteral("CARD")); }

    QString root() const { return m_folder.filePath(QStringLiteral("CARD")); }
    QString path(const QString &name) const { return root() + u'/' + name; }

    void write(const QString &name, const QByteArray &content) const
    {
        QDir().mkpath(path(name).section(u'/', 0, -2));
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("can't write %s", qPrintable(name));
    }

    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
    }

    bool has(const QString &name) const { return QFile::exists(path(name)); }
    void remove(const QString &name) const { QFile::remove(path(name)); }

    /// Sets the modification time of a song.
    void setDate(const QString &name, const QDateTime &moment) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::ReadWrite) ||
            !file.setFileTime(moment, QFileDevice::FileModificationTime))
            qFatal("can't date %s", qPrintable(name));
    }

    /// All files of the root, by name.
    QMap<QString, QByteArray> rootFiles() const
    {
        QMap<QString, QByteArray> files;
        const QStringList names =
            QDir(root()).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
        for (const QString &name : names)
            files.insert(name, read(name));
        return files;
    }

private:
    QTemporaryDir m_folder;
};

namespace Sample
{

using MidiBytes::kordiaEvent;
using MidiBytes::metaEvent;

/// A MIDI file of one track that holds \a events.
inline QByteArray midi(const QByteArray &events)
{
    return MidiBytes::file({events + MidiBytes::endOfTrack()});
}

/// 120 beats per minute.
inline QByteArray midiSong(const QByteArray &title, const QByteArray &artist,
                           const QByteArray &genre)
{
    return midi(metaEvent(3, title) + kordiaEvent(2, artist) + kordiaEvent(1, genre) +
                metaEvent(0x51, QByteArray::fromHex("07A120")));
}

inline QByteArray id3Frame(const QByteArray &identifier, const QByteArray &text)
{
    return identifier + QByteArray("\0\0\0", 3) + static_cast<char>(text.size() + 1) +
           QByteArray("\0\0\0", 3) + text;
}

inline QByteArray mp3(const QByteArray &frames)
{
    return QByteArray("ID3\3\0\0\0\0\1\0", 10) + frames + QByteArray(300, 'x');
}

inline QByteArray mp3Song(const QByteArray &title, const QByteArray &artist,
                          const QByteArray &genre)
{
    return mp3(id3Frame("TIT2", title) + id3Frame("TPE1", artist) + id3Frame("TCON", genre));
}

/// \a text in a field of \a width zero-filled bytes.
inline QByteArray field(const QByteArray &text, int width)
{
    return text.left(width) + QByteArray(width - qMin<int>(width, text.size()), '\0');
}

inline QByteArray hex(const char *text)
{
    return QByteArray::fromHex(text);
}

inline QByteArray pathRecord(const char *idHex, const QByteArray &path, const QByteArray &digits)
{
    return hex(idHex) + field(path, 46) + digits;
}

/// \a endHex: tempo, then flag and type.
inline QByteArray songRecord(const char *idHex, const QByteArray &title, const char *endHex)
{
    return hex(idHex) + field(title, 58) + hex(endHex);
}

/// \a countsHex: songs of the group before, songs of this one.
inline QByteArray groupHeader(const char *countsHex, const QByteArray &name)
{
    return hex(countsHex) + field(name, 58) + hex("00FF");
}

/// An alphabet table with the entries (byte position, big-endian offset).
inline QByteArray alphabet(const QList<std::pair<int, const char *>> &entries)
{
    QByteArray table(256, '\xFF');
    for (const auto &[position, offset] : entries)
        table.replace(position, 4, hex(offset));
    return table;
}

} // namespace Sample

} // namespace brisel
