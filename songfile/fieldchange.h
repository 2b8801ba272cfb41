#pragma once

#include <QList>
#include <QString>

namespace brisel
{

class SongInfo;

/// One field of a song before and after a change, as texts for the user. A length is "mm:ss", a
/// missing number an empty text, a list of markers one text.
struct FieldChange {
    /// The numbers are stored: docs/formats/history.md.
    enum class Field {
        Title = 1,
        Artist = 2,
        Genre = 3,
        Author = 4,
        Length = 5,
        Bpm = 6,
        Key = 7,
        Markers = 8,
    };

    Field field = Field::Title;
    QString before;
    QString after;

    bool operator==(const FieldChange &other) const = default;
};

/// The fields that differ, in the order of the numbers.
QList<FieldChange> fieldChanges(const SongInfo &before, const SongInfo &after);

/// \a now with the differences between \a before and \a after applied to it, except for those of
/// the markers.
SongInfo withChanges(SongInfo now, const SongInfo &before, const SongInfo &after);

} // namespace brisel
