#include "index/setwriter.h"

#include "base/debugstream.h"
#include "index/indexmonitor.h"
#include "index/indexset.h"

namespace brisel
{

namespace
{

constexpr int writingFailed = -1; ///< instead of a list's count

} // namespace

SetWriter::SetWriter(IndexMonitor &monitor, IndexSet &set, const QList<SongInfoIndex> &songs,
                     const SongOrder &byPath)
    : m_monitor(monitor), m_set(set), m_songs(songs), m_byPath(byPath)
{
    m_orders.byTitle = SongOrders::byTitle(m_songs);
    m_monitor.run().pulse();
    m_orders.byArtist = SongOrders::byGroup(m_songs, m_orders.byTitle, &SongInfoIndex::artist);
    m_orders.byGenre = SongOrders::byGroup(m_songs, m_orders.byTitle, &SongInfoIndex::genre);
    m_monitor.run().pulse();
    m_records = IndexWriters::songRecords(m_songs);
}

bool SetWriter::writeOrdIndex()
{
    debug() << "write ord index";
    return stageFile(QStringLiteral("ordfile.id2"), IndexWriters::orderFile(m_songs, m_byPath));
}

bool SetWriter::writePathIndex()
{
    debug() << "write path index";
    return stageFile(QStringLiteral("index.id2"), IndexWriters::pathFile(m_songs));
}

bool SetWriter::writeLists()
{
    Counts counts;
    m_monitor.setProgress(20);
    if (!writeLists(m_orders, QString(), counts))
        return false;
    const Orders mp3Orders = createMp3TitleIndex();
    m_monitor.setProgress(60);
    return writeLists(mp3Orders, QStringLiteral("3"), counts) && writeNumFile(counts);
}

/// Writes the title, artist and genre files, whose names end in \a suffix, and their tables.
bool SetWriter::writeLists(const Orders &orders, const QString &suffix, Counts &counts)
{
    using Writer = IndexWriters::ListFile (SetWriter::*)(const QString &, const Orders &);
    struct List {
        QString name;
        Writer write;
    };
    const QList<List> lists{{QStringLiteral("title"), &SetWriter::writeTitleIndex},
                            {QStringLiteral("artist"), &SetWriter::writeArtistIndex},
                            {QStringLiteral("genre"), &SetWriter::writeGenreIndex}};
    // The MP3s' lists begin at 60.
    int progress = counts.isEmpty() ? 20 : 60;
    for (const List &list : lists) {
        const QString fileName = list.name + suffix + QStringLiteral(".id2");
        const IndexWriters::ListFile written = (this->*list.write)(fileName, orders);
        if (written.count == writingFailed || !writeAlphaBuffer(u'a' + fileName, written.alphabet))
            return false;
        counts.append(static_cast<quint16>(written.count));
        progress += 10;
        m_monitor.setProgress(progress);
    }
    return true;
}

SetWriter::Orders SetWriter::createMp3TitleIndex() const
{
    debug() << "create mp3 index";
    Orders orders = m_orders;
    for (SongOrder *order : {&orders.byTitle, &orders.byArtist.order, &orders.byGenre.order})
        *order = SongOrders::mp3Only(m_songs, *order);
    return orders;
}

IndexWriters::ListFile SetWriter::writeTitleIndex(const QString &fileName, const Orders &orders)
{
    debug() << "write title index";
    return stageList(fileName, IndexWriters::titleFile(m_songs, m_records, orders.byTitle));
}

IndexWriters::ListFile SetWriter::writeArtistIndex(const QString &fileName, const Orders &orders)
{
    debug() << "write artist index";
    return stageList(fileName, IndexWriters::groupFile(m_songs, m_records, orders.byArtist,
                                                       &SongInfoIndex::artist));
}

IndexWriters::ListFile SetWriter::writeGenreIndex(const QString &fileName, const Orders &orders)
{
    debug() << "write genre index";
    return stageList(fileName, IndexWriters::groupFile(m_songs, m_records, orders.byGenre,
                                                       &SongInfoIndex::genre));
}

bool SetWriter::writeAlphaBuffer(const QString &fileName, const AlphabetTable &alphabet)
{
    debug() << "write alpha index";
    return stageFile(fileName, alphabet.bytes());
}

bool SetWriter::writeNumFile(const Counts &counts)
{
    debug() << "write numfile index";
    return stageFile(QStringLiteral("fsinfos.id2"), IndexWriters::countFile(counts));
}

bool SetWriter::stageFile(const QString &fileName, const QByteArray &content)
{
    m_size += content.size();
    return m_set.stage(fileName, content);
}

/// Returns \a list, with a count of writingFailed if it can't be staged.
IndexWriters::ListFile SetWriter::stageList(const QString &fileName, IndexWriters::ListFile list)
{
    if (!stageFile(fileName, list.content))
        list.count = writingFailed;
    return list;
}

} // namespace brisel
