#include "history/packingqueue.h"

#include <utility>

namespace brisel
{

void PackingQueue::add(const KeptSong &song)
{
    m_songs.push_back({song.path, {}});
    m_thread.start([song, &packed = m_songs.back().packed] { packed = PackedSong(song); });
}

void PackingQueue::remove(const QString &path)
{
    m_thread.waitForDone();
    std::erase_if(m_songs, [&path](const Song &song) { return song.path == path; });
}

QList<PackedSong> PackingQueue::takeAll()
{
    m_thread.waitForDone();
    QList<PackedSong> packed;
    packed.reserve(static_cast<qsizetype>(m_songs.size()));
    for (Song &song : m_songs)
        packed.append(std::move(song.packed));
    m_songs.clear();
    return packed;
}

} // namespace brisel
