#include "index/pathtable.h"

void PathTable::build(const QList<SongInfoIndex> &songs)
{
    m_byPath.clear();
    m_byPath.reserve(songs.size());
    m_byKey.clear();
    m_byKey.reserve(songs.size());
    for (qsizetype i = 0; i < songs.size(); ++i)
        add(songs.at(i), i);
}

void PathTable::add(const SongInfoIndex &song, qsizetype index)
{
    m_byPath.insert(song.path.toCaseFolded(), index);
    const auto sameKey = m_byKey.find(song.pathKey);
    if (sameKey == m_byKey.end())
        m_byKey.insert(song.pathKey, index);
    else
        *sameKey = several;
}

qsizetype PathTable::find(const QList<SongInfoIndex> &songs, const SongInfoIndex &wanted) const
{
    const QString folded = wanted.path.toCaseFolded();
    for (auto run = m_byPath.constFind(folded); run != m_byPath.cend() && run.key() == folded;
         ++run) {
        const SongInfoIndex &song = songs.at(run.value());
        if (song.pathKey == wanted.pathKey &&
            QString::compare(song.path, wanted.path, Qt::CaseInsensitive) == 0)
            return run.value();
    }
    return -1;
}

qsizetype PathTable::findBytes(const QList<SongInfoIndex> &songs, const QByteArray &bytes) const
{
    SongInfoIndex wanted;
    wanted.setPath(pathFromBytes(bytes));
    const qsizetype found = find(songs, wanted);
    if (found >= 0)
        return found;
    // A name with characters that the code page lacks: its '?' are all that is known of them.
    const auto sameKey = m_byKey.constFind(wanted.pathKey);
    if (sameKey != m_byKey.cend())
        return *sameKey;
    wanted.setPath(QString::fromLatin1(bytes));
    return find(songs, wanted);
}
