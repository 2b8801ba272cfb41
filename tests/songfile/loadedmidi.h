#pragma once

#include "songfile/rawmidifile.h"
#include "tests/songfile/samples.h"

namespace brisel
{

/// A MIDI file of \a data, which must be valid.
inline RawMidiFile loaded(const QByteArray &data)
{
    RawMidiFile file;
    if (!file.loadData(data))
        qFatal("MIDI data refused");
    return file;
}

/// A key signature event: sharps and mode.
inline QByteArray keyEvent(const char (&signature)[3])
{
    return Samples::metaEvent('\x59', QByteArray(signature, 2));
}

} // namespace brisel
