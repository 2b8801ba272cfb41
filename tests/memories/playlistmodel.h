#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

namespace brisel
{

/// What the playlists of one memory should play. Songs are numbers that do not change with their
/// paths and ids.
class PlaylistModel
{
public:
    /// The number of a song that is not on the memory any more.
    static constexpr int lost = -1;

    /// One entry that can be played.
    struct Played {
        int song = 0;
        QByteArray title; ///< of its record
    };

    /// What the model has to know about the present songs.
    struct Songs {
        QHash<int, QByteArray> titles; ///< of the songs in the index
        /// "index.id2" was damaged: a song whose title differs from its record, or is shared with
        /// another song, can't be recognised.
        bool areIdsLost = false;
        /// Songs whose record in "index.id2" now names another file.
        QSet<int> doubtful;
    };

    /// The user has filled the playlist \a number on the player.
    void fill(int number, const QList<Played> &entries);
    QList<int> numbers() const { return m_playlists.keys(); }
    /// The user has moved the song: it need not be recognised.
    void lose(int song);

    /// Compares the playlist \a number with what it plays now, which becomes the model. Describes
    /// what is wrong; empty if it plays what it should.
    QString compare(int number, const QList<Played> &now, const Songs &songs);

private:
    struct Entry {
        Played played;
        bool isRequired = true; ///< false: may be dead, or play another song with its title
    };
    class Match;

    QHash<int, QList<Entry>> m_playlists;
};

} // namespace brisel
