#pragma once

#include <QString>

class Database;
class SongInfo;
class SongsDbRecord;

/// What a song is looked up by in the catalogue.
struct CatalogueKeys {
    QString file;     ///< from the file's name
    QString longName; ///< from the name in a container's header; empty for other songs
    QString title;
};

/// \a name in upper case without one final dot and exactly three word characters: SONG of
/// "song.mid", but SONG.MIDI of "song.midi".
QString catalogueKey(const QString &name);

/// The keys of the song in the file \a shortName.
CatalogueKeys catalogueKeys(const QString &shortName, const SongInfo &info);

/// Looks a song up by file name, then (containers) by long name, which stands in the catalogue's
/// file-name column too, then by title. False, with \a record unchanged, when none of them hits;
/// otherwise \a trace says which one did.
bool findInCatalogue(Database &catalogue, const CatalogueKeys &keys, SongsDbRecord &record,
                     QString &trace);

/// \a info with the song's data replaced by those of \a record. What concerns the file stays.
SongInfo mergedWithCatalogue(const SongInfo &info, const SongsDbRecord &record);
