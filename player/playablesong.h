#pragma once

#include "base/reason.h"
#include "player/songtimeline.h"

#include <optional>

namespace brisel
{

/// A song as the players take it.
struct PlayableSong {
    /// Reads the song file \a path. Nothing, with the reason in \a trouble, if it is not a song
    /// that can be played.
    static std::optional<PlayableSong> read(const QString &path, QString &trouble);

    bool isMidi() const { return !midi.isEmpty(); }

    QString path;
    QString title;            ///< the song's, or the name of the file
    QByteArray midi;          ///< the MIDI data, decompressed; empty for an MP3
    SongTimeline timeline;    ///< of the MIDI data
    QList<TimedText> lines;   ///< karaoke
    QList<TimedText> markers; ///< the publisher's, by bar, and those of the MIDI data
};

} // namespace brisel
