#pragma once

#include "history/packing.h"

#include <QThreadPool>

#include <deque>

namespace brisel
{

/// Packs kept songs in a thread of its own, while the next ones are read and changed. It makes no
/// file calls.
class PackingQueue
{
public:
    PackingQueue() { m_thread.setMaxThreadCount(1); }

    void add(const KeptSong &song);
    /// Removes the songs with \a path.
    void remove(const QString &path);
    /// Waits until all songs are packed and returns them in the order in which they were added. The
    /// queue is empty afterwards.
    QList<PackedSong> takeAll();

private:
    struct Song {
        QString path;
        PackedSong packed; ///< written by the thread
    };

    std::deque<Song> m_songs; ///< which stay where they are while others are added
    QThreadPool m_thread;     ///< its destructor waits
};

} // namespace brisel
