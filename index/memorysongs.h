#pragma once

#include "base/folderwalk.h"
#include "base/songsuffix.h"

#include <QByteArray>
#include <QFileInfo>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <functional>

namespace brisel
{

class Run;

/// The songs on a memory, for the check of the memory: with a walk and path rules that are
/// independent of those of the index, so that it finds their mistakes.
///
/// An index has only the bytes of a path in code page "IBM 850", which lacks most characters, and
/// paths are case-insensitive. So songs are found by a key that is not unique.
class MemorySongs
{
public:
    struct Song {
        QString path; ///< below the root, begins with "/"
        QByteArray key;
    };

    /// Walks over the memory \a root and calls \a visit with the path of each file. Returns false
    /// if \a run must end.
    [[nodiscard]] bool find(const Run &run, const QString &root,
                            const std::function<void(const QString &)> &visit);

    /// The songs that an index should have, in the order of the walk.
    const QList<Song> &songs() const { return m_songs; }
    /// The number of songs with \a key.
    int count(const QByteArray &key) const { return m_places.value(key).songs; }
    /// The sort key of the paths with \a key; null if they have different ones.
    QByteArray sortKey(const QByteArray &key) const;

    /// Returns true if \a path has the suffix of a song.
    static bool isSong(const QString &path) { return isSongSuffix(QFileInfo(path).suffix()); }
    /// The key of a path that is stored in an index as \a bytes.
    static QByteArray keyOf(const QByteArray &bytes) { return toBytes(fromBytes(bytes).toUpper()); }
    /// The bytes for \a path, and the path for \a bytes.
    static QByteArray toBytes(const QString &path);
    static QString fromBytes(const QByteArray &bytes);

private:
    struct Place {
        int songs = 0;
        QByteArray sortKey; ///< null if the songs have several
    };

    bool walk(const Run &run, const QString &folder,
              const std::function<void(const QString &)> &visit);
    void add(const QString &path);

    QString m_root;
    QList<Song> m_songs;
    QHash<QByteArray, Place> m_places;
    QSet<QString> m_known;
    FolderWalk m_folders;
};

} // namespace brisel
