#pragma once

#include "index/pathtable.h"
#include "index/songinfoindex.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <functional>
#include <optional>

namespace brisel
{

class IndexReader;

/// Changes playlists so that they name the same songs in a new index as in the old one: see
/// docs/formats/playlists.md. An entry names a song by its id in the old index; where that is not
/// known, or can't be trusted, the path file of the playlist and the title in the entry itself say
/// which song was meant.
class PlaylistFollower
{
public:
    enum class Way {
        InPlace, ///< each entry is replaced at its place; one whose song was removed stays
        Anew,    ///< the songs are written from the beginning; old entries beyond the last one stay
    };
    /// Returns the present path of the song or folder at \a path, which may have been renamed.
    using NewPath = std::function<QString(const QString &path)>;

    /// The new files of a playlist.
    struct Result {
        QByteArray songs; ///< the new songs file
        QByteArray paths; ///< the new path file; null if the old one stays
    };

    /// From the index read by \a old to \a songs, which must have their ids before follow() is
    /// called. Both must outlive this.
    PlaylistFollower(const IndexReader &old, const QList<SongInfoIndex> &songs, NewPath newPath);

    /// Returns the new files for the songs file \a playlist and the path file \a paths, which is
    /// null if it is missing.
    Result follow(const QByteArray &playlist, const QByteArray &paths, Way way);
    /// The ids of the old last entries that follow() leaves behind a playlist that it rewrites,
    /// because their songs were removed.
    QList<quint32> deadIds(const QByteArray &playlist, const QByteArray &paths);

private:
    static constexpr qsizetype none = -1;

    /// The files of one playlist; records are counted from 0.
    struct Files {
        const QByteArray &playlist;
        const QByteArray &paths;
        bool isChanged = false; ///< by the player, since the path file was written

        qsizetype entries() const;
        qsizetype pathRecords() const;
        quint32 id(qsizetype entry) const;
        QByteArray record(qsizetype entry) const;
        QByteArray title(qsizetype entry) const;
        QByteArray path(qsizetype entry) const;
    };
    /// The songs of the new playlist, and the song of each old entry.
    struct Plan {
        QList<qsizetype> songs;  ///< positions; only of the songs written from the start
        QList<qsizetype> places; ///< of each old entry
        bool isChanged = false;
    };

    Plan plan(const QByteArray &playlist, const QByteArray &paths, Way way);
    bool isChanged(const Files &files);
    bool wasIndexed(const QByteArray &path);
    bool isKnownWell() const;
    bool names(const Files &files, qsizetype entry, qsizetype pathRecord);
    qsizetype songOf(const Files &files, qsizetype entry);
    qsizetype songOfKnown(const Files &files, qsizetype entry, const QByteArray &path);
    qsizetype songOfUnknown(const Files &files, qsizetype entry);
    const QSet<qsizetype> &namedSongs(const Files &files);
    qsizetype songAt(const QByteArray &path, const QByteArray &title);
    QByteArray newPathOf(const QByteArray &path);
    qsizetype lookUp(const QByteArray &path);
    QList<qsizetype> songsWithTitle(const QByteArray &title);
    bool hasTitle(qsizetype song, const QByteArray &title) const;
    QByteArray entryFor(qsizetype song, const QByteArray &old) const;
    QByteArray lastEntryFor(qsizetype song, const QByteArray &old) const;
    QByteArray newPaths(const Files &files, const Plan &plan) const;

    const IndexReader &m_old;
    const QList<SongInfoIndex> &m_songs;
    NewPath m_newPath;
    PathTable m_table;
    QHash<QByteArray, qsizetype> m_found; ///< songs by their path bytes: playlists repeat them
    QHash<QByteArray, QByteArray> m_newPaths;
    QHash<QByteArray, QList<qsizetype>> m_byTitle; ///< filled on first use
    std::optional<QSet<qsizetype>> m_named;        ///< by the path file of the current playlist
};

} // namespace brisel
