#pragma once

#include <QByteArray>

/// Requires that the song \a after, which was the song \a before until the program saved it with
/// other texts and numbers, still holds all else that independent readers found in it: the other
/// frames and the audio, the other events at their ticks, the other bytes of a container's header.
/// What those readers don't understand is not looked at.
void requireAllElseKept(const QByteArray &before, const QByteArray &after);
