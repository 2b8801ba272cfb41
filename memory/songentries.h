#pragma once

#include <QByteArray>
#include <QMultiHash>
#include <QSet>
#include <QString>

namespace brisel
{

class MemoryContents;

/// The entries of playlists that name certain songs of a memory, as far as its index knows these.
/// An entry names a song if it has the song's id and, if the index has one, its title.
class SongEntries
{
public:
    /// For songs of \a contents, which must outlive this.
    explicit SongEntries(const MemoryContents &contents);

    /// Adds the song at the absolute path \a path, if the index has it. To be called while the file
    /// exists, because the index may have its name in other letters.
    void add(const QString &path);
    /// Takes the song at \a path, which was added, out again.
    void remove(const QString &path);

    /// The number of entries of the songs file \a songs that name one of the songs.
    [[nodiscard]] qsizetype countIn(const QByteArray &songs) const;
    /// The number of playlists that have such an entry.
    [[nodiscard]] int playlists() const;
    /// The records of \a records, the songs or the path file of a playlist whose songs file is
    /// \a songs, without those of such entries; only whole records.
    [[nodiscard]] QByteArray without(const QByteArray &records, const QByteArray &songs) const;

private:
    [[nodiscard]] bool isOne(const QByteArray &songs, qsizetype entry) const;

    const MemoryContents &m_contents;
    QMultiHash<QByteArray, qsizetype> m_byKey; ///< positions by the sort keys of their paths
    QMultiHash<QString, qsizetype> m_byPath;   ///< positions of the songs by absolute path
    QSet<qsizetype> m_songs;                   ///< their positions
};

} // namespace brisel
