#pragma once

#include "base/folderwalk.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <functional>

class Run;

/// The songs that lie on a memory, for the check of the memory: by a walk and by path rules of its
/// own, so that it finds what those of the index overlook.
///
/// An index knows a path only by its bytes in code page "IBM 850", which lacks most characters, and
/// takes paths that differ in case for one. So songs are found by a key that several can share.
class MemorySongs
{
public:
    struct Song {
        QString path; ///< below the root, begins with "/"
        QByteArray key;
    };

    /// Walks over the memory \a root and calls \a visit with the path of each file. False when \a
    /// run is to end.
    [[nodiscard]] bool find(const Run &run, const QString &root,
                            const std::function<void(const QString &)> &visit);

    /// The songs that an index should hold, in the order in which they were met.
    const QList<Song> &songs() const { return m_songs; }
    /// How many songs have \a key.
    int count(const QByteArray &key) const { return m_places.value(key).songs; }
    /// What a path with \a key is ordered by; null where songs with other orders have it, too.
    QByteArray sortKey(const QByteArray &key) const;

    /// True when the suffix of \a path is that of a song.
    static bool isSong(const QString &path);
    /// The key of a path that stands in an index as \a bytes.
    static QByteArray keyOf(const QByteArray &bytes);
    /// The bytes for \a path, and the path for \a bytes.
    static QByteArray toBytes(const QString &path);
    static QString fromBytes(const QByteArray &bytes);

private:
    struct Place {
        int songs = 0;
        QByteArray sortKey; ///< null when the songs have several
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
