#pragma once

#include "songfile/songinfo.h"

#include <QList>
#include <QString>

namespace brisel
{

/// One row of the reference catalogue: see docs/formats/catalogue.md.
class SongsDbRecord
{
public:
    /// Writes the record to the log.
    void dbgDump() const;

    QString title;
    QString artist;
    QString altArtist; ///< the artist in the form for lists and sorting
    QString genre;
    QString author;
    qint32 length = 0; ///< whole seconds; -1 if the catalogue has no number
    qint32 bpm = 0;    ///< beats per minute; -1 if the catalogue has no number
    QString key;       ///< a key name; a minor key has a blank before the minus ("A -")
    QList<Marker> markers;
};

/// A row of the catalogue that was found by a search.
struct CatalogueSong {
    qint64 row = 0; ///< its rowid
    QString fileName;
    SongsDbRecord record;
};

} // namespace brisel
