#pragma once

#include "base/reason.h"

namespace brisel
{

class MetaSong;

namespace SongReason
{

inline constexpr Reason unknownFormat(QT_TRANSLATE_NOOP("RunReport",
                                                        "formato sconosciuto o file danneggiato"));
inline constexpr Reason wouldBeTooLarge(
    QT_TRANSLATE_NOOP("RunReport", "con i nuovi dati il file sarebbe troppo grande"));

} // namespace SongReason

/// Why the file at \a path did not open as \a song.
Reason whyNoSong(const MetaSong &song, const QString &path);

/// Why \a song was not saved to \a path.
Reason whyNotSaved(const MetaSong &song, const QString &path);

/// Why the song at \a path did not get the new content that was ready for it.
Reason whyNotPlaced(const QString &path);

} // namespace brisel
