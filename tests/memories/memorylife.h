#pragma once

#include "tests/memories/livingmemory.h"
#include "tests/memories/playlistmodel.h"
#include "tests/memories/setdamage.h"

#include <functional>

namespace brisel
{

/// The life of one memory: actions of its user, its player and the program in random order, with
/// damage and cuts, and the checks after each run that finished.
class MemoryLife
{
public:
    /// \a seed determines everything that happens.
    explicit MemoryLife(unsigned seed);

    /// Runs the whole life. Returns all actions and what went wrong; empty if nothing did.
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
    void note(const QString &action);
    void fail(const QString &problem);

    std::mt19937 m_random;
    LivingMemory m_memory;
    PlaylistModel m_playlists;
    PlaylistModel::Songs m_songs; ///< what is still known of them after damage
    bool m_isDamaged = false;
    int m_deadEntries = 0;
    QStringList m_history;
    QString m_problem;
};

} // namespace brisel
