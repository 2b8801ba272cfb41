#pragma once

#include "songfile/songkeeper.h"

namespace brisel
{

/// A kept MIDI song of the file \a path with the content \a before, which gets \a after.
inline KeptSong keptSong(const QString &path, const QByteArray &before, const QByteArray &after)
{
    return {path,
            QStringLiteral("MIDI"),
            Fingerprint::ofWhole(before),
            Fingerprint::ofWhole(after),
            {{FieldChange::Field::Title, QStringLiteral("Old"), QStringLiteral("New")}},
            before};
}

/// \a size bytes that can't be compressed, others for each \a number.
inline QByteArray noise(qint64 size, int number)
{
    QByteArray bytes;
    bytes.reserve(size);
    quint32 state = static_cast<quint32>(number) + 1;
    while (bytes.size() < size) {
        state = state * 1664525U + 1013904223U;
        bytes.append(static_cast<char>(state >> 24U));
    }
    return bytes;
}

} // namespace brisel
