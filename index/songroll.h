#pragma once

#include "index/pathtable.h"
#include "index/songinfoindex.h"
#include "index/songorders.h"

#include <QList>
#include <QString>

namespace brisel
{

class IndexReader;

/// The songs of an index during a run: first those of the old index, then the new ones of the walk.
class SongRoll
{
public:
    /// The songs of the memory \a root.
    explicit SongRoll(const QString &root) : m_root(root) {}

    /// In the order in which they were added; after removeDeletedItems() in the order of their
    /// records.
    QList<SongInfoIndex> &songs() { return m_songs; }
    const QList<SongInfoIndex> &songs() const { return m_songs; }
    /// The songs in the order of their paths, as of the last call that orders them.
    const SongOrder &byPath() const { return m_byPath; }

    /// New songs get ids from \a id on.
    void setNextId(quint32 id) { m_nextId = id; }
    /// Returns true if the new index would differ from the old one.
    [[nodiscard]] bool isModified() const { return m_isModified; }
    void setModified() { m_isModified = true; }

    /// Adds the song file \a full, an absolute path, whose path below the root is \a path. A known
    /// song keeps its id. Returns false if the index has no room for another song.
    [[nodiscard]] bool meet(const QString &full, const QString &path);
    /// Orders the songs by path. Of songs with the same path the first, which is the oldest, is
    /// kept; the others get the id of deleted ones.
    void dropDoubledSongs();
    /// Removes the songs that have the id of deleted ones, puts the others in the order of their
    /// ids, numbers their records and orders them by path.
    void removeDeletedItems();
    /// Gives songs whose records in "index.id2" are lost the ids that the lists of \a old have for
    /// them, if they are unambiguous.
    void restoreIds(const IndexReader &old);

    /// The position of the song whose path has these bytes in code page "IBM 850"; -1 if not found
    /// or ambiguous.
    [[nodiscard]] qsizetype findBytes(const QByteArray &bytes);
    /// The number of songs that were entered into the table of paths or compared there.
    qsizetype pathSteps() const { return m_paths.steps(); }

private:
    void meetKnownSong(qsizetype position, const QString &full, const QString &path);
    void dropDoubledSongs(SongOrder positions);

    const QString m_root;
    QList<SongInfoIndex> m_songs;
    SongOrder m_byPath;
    PathTable m_paths;
    qsizetype m_expected = 0; ///< position of the song that the walk should meet next
    quint32 m_nextId = 0;
    bool m_isModified = false;
};

} // namespace brisel
