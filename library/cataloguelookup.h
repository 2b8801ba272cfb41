#pragma once

#include "db/songsdbrecord.h"

#include <QString>

#include <optional>

namespace brisel
{

class Database;
class SongInfo;

/// The keys by which a song is looked up in the catalogue.
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

/// How a song was found.
enum class FoundBy { FileName, LongName, Title, Hand };

struct CatalogueHit {
    SongsDbRecord record;
    FoundBy foundBy;
    QString trace; ///< the key that was found, for the log
};

/// Looks a song up by file name, then (containers) by long name, which is in the catalogue's
/// file-name column too, then by title. Returns an empty result if none of them is found. If the
/// user has \a chosen a record, that one is found, by hand.
[[nodiscard]] std::optional<CatalogueHit> findInCatalogue(Database &catalogue,
                                                          const CatalogueKeys &keys,
                                                          const SongsDbRecord *chosen = nullptr);

/// \a info with the song's data replaced by those of \a record. The data about the file stay.
SongInfo mergedWithCatalogue(const SongInfo &info, const SongsDbRecord &record);

} // namespace brisel
