#pragma once

#include "tests/memories/livingmemory.h"
#include "tests/memories/playlistmodel.h"
#include "tests/memories/setdamage.h"

#include <functional>

/// The life of one memory: what its user, its player and the program do to it in some order, with
/// damage and cuts, and what has to hold after each run that came to its end.
class MemoryLife
{
public:
    /// All of it follows from \a seed.
    explicit MemoryLife(unsigned seed);

    /// Lives it. Gives what went wrong, after all that was done; empty when nothing did.
    QString live();

private:
    enum class Work { Update, Rebuild, Send };

    void step();
    void damage();
    void run(Work work, bool mayBeCut);
    bool runNow(Work work, const QStringList &files, int answer, unsigned answers);
    void check(const QHash<QByteArray, quint32> &oldIds);
    void checkIds(const PlayerSet &set, const QHash<QByteArray, quint32> &oldIds);
    void checkPlaylists(const PlayerSet &set, const PlayerSet &fresh);
    void checkSendingAgain();
    void checkReport();
    void editPlaylist();
    void writeStalePathFile();
    int anySong();
    void say(const QString &words);
    void fail(const QString &problem);

    std::mt19937 m_random;
    LivingMemory m_memory;
    PlaylistModel m_playlists;
    PlaylistModel::Songs m_songs; ///< what damage leaves of them
    bool m_isDamaged = false;
    int m_deadEntries = 0;
    QStringList m_words;
    QString m_problem;
};
