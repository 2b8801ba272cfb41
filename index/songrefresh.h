#pragma once

#include "index/songinfoindex.h"

#include <QByteArray>
#include <QCoreApplication>

namespace brisel
{

class IndexMonitor;
class RunMemory;
class SongRoll;

/// The pass over all songs of an index: finds removed songs, and reads the heads of new and changed
/// ones.
class SongRefresh
{
    Q_DECLARE_TR_FUNCTIONS(brisel::Index)

public:
    /// Songs with ids above \a lastId are new; with SongInfoIndex::deletedId all are.
    SongRefresh(IndexMonitor &monitor, RunMemory &memory, quint32 lastId)
        : m_monitor(monitor), m_memory(memory), m_lastId(lastId)
    {
    }

    /// Updates the songs of \a roll in the order of their paths, until the program must end. A
    /// removed song gets the id of deleted ones.
    void createTitleIndex(SongRoll &roll);

private:
    /// Returns true if the song has changed.
    bool refreshSong(SongInfoIndex &song);
    void reportUnreadSong(const SongInfoIndex &song, bool isNew);

    IndexMonitor &m_monitor;
    RunMemory &m_memory;
    const quint32 m_lastId;
    QByteArray m_prefix; ///< of the song that is read; a member to reuse the buffer
};

} // namespace brisel
