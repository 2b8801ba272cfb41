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

/// Returns the reason why the file at \a path did not open as \a song.
Reason whyNoSong(const MetaSong &song, const QString &path);

/// Returns the reason why \a song was not saved to \a path.
Reason whyNotSaved(const MetaSong &song, const QString &path);

/// Returns the reason why the song at \a path did not get its staged new content.
Reason whyNotPlaced(const QString &path);

} // namespace brisel
