#include "index/pathtable.h"

void PathTable::build(const QList<SongInfoIndex> &songs)
{
    m_byKey.clear();
    m_byKey.reserve(songs.size());
    for (qsizetype i = 0; i < songs.size(); ++i)
        add(songs.at(i), i);
}

qsizetype PathTable::find(const QList<SongInfoIndex> &songs, const SongInfoIndex &wanted) const
{
    for (auto run = m_byKey.constFind(wanted.pathKey);
         run != m_byKey.cend() && run.key() == wanted.pathKey; ++run) {
        const QString &path = songs.at(run.value()).path;
        if (QString::compare(path, wanted.path, Qt::CaseInsensitive) == 0)
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
    const QList<qsizetype> run = m_byKey.values(wanted.pathKey);
    if (run.size() == 1)
        return run.first();
    if (run.size() > 1)
        return -1;
    wanted.setPath(QString::fromLatin1(bytes));
    return find(songs, wanted);
}
