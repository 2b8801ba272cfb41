#pragma once

#include "songfile/songinfo.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace brisel
{

/// A song that the demo picks.
struct DemoSong {
    QString path;
    QByteArray original;    ///< the file's bytes before the tour
    bool isReadable = true; ///< false: a broken file, which the import must only count
    SongInfo info;          ///< the record before the tour
    QString catalogueTitle; ///< of its row in the catalogue; empty if there is no row

    QString name() const { return path.section(u'/', -1); }
};

/// Writes the demo's songs into \a folder: all kinds, in the catalogue or not, and one broken file.
/// Returns an empty list if a file could not be written.
QList<DemoSong> writeDemoSongs(const QString &folder);

/// What the song at \a path says of itself; nothing if it can't be read.
SongInfo readBack(const QString &path);

} // namespace brisel
