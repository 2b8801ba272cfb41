#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace brisel
{

/// A song record as the player shows it in its lists.
struct ListedSong {
    quint32 id = 0;
    QString title;
    int bpm = 0;
    int type = 0; ///< 0 MIDI, 1 MP3, 2 to 4 the containers ZB3 to ZB5
    bool flag = false;
    QByteArray record; ///< the bytes that it was read from
};

/// One artist or genre with its songs.
struct SongGroup {
    QString name;
    QList<ListedSong> songs;
};

/// A song's place on the memory.
struct IndexedSong {
    quint32 id = 0;
    QString path;     ///< from the memory's root, starting with "/"
    QString modified; ///< 14 digits: date and time
};

/// Reads a prepared memory as the player does, with no code of the program's reader and writers,
/// and collects everything that is wrong for a player in faults(). See
/// docs/formats/player-index.md.
class MemoryReader
{
public:
    explicit MemoryReader(const QString &root);

    /// The songs of one playlist in play order; empty if there is no playlist of that number.
    QList<ListedSong> playlist(int number);

    const QStringList &faults() const { return m_faults; }
    const QList<IndexedSong> &songs() const { return m_songs; }
    const QList<IndexedSong> &folderOrder() const { return m_folderOrder; }
    const QList<ListedSong> &titles() const { return m_titles; }
    const QList<SongGroup> &artists() const { return m_artists; }
    const QList<SongGroup> &genres() const { return m_genres; }
    const QList<ListedSong> &mp3Titles() const { return m_mp3Titles; }

    /// The path of the song with this id; empty if there is no such song.
    QString pathOf(quint32 id) const;

private:
    QByteArray fileBytes(const QString &name);
    void fault(const QString &text) { m_faults.append(text); }
    void readPaths();
    void readFolderOrder();
    QList<ListedSong> readTitles(const QString &name, const QString &alphabet);
    QList<SongGroup> readGroups(const QString &name, const QString &alphabet);
    void checkRecords(const QString &name, const QByteArray &bytes);
    void checkAlphabet(const QString &name, const QByteArray &data, bool groupsOnly);
    void checkCounts(const QList<qsizetype> &counts);

    QString m_root;
    QStringList m_faults;
    QList<IndexedSong> m_songs;
    QList<IndexedSong> m_folderOrder;
    QList<ListedSong> m_titles;
    QList<SongGroup> m_artists;
    QList<SongGroup> m_genres;
    QList<ListedSong> m_mp3Titles;
};

} // namespace brisel
