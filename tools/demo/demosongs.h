#pragma once

#include "songfile/songinfo.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// A song that the demo picks.
struct DemoSong {
    QString path;
    QByteArray original;    ///< the file's bytes before the road begins
    bool isReadable = true; ///< false: a broken file, which the import must only count
    SongInfo info;          ///< what a reader finds before the road begins
    QString catalogueTitle; ///< of the catalogue's row for it; empty when there is none

    QString name() const { return path.section(u'/', -1); }
};

/// Writes the songs of the road into \a folder: all kinds, known to the catalogue or not, and one
/// broken file. Empty when a file could not be written.
QList<DemoSong> writeDemoSongs(const QString &folder);
