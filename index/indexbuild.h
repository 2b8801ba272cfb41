#pragma once

#include "base/reason.h"
#include "index/indexplaylists.h"
#include "index/indexreader.h"
#include "index/runmemory.h"
#include "index/songroll.h"

namespace brisel
{

class IndexMonitor;
class IndexSet;
class MemoryWalk;

/// One run that builds or updates the index of a memory: the order of its steps. An object serves
/// one call of createIndex() or updateIndex().
class IndexBuild
{
    Q_DECLARE_TR_FUNCTIONS(brisel::Index)

public:
    /// For the memory whose index is \a set. Cleans up after an interrupted run.
    IndexBuild(IndexMonitor &monitor, IndexSet &set);

    /// Returns true if the index is complete afterwards; otherwise failure() has the reason.
    [[nodiscard]] bool createIndex();
    [[nodiscard]] bool updateIndex();

    Reason failure() const { return m_failure; }
    qsizetype pathSteps() const { return m_roll.pathSteps(); }

private:
    enum class Outcome {
        Done,
        Failed,      ///< something could not be written: the old index stays
        Ended,       ///< the program must end: the old index stays
        Unreachable, ///< songs of the old index can't be reached: it stays
        Gone,        ///< the memory was removed; its mount folder must not be changed
    };
    struct Result {
        Outcome outcome = Outcome::Failed;
        bool hasMetAll = true;   ///< all folders were readable
        bool isRepaired = false; ///< the old index was damaged
    };
    struct PlayerFolders {
        bool areThere = true;
        bool areNew = false; ///< one was made by this run
    };

    qint32 loadAllIndexFile();
    Result createPathIndex();
    Outcome afterWalk(const MemoryWalk &walk);
    bool wouldLoseSongs(const MemoryWalk &walk);
    Outcome writeSet();
    bool stageFiles();
    bool finish(const Result &result);
    PlayerFolders createBriselDir();
    bool giveUp();
    bool fail();

    IndexMonitor &m_monitor;
    IndexSet &m_set;
    RunMemory m_memory;
    IndexReader m_old;
    SongRoll m_roll;
    IndexPlaylists m_playlists;
    PlaylistFollower::Way m_playlistWay = PlaylistFollower::Way::InPlace;
    bool m_wasComplete; ///< each name of the set existed
    bool m_isRebuild = false;
    quint32 m_lastId = 0; ///< songs with higher ids are new
    qint64 m_setSize = 0; ///< bytes of the new set staged so far
    Reason m_failure;
};

} // namespace brisel
