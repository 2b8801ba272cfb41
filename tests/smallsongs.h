#pragma once

#include <QByteArray>

/// The smallest Standard MIDI File with a title: format 0, one track; \a byPublisher adds the
/// copyright event that identifies the publisher's songs. Texts up to 100 characters.
inline QByteArray smallMidi(const QByteArray &title, bool byPublisher = false)
{
    const auto event = [](char type, const QByteArray &text) {
        return QByteArray("\x00\xff", 2) + type + static_cast<char>(text.size()) + text;
    };
    QByteArray track = event('\x03', title);
    if (byPublisher)
        track += event('\x02', "(c)Kordia");
    track += QByteArray("\x00\xff\x2f\x00", 4);
    const auto size = static_cast<char>(track.size());
    return QByteArray("MThd\x00\x00\x00\x06\x00\x00\x00\x01\x00\x60MTrk\x00\x00\x00", 21) + size +
           track;
}
