#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// The public-domain melodies that sample songs are made of.
namespace SampleSongs
{

/// One note of a melody; a pitch of 0 is a rest.
struct Note {
    int pitch = 0;  ///< MIDI note number
    int length = 0; ///< sixteenth notes
};

/// One verse of a melody with its harmony.
struct Tune {
    QString name;       ///< the catalogue's file name of the song; empty for an exercise of ours
    QString title;      ///< as the catalogue has it
    QString key;        ///< key name, minor with "-"
    int beats = 4;      ///< quarter notes in a bar
    int bpm = 100;      ///< quarter notes a minute
    int pickup = 0;     ///< sixteenth notes before the first bar
    QList<Note> melody; ///< fills the bars: what the pickup takes is missing in the last one
    QStringList chords; ///< one a bar, or two halves with a comma: "C", "Am", "G7", "F,C"
    QStringList lyrics; ///< a syllable for each note, "\" before a new verse, "/" a new line

    int bars() const { return static_cast<int>(chords.size()); }
    int barLength() const { return beats * 4; } ///< sixteenth notes
};

/// All the melodies.
const QList<Tune> &tunes();
/// The melody of that name; the first of all when there is none.
const Tune &tune(const QString &name);

} // namespace SampleSongs
