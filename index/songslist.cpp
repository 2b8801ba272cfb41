#include "base/filefailure.h"
#include "base/filewriting.h"
#include "base/folderlock.h"
#include "index/index.h"
#include "index/indexreader.h"
#include "index/memoryreasons.h"
#include "index/songorders.h"
#include "index/songslistwriter.h"

namespace brisel
{

namespace
{

/// The songs of a list; only an order with headings has groups.
SongOrders::Groups listOrder(const QList<SongInfoIndex> &songs, const SongsListKind &kind)
{
    SongOrders::Groups list{SongOrders::byTitle(songs), {}};
    if (kind.isGrouped())
        list = SongOrders::byGroup(songs, list.order,
                                   kind.mode == SortByGenre ? &SongInfoIndex::genre
                                                            : &SongInfoIndex::artist);
    if (kind.isMp3Only)
        list.order = SongOrders::mp3Only(songs, list.order);
    return list;
}

} // namespace

int Index::saveSongsList(const QString &root, const QString &fileName, const SongsListKind &kind)
{
    setRoot(root);
    const FolderLock lock(m_set.root(), FolderLock::Kind::Shared);
    if (lock.isBusy()) {
        m_failure = MemoryReason::inUse;
        return 0;
    }
    if (!checkIndexFile()) {
        m_failure = MemoryReason::notPrepared;
        return -1;
    }
    m_failure = MemoryReason::listFailed;
    IndexReader reader;
    QList<SongInfoIndex> songs;
    const bool isRead = reader.read(m_set, m_set.root(), songs);
    run().pulse();
    if (!isRead || !reader.hasAllTexts())
        return 0;
    setMaximum(static_cast<int>(songs.size()));
    reader.readTexts(songs);
    run().pulse();

    const std::optional<QByteArray> list = listText(songs, kind);
    if (!list.has_value()) {
        m_failure = Run::interrupted;
        return 0;
    }
    if (replaceFile(fileName, *list))
        return 1;
    const Reason reason = whyUnwritable(fileName, list->size());
    if (reason != FileReason::unwritable)
        m_failure = reason;
    return 0;
}

/// The lines of the list. Empty when the program is to end.
std::optional<QByteArray> Index::listText(const QList<SongInfoIndex> &songs,
                                          const SongsListKind &kind)
{
    const SongOrders::Groups list = listOrder(songs, kind);
    run().pulse();
    if (kind.isMp3Only)
        setMaximum(static_cast<int>(list.order.size()));
    SongsListWriter writer(kind, list.order.size());
    int written = 0;
    for (const qsizetype position : list.order) {
        if (run().isEnding())
            return std::nullopt;
        const SongInfoIndex &song = songs.at(position);
        writer.add(song, list.numbers.value(position));
        showPath(song.absolutePath);
        setProgress(++written);
    }
    return writer.finished();
}

} // namespace brisel
