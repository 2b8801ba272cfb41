#pragma once

#include "index/indexwriters.h"

namespace brisel
{

class IndexMonitor;
class IndexSet;

/// Writes the fifteen files of an index for a list of songs into the new set: see
/// docs/formats/player-index.md. Each step logs its name and stages a file.
class SetWriter
{
public:
    /// \a songs are in the order of their records; \a byPath is their order by path. All must
    /// outlive this.
    SetWriter(IndexMonitor &monitor, IndexSet &set, const QList<SongInfoIndex> &songs,
              const SongOrder &byPath);

    /// Each returns false if the file can't be staged.
    [[nodiscard]] bool writeOrdIndex();
    [[nodiscard]] bool writePathIndex();
    /// The title, artist and genre files of all songs and those of the MP3s, their alphabet tables,
    /// and "fsinfos.id2". The progress starts at 20.
    [[nodiscard]] bool writeLists();

    /// The number of bytes to stage so far.
    qint64 size() const { return m_size; }

private:
    /// The orders of the lists: of all songs, or of the MP3s.
    struct Orders {
        SongOrder byTitle;
        SongOrders::Groups byArtist;
        SongOrders::Groups byGenre;
    };
    /// The content of "fsinfos.id2" for the lists so far.
    using Counts = QList<quint16>;

    bool writeLists(const Orders &orders, const QString &suffix, Counts &counts);
    Orders createMp3TitleIndex() const;
    IndexWriters::ListFile writeTitleIndex(const QString &fileName, const Orders &orders);
    IndexWriters::ListFile writeArtistIndex(const QString &fileName, const Orders &orders);
    IndexWriters::ListFile writeGenreIndex(const QString &fileName, const Orders &orders);
    bool writeAlphaBuffer(const QString &fileName, const AlphabetTable &alphabet);
    bool writeNumFile(const Counts &counts);
    bool stageFile(const QString &fileName, const QByteArray &content);
    IndexWriters::ListFile stageList(const QString &fileName, IndexWriters::ListFile list);

    IndexMonitor &m_monitor;
    IndexSet &m_set;
    const QList<SongInfoIndex> &m_songs;
    const SongOrder &m_byPath;
    Orders m_orders;
    QByteArray m_records; ///< the song records of all songs, by position
    qint64 m_size = 0;
};

} // namespace brisel
