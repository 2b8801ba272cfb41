#include "index/pathtable.h"

namespace
{

/// Equal for what counts as the same path, and not to be foreseen by whoever fills a memory.
size_t pathHash(const SongInfoIndex &song)
{
    return qHashMulti(QHashSeed::globalSeed(), foldedText(song.path), song.pathKey);
}

} // namespace

void PathTable::build(const QList<SongInfoIndex> &songs)
{
    *this = PathTable();
    m_entries.reserve(songs.size());
    for (qsizetype i = 0; i < songs.size(); ++i)
        add(songs.at(i), i);
}

void PathTable::add(const SongInfoIndex &song, qsizetype index)
{
    m_entries.append({pathHash(song), none});
    if (m_entries.size() * 2 > m_slots.size())
        grow();
    else
        enter(index);
}

qsizetype PathTable::slotOf(size_t hash) const
{
    const qsizetype mask = m_slots.size() - 1;
    qsizetype slot = static_cast<qsizetype>(hash) & mask;
    while (m_slots.at(slot) != none && m_entries.at(m_slots.at(slot)).hash != hash)
        slot = (slot + 1) & mask;
    return slot;
}

void PathTable::enter(qsizetype index)
{
    Entry &entry = m_entries[index];
    qsizetype &last = m_slots[slotOf(entry.hash)];
    entry.next = last;
    last = index;
}

/// Doubles the room and enters all songs anew.
void PathTable::grow()
{
    constexpr qsizetype firstSize = 1024; // a power of 2, as all the others
    m_slots = QList<qsizetype>(std::max(m_slots.size() * 2, firstSize), none);
    for (qsizetype i = 0; i < m_entries.size(); ++i)
        enter(i);
}

qsizetype PathTable::find(const QList<SongInfoIndex> &songs, const SongInfoIndex &wanted) const
{
    if (m_entries.isEmpty())
        return none;
    for (qsizetype index = m_slots.at(slotOf(pathHash(wanted))); index != none;
         index = m_entries.at(index).next) {
        const SongInfoIndex &song = songs.at(index);
        if (song.pathKey == wanted.pathKey &&
            (song.path == wanted.path ||
             QString::compare(song.path, wanted.path, Qt::CaseInsensitive) == 0))
            return index;
    }
    return none;
}

qsizetype PathTable::findBytes(const QList<SongInfoIndex> &songs, const QByteArray &bytes)
{
    SongInfoIndex wanted;
    wanted.setPath(pathFromBytes(bytes));
    const qsizetype found = find(songs, wanted);
    if (found >= 0)
        return found;
    for (; m_keyed < songs.size(); ++m_keyed) {
        const auto sameKey = m_byKey.constFind(songs.at(m_keyed).pathKey);
        m_byKey.insert(songs.at(m_keyed).pathKey, sameKey == m_byKey.cend() ? m_keyed : several);
    }
    // A name with characters that the code page lacks: its '?' are all that is known of them.
    const auto sameKey = m_byKey.constFind(wanted.pathKey);
    if (sameKey != m_byKey.cend())
        return *sameKey;
    wanted.setPath(QString::fromLatin1(bytes));
    return find(songs, wanted);
}
