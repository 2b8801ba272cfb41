#pragma once

#include "player/songtimeline.h"

namespace brisel
{

/// The lines of a song's karaoke text, each from the moment of its first syllable: its lyric
/// events, or else its text events if they follow the karaoke conventions ("@" starts a heading,
/// "\" a page,
/// "/" a line). Empty without either. See docs/formats/midi-meta-events.md, "Playing".
QList<TimedText> karaokeLines(const SongTimeline &timeline);

/// The text of an event: UTF-8 if it is valid, otherwise Latin-1; control characters become blanks.
QString eventText(const QByteArray &bytes);

} // namespace brisel
