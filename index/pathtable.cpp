#include "index/pathtable.h"

#include <QVarLengthArray>

#include <algorithm>

namespace brisel
{

void PathTable::enter(const QList<SongInfoIndex> &songs)
{
    for (qsizetype i = m_entries.size(); i < songs.size(); ++i)
        add(pathHash(songs.at(i)));
}

void PathTable::add(size_t hash)
{
    ++m_steps;
    m_entries.append({hash, none});
    if (m_entries.size() * 2 > m_slots.size())
        grow();
    else
        enter(m_entries.size() - 1);
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

/// Doubles the number of slots and enters all songs again.
void PathTable::grow()
{
    constexpr qsizetype firstSize = 1024; // a power of 2, like all others
    m_slots = QList<qsizetype>(std::max(m_slots.size() * 2, firstSize), none);
    for (qsizetype i = 0; i < m_entries.size(); ++i)
        enter(i);
}

qsizetype PathTable::find(const QList<SongInfoIndex> &songs, const SongInfoIndex &wanted)
{
    return find(songs, wanted, pathHash(wanted));
}

qsizetype PathTable::find(const QList<SongInfoIndex> &songs, const SongInfoIndex &wanted,
                          size_t hash)
{
    if (m_entries.isEmpty())
        return none;
    for (qsizetype index = m_slots.at(slotOf(hash)); index != none;
         index = m_entries.at(index).next) {
        ++m_steps;
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
    // A name with characters that the code page lacks, which are stored as '?'.
    const auto sameKey = m_byKey.constFind(wanted.pathKey);
    if (sameKey != m_byKey.cend())
        return *sameKey;
    wanted.setPath(QString::fromLatin1(bytes));
    return find(songs, wanted);
}

size_t PathTable::pathHash(const SongInfoIndex &song)
{
    constexpr qsizetype room = 128; // letters of path and key
    QVarLengthArray<QChar, room> letters(song.path.size() + song.pathKey.size());
    const auto key = std::copy(song.path.cbegin(), song.path.cend(), letters.begin());
    foldLetters(letters.data(), song.path.size());
    std::transform(song.pathKey.cbegin(), song.pathKey.cend(), key,
                   [](char byte) { return QLatin1Char(byte); });
    return qHash(QStringView(letters.constData(), letters.size()), QHashSeed::globalSeed());
}

} // namespace brisel
