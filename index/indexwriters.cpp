#include "index/indexwriters.h"

#include "base/bytes.h"
#include "base/songtext.h"

namespace brisel
{

namespace
{

QByteArrayView recordOf(const QByteArray &records, qsizetype position)
{
    return QByteArrayView(records).sliced(position * IndexRecord::size, IndexRecord::size);
}

/// One \c Record for each of \a songs.
template <typename Record>
QByteArray recordsOf(const QList<SongInfoIndex> &songs)
{
    QByteArray records;
    records.reserve(songs.size() * IndexRecord::size);
    for (const SongInfoIndex &song : songs)
        Record(song).appendTo(records);
    return records;
}

} // namespace

QByteArray IndexWriters::pathFile(const QList<SongInfoIndex> &songs)
{
    return recordsOf<PathRecord>(songs);
}

QByteArray IndexWriters::orderFile(const QList<SongInfoIndex> &songs, const SongOrder &byPath)
{
    QByteArray content(byPath.size() * 2, '\0');
    for (qsizetype i = 0; i < byPath.size(); ++i)
        putLe16(content, i * 2, songs.at(byPath.at(i)).posidx);
    return content;
}

QByteArray IndexWriters::songRecords(const QList<SongInfoIndex> &songs)
{
    return recordsOf<SongRecord>(songs);
}

IndexWriters::ListFile IndexWriters::titleFile(const QList<SongInfoIndex> &songs,
                                               const QByteArray &records, const SongOrder &byTitle)
{
    constexpr char unknownLetter = '?'; // many letters become it
    ListFile file;
    file.content.reserve(byTitle.size() * IndexRecord::size);
    char previous = unknownLetter;
    for (const qsizetype position : byTitle) {
        const QByteArrayView record = recordOf(records, position);
        const char first = record.at(SongRecord::titleAt);
        if (first != previous || first == unknownLetter)
            file.alphabet.add(songs.at(position).title, static_cast<quint32>(file.content.size()));
        previous = first;
        file.content += record;
        ++file.count;
    }
    return file;
}

IndexWriters::ListFile IndexWriters::groupFile(const QList<SongInfoIndex> &songs,
                                               const QByteArray &records,
                                               const SongOrders::Groups &groups,
                                               QString SongInfoIndex::*group)
{
    constexpr int none = -1;
    ListFile file;
    file.content.reserve(groups.order.size() * 2 * IndexRecord::size);
    int previous = none;
    qsizetype headerAt = -1;
    quint16 songsInGroup = 0;
    for (const qsizetype position : groups.order) {
        const int number = groups.numbers.at(position);
        // An empty name at the start gets no header: names are never empty.
        if (number != previous && !(previous == none && (songs.at(position).*group).isEmpty())) {
            const QString &name = songs.at(position).*group;
            GroupHeader header;
            header.previousCount = songsInGroup;
            header.name = songBytes(name);
            headerAt = file.content.size();
            file.alphabet.add(name, static_cast<quint32>(headerAt));
            file.content += header.bytes();
            ++file.count;
            songsInGroup = 0;
        }
        file.content += recordOf(records, position);
        ++songsInGroup;
        if (headerAt >= 0)
            putBe16(file.content, headerAt + 2, songsInGroup);
        previous = number;
    }
    return file;
}

QByteArray IndexWriters::countFile(const QList<quint16> &counts)
{
    QByteArray content(counts.size() * 2, '\0');
    for (qsizetype i = 0; i < counts.size(); ++i)
        putLe16(content, i * 2, counts.at(i));
    return content;
}

} // namespace brisel
