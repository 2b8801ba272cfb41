#pragma once

#include "tests/midibytes.h"

namespace brisel
{

/// The smallest Standard MIDI File with a title: format 0, one track; \a byPublisher adds the
/// copyright event that identifies the publisher's songs. Texts up to 100 characters.
inline QByteArray smallMidi(const QByteArray &title, bool byPublisher = false)
{
    QByteArray track = MidiBytes::metaEvent(3, title);
    if (byPublisher)
        track += MidiBytes::metaEvent(2, "(c)Kordia");
    return MidiBytes::file({track + MidiBytes::endOfTrack()});
}

} // namespace brisel
