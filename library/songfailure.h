#pragma once

#include "base/runreport.h"

class MetaSong;

/// Why the file at \a path did not open as \a song.
RunReport::Reason whyNoSong(const MetaSong &song, const QString &path);

/// Why \a song was not saved to \a path.
RunReport::Reason whyNotSaved(const MetaSong &song, const QString &path);

/// Why the song at \a path did not get the new content that was ready for it.
RunReport::Reason whyNotPlaced(const QString &path);
