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

} // namespace brisel
