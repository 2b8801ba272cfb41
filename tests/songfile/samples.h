#pragma once

#include "tests/literalbytes.h"
#include "tests/midibytes.h"

#include <QByteArray>
#include <QMap>
#include <QString>

namespace brisel
{

/// Song files written out byte by byte, without the program's own writers.
namespace Samples
{

using LiteralBytes::bytes;
using MidiBytes::kordiaEvent;
using MidiBytes::metaEvent;

/// A Standard MIDI File whose first track holds \a events and then one note. Format 1 has a second
/// track with another note.
QByteArray midi(const QByteArray &events = {}, int format = 0);

/// The first track's length field, and the number of its bytes up to the next track or the end of
/// the data.
quint32 trackLength(const QByteArray &midi);
quint32 trackBytes(const QByteArray &midi);

/// Starts of tracks whose events can't be identified, by the reason.
QMap<QByteArray, QByteArray> unreadableEvents();

/// An ID3v2.3 text frame in Latin-1.
QByteArray frame(const QByteArray &id, const QByteArray &text);
/// A tag of version 2.3 around \a frames.
QByteArray tag(const QByteArray &frames);
/// Sample audio: an MPEG frame header, then a pattern.
QByteArray audio(int size);

/// A container's header of \a size bytes with \a magic, the other bytes counting up from 1,
/// so that any change is detected; the text fields are empty.
QByteArray containerHeader(const QByteArray &magic, int size);

/// \a header and the compressed \a midi, the header's sizes left as they are.
QByteArray container(const QByteArray &header, const QByteArray &midi);

void write(const QString &path, const QByteArray &content);
QByteArray read(const QString &path);

} // namespace Samples

} // namespace brisel
