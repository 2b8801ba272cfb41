#pragma once

#include "songfile/songinfo.h"
#include "tools/sampletunes.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace brisel
{

/// Makes valid song files of every kind for tests, benchmarks and the demo. Except for the codec it
/// does not use the program's own readers and writers, so that mistakes there are found.
namespace SampleSongs
{

/// The content of a MIDI song.
struct MidiOptions {
    int format = 1;       ///< of the Standard MIDI File: 0 or 1
    Tune tune;            ///< four bars of introduction, the verses, two bars of ending
    int verses = 2;       ///< at least 1
    int bpm = 0;          ///< quarter notes a minute; 0 means the tune's own
    bool karaoke = false; ///< with the text events of a ".kar" file
    SongInfo info;        ///< empty and 0 fields are left out of the file
};

/// A Standard MIDI File: melody, chords, bass and drums.
QByteArray midi(const MidiOptions &options);
/// The markers of such a song: "Intro", "Verse 1", ... "Fine".
QList<Marker> markers(const Tune &tune, int verses);
/// The playing time of such a song in whole seconds.
int seconds(const Tune &tune, int verses, int bpm);

/// The kinds of tags of an MP3.
enum class Tag { None, Id3v22, Id3v23, Id3v24 };
/// Silent MPEG-1 Layer III audio of \a seconds after a tag.
QByteArray mp3(Tag tag, const SongInfo &info, int seconds);
/// The karaoke graphics of an MP3: a plain screen for \a seconds.
QByteArray cdg(int seconds);

/// A compressed container of \a generation (Zb3, Zb4 or Zb5) around \a midi.
QByteArray container(SongInfo::fileTypeEnum generation, const SongInfo &info,
                     const QByteArray &midi);

/// One file of the sample set.
struct Sample {
    QString fileName; ///< without folder
    QByteArray content;
    SongInfo expected;     ///< the record that a reader finds; empty for a companion file
    QString catalogueName; ///< "filename" of its row in the catalogue; empty if there is no row
    bool isSong = true;    ///< false for a companion such as ".cdg"
};

/// At least one song of each kind; published by Kordia or not; in the catalogue by file name, by
/// long name, by title only, or not at all.
QList<Sample> set();

/// Writes the set into \a folder, which must exist; \a paths are the paths of its songs. Returns
/// false if a file could not be written.
bool writeSet(const QString &folder, QStringList *paths = nullptr);
/// Writes \a count songs of all kinds with distinct names and titles, for measuring.
bool writeMany(const QString &folder, int count, QStringList *paths = nullptr);

} // namespace SampleSongs

} // namespace brisel
