#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace brisel
{

/// The public-domain melodies of the sample songs.
namespace SampleSongs
{

/// One note of a melody; a pitch of 0 is a rest.
struct Note {
    int pitch = 0;  ///< MIDI note number
    int length = 0; ///< sixteenth notes
};

/// One verse of a melody with its harmony.
struct Tune {
    QString name;       ///< the song's file name in the catalogue; empty for our own exercises
    QString title;      ///< as in the catalogue
    QString key;        ///< key name, minor with "-"
    int beats = 4;      ///< quarter notes in a bar
    int bpm = 100;      ///< quarter notes a minute
    int pickup = 0;     ///< sixteenth notes before the first bar
    QList<Note> melody; ///< fills the bars; the last one is shorter by the pickup
    QStringList chords; ///< one a bar, or two halves with a comma: "C", "Am", "G7", "F,C"
    QStringList lyrics; ///< a syllable for each note, "\" before a new verse, "/" a new line

    int bars() const { return static_cast<int>(chords.size()); }
    int barLength() const { return beats * 4; } ///< sixteenth notes
};

/// All the melodies.
const QList<Tune> &tunes();
/// The melody of that name; the first melody if there is no such name.
const Tune &tune(const QString &name);

} // namespace SampleSongs

} // namespace brisel
