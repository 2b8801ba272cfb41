#include "index/indexwriters.h"

#include "base/bytes.h"
#include "base/songtext.h"

QByteArray IndexWriters::pathFile(const QList<SongInfoIndex> &songs)
{
    QByteArray content;
    content.reserve(songs.size() * IndexRecord::size);
    for (const SongInfoIndex &song : songs)
        PathRecord(song).appendTo(content);
    return content;
}

QByteArray IndexWriters::orderFile(const QList<SongInfoIndex> &songs, const SongOrder &byPath)
{
    QByteArray content(byPath.size() * 2, '\0');
    for (qsizetype i = 0; i < byPath.size(); ++i)
        putLe16(content, i * 2, songs.at(byPath.at(i)).posidx);
    return content;
}

IndexWriters::ListFile IndexWriters::titleFile(const QList<SongInfoIndex> &songs,
                                               const SongOrder &byTitle)
{
    ListFile file;
    file.content.reserve(byTitle.size() * IndexRecord::size);
    for (const qsizetype position : byTitle) {
        const SongInfoIndex &song = songs.at(position);
        file.alphabet.add(song.title, static_cast<quint32>(file.content.size()));
        SongRecord(song).appendTo(file.content);
        ++file.count;
    }
    return file;
}

IndexWriters::ListFile IndexWriters::groupFile(const QList<SongInfoIndex> &songs,
                                               const SongOrder &order,
                                               QString SongInfoIndex::*group)
{
    ListFile file;
    file.content.reserve(order.size() * 2 * IndexRecord::size);
    // An empty name at the start equals this one and gets no header: names are never empty.
    QString previous;
    qsizetype headerAt = -1;
    quint16 songsInGroup = 0;
    for (const qsizetype position : order) {
        const SongInfoIndex &song = songs.at(position);
        const QString &name = song.*group;
        if (name != previous && QString::compare(name, previous, Qt::CaseInsensitive) != 0) {
            GroupHeader header;
            header.previousCount = songsInGroup;
            header.name = songBytes(name);
            headerAt = file.content.size();
            file.alphabet.add(name, static_cast<quint32>(headerAt));
            file.content += header.bytes();
            ++file.count;
            songsInGroup = 0;
        }
        SongRecord(song).appendTo(file.content);
        ++songsInGroup;
        if (headerAt >= 0)
            putBe16(file.content, headerAt + 2, songsInGroup);
        previous = name;
    }
    return file;
}

QByteArray IndexWriters::countFile(const std::array<quint16, 6> &counts)
{
    QByteArray content(static_cast<qsizetype>(counts.size()) * 2, '\0');
    for (std::size_t i = 0; i < counts.size(); ++i)
        putLe16(content, static_cast<qsizetype>(i) * 2, counts.at(i));
    return content;
}
