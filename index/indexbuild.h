#pragma once

#include "base/reason.h"
#include "index/indexplaylists.h"
#include "index/indexreader.h"
#include "index/runmemory.h"
#include "index/songroll.h"

class IndexMonitor;
class IndexSet;
class MemoryWalk;

/// One run that builds or updates the index of a memory: the order of its steps. An object serves
/// one call of createIndex() or updateIndex().
class IndexBuild
{
    Q_DECLARE_TR_FUNCTIONS(Index)

public:
    /// Takes the memory whose index \a set is, and repairs what a run that was cut has left there.
    IndexBuild(IndexMonitor &monitor, IndexSet &set);

    /// True when the index is complete afterwards; failure() says why it is not.
    [[nodiscard]] bool createIndex();
    [[nodiscard]] bool updateIndex();

    Reason failure() const { return m_failure; }
    qsizetype pathSteps() const { return m_roll.pathSteps(); }

private:
    enum class Outcome {
        Done,
        Failed,      ///< something could not be written: the old index stays
        Ended,       ///< the program is to end: the old index stays
        Unreachable, ///< songs of the old index can't be reached: it stays
        Gone,        ///< the memory is no longer there; what is there now must not be touched
    };
    struct Result {
        Outcome outcome = Outcome::Failed;
        bool hasMetAll = true;   ///< no folder was unreadable
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
    bool m_wasComplete; ///< all files of the set had something under their names
    bool m_isRebuild = false;
    quint32 m_lastId = 0; ///< songs with higher ids are new
    qint64 m_setSize = 0; ///< bytes of the new set, as far as it was staged
    Reason m_failure;
};
