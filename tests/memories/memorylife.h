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
    virtual ~MemoryLife() = default;

    /// Runs the whole life. Returns all actions and what went wrong; empty if nothing did.
    QString live();

protected:
    enum class Work { Update, Rebuild, Send };

    /// One random action.
    virtual void step();
    void run(Work work, bool mayBeCut);
    /// Does \a now, a change of the memory that \a words describe, or cuts it at a random step,
    /// and checks everything. Returns true if it was not cut. \a keepsIds: songs keep their ids.
    bool perform(const QString &words, const std::function<bool()> &now, bool mayBeCut,
                 bool keepsIds);
    void editPlaylist();
    int anySong();
    /// The number of entries of playlists whose songs are not on the memory.
    int lostEntries() const;
    void note(const QString &action);
    void fail(const QString &problem);

    std::mt19937 m_random;
    LivingMemory m_memory;
    PlaylistModel m_playlists;

private:
    void damage();
    bool runNow(Work work, const QStringList &files, int answer, unsigned answers);
    void check(const QHash<QByteArray, quint32> &oldIds);
    void checkIds(const PlayerSet &set, const QHash<QByteArray, quint32> &oldIds);
    void checkPlaylists(const PlayerSet &set, const PlayerSet &fresh);
    void checkSendingAgain();
    void checkReport();
    void writeStalePathFile();

    PlaylistModel::Songs m_songs; ///< what is still known of them after damage
    bool m_isDamaged = false;
    int m_deadEntries = 0;
    QStringList m_history;
    QString m_problem;
};

} // namespace brisel
