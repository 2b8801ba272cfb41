#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

/// What the playlists of one memory should play. Songs are numbers that stay whatever their paths
/// and ids become.
class PlaylistModel
{
public:
    /// The number of a song that is not on the memory any more.
    static constexpr int lost = -1;

    /// One entry that plays.
    struct Played {
        int song = 0;
        QByteArray title; ///< of its record
    };

    /// What the model has to know of the songs of today.
    struct Songs {
        QHash<int, QByteArray> titles; ///< of those that are in the index
        /// "index.id2" was damaged: a song that has another title than its record, or shares it,
        /// can't be known again.
        bool areIdsLost = false;
        /// Songs whose record in "index.id2" was made to name another file.
        QSet<int> doubtful;
    };

    /// The user has filled the playlist \a number on the player.
    void fill(int number, const QList<Played> &entries);
    QList<int> numbers() const { return m_playlists.keys(); }
    /// The user has moved the song: nobody need know it again.
    void lose(int song);

    /// Compares the playlist \a number with what it plays now, which becomes the model. Gives what
    /// is wrong; empty when it plays what it should.
    QString compare(int number, const QList<Played> &now, const Songs &songs);

private:
    struct Entry {
        Played played;
        bool isRequired = true; ///< false: it may be dead, or play a song of its title
    };
    class Match;

    QHash<int, QList<Entry>> m_playlists;
};
