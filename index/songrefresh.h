#pragma once

#include "index/songinfoindex.h"

#include <QByteArray>
#include <QCoreApplication>

class IndexMonitor;
class RunMemory;
class SongRoll;

/// The pass over all songs of an index: which have vanished, and what the heads of the new and
/// changed ones say.
class SongRefresh
{
    Q_DECLARE_TR_FUNCTIONS(Index)

public:
    /// Songs with ids above \a lastId are new; with SongInfoIndex::deletedId all are.
    SongRefresh(IndexMonitor &monitor, RunMemory &memory, quint32 lastId)
        : m_monitor(monitor), m_memory(memory), m_lastId(lastId)
    {
    }

    /// Brings the songs of \a roll up to date in the order of their paths, until the program is to
    /// end. A song that has vanished gets the id of deleted ones.
    void createTitleIndex(SongRoll &roll);

private:
    /// True when the song has changed.
    bool refreshSong(SongInfoIndex &song);
    void reportUnreadSong(const SongInfoIndex &song, bool isNew);

    IndexMonitor &m_monitor;
    RunMemory &m_memory;
    const quint32 m_lastId;
    QByteArray m_prefix; ///< of the song that is read; kept for its room
};
