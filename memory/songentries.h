#pragma once

#include <QByteArray>
#include <QList>
#include <QMultiHash>
#include <QSet>
#include <QString>

namespace brisel
{

class MemoryContents;
class SongFiles;

/// The entries of playlists that name certain songs of a memory, as far as its index knows these.
/// An entry names a song if it has the song's id and, if the index has one, its title.
class SongEntries
{
public:
    /// For songs of \a contents and their files \a files, which must both outlive this.
    SongEntries(const MemoryContents &contents, SongFiles &files);

    /// Adds the song at the absolute path \a path, of the index or of a file, if the index has it.
    /// To be called while the file exists, because the index may have its name in other letters.
    void add(const QString &path);
    /// Takes the song at \a path, which was added, out again.
    void remove(const QString &path);

    /// Returns true if the index has none of the songs.
    [[nodiscard]] bool isEmpty() const { return m_songs.isEmpty(); }
    /// The number of entries of the songs file \a songs that name one of the songs.
    [[nodiscard]] qsizetype countIn(const QByteArray &songs) const;
    /// The number of playlists that have such an entry.
    [[nodiscard]] int playlists() const;
    /// The numbers of all other entries of the songs file \a songs, from 0; half a record at its
    /// end is none.
    [[nodiscard]] QList<quint32> others(const QByteArray &songs) const;

private:
    [[nodiscard]] bool isOne(const QByteArray &songs, qsizetype entry) const;

    const MemoryContents &m_contents;
    SongFiles &m_files;
    QMultiHash<QByteArray, QString> m_paths;  ///< of the index, each once, by sort key
    QMultiHash<QString, qsizetype> m_indexed; ///< positions by the paths of the index
    QMultiHash<QString, qsizetype> m_byPath;  ///< positions of the songs by absolute path
    QSet<qsizetype> m_songs;                  ///< their positions
};

} // namespace brisel
