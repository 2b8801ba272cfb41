#include "base/filefailure.h"
#include "base/filewriting.h"
#include "base/folderlock.h"
#include "index/index.h"
#include "index/indexreader.h"
#include "index/memoryreasons.h"
#include "index/songorders.h"

#include <QTextStream>

namespace brisel
{

namespace
{

/// \a text without characters that a reader of the list could read as the end of a record.
QString onOneRecord(QString text)
{
    static constexpr QStringView breaks = u"\n\v\f\r\u001C\u001D\u001E\u0085\u2028\u2029";
    for (QChar &character : text) {
        if (breaks.contains(character))
            character = u' ';
    }
    return text;
}

SongOrder listOrder(const QList<SongInfoIndex> &songs, SORT_MODE mode)
{
    SongOrder byTitle = SongOrders::byTitle(songs);
    if (mode == SortByGenre)
        return SongOrders::byGroup(songs, byTitle, &SongInfoIndex::genre).order;
    return mode == SortByArtist ? SongOrders::byGroup(songs, byTitle, &SongInfoIndex::artist).order
                                : byTitle;
}

} // namespace

int Index::saveSongsList(const QString &root, const QString &fileName, SORT_MODE mode)
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

    const std::optional<QByteArray> list = listText(songs, listOrder(songs, mode));
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
std::optional<QByteArray> Index::listText(const QList<SongInfoIndex> &songs, const SongOrder &order)
{
    run().pulse();
    QByteArray list;
    QTextStream lines(&list);
    lines << tr("TITOLO") << ';' << tr("ARTISTA") << ';' << tr("GENERE") << ';' << tr("FILE")
          << ";\n";
    int written = 0;
    for (const qsizetype position : order) {
        if (run().isEnding())
            return std::nullopt;
        const SongInfoIndex &song = songs.at(position);
        // Fields are not quoted: a ";" in a title shifts the columns of its line. The reader
        // returns the bytes of the path as Latin-1.
        for (const QString &field :
             {song.title, song.artist, song.genre, pathFromBytes(song.path.toLatin1())})
            lines << onOneRecord(field) << ';';
        lines << '\n';
        showPath(song.absolutePath);
        setProgress(++written);
    }
    lines.flush();
    return list;
}

} // namespace brisel
