#pragma once

#include "songfile/songinfo.h"
#include "tools/sampletunes.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Makes valid song files of every kind for tests, benchmarks and the demo. Nothing here uses the
/// program's own readers and writers (the codec excepted), so that a mistake there shows.
namespace SampleSongs
{

/// What a MIDI song is made of.
struct MidiOptions {
    int format = 1;       ///< of the Standard MIDI File: 0 or 1
    Tune tune;            ///< four bars of introduction, the verses, two bars of ending
    int verses = 2;       ///< at least 1
    int bpm = 0;          ///< quarter notes a minute; 0 takes the tune's own
    bool karaoke = false; ///< with the text events of a ".kar" file
    SongInfo info;        ///< what is empty or 0 here is left out of the file
};

/// A Standard MIDI File: melody, chords, bass and drums.
QByteArray midi(const MidiOptions &options);
/// The markers of such a song: "Intro", "Verse 1", ... "Fine".
QList<Marker> markers(const Tune &tune, int verses);
/// The playing time of such a song in whole seconds.
int seconds(const Tune &tune, int verses, int bpm);

/// The tags that an MP3 can have.
enum class Tag { None, Id3v22, Id3v23, Id3v24 };
/// Silent MPEG-1 Layer III audio of \a seconds behind a tag.
QByteArray mp3(Tag tag, const SongInfo &info, int seconds);
/// The karaoke graphics beside an MP3: a plain screen for \a seconds.
QByteArray cdg(int seconds);

/// A compressed container of \a generation (Zb3, Zb4 or Zb5) around \a midi.
QByteArray container(SongInfo::fileTypeEnum generation, const SongInfo &info,
                     const QByteArray &midi);

/// One file of the sample set.
struct Sample {
    QString fileName; ///< without folder
    QByteArray content;
    SongInfo expected;     ///< what a reader finds; nothing for a companion file
    QString catalogueName; ///< "filename" of the catalogue's row for it; empty when there is none
    bool isSong = true;    ///< false for a companion such as ".cdg"
};

/// One song at least of each kind; published by Kordia or not; known to the catalogue by file
/// name, by long name, by title only, or not at all.
QList<Sample> set();

/// Writes the set into \a folder, which must exist, and gives the paths of its songs. False when a
/// file could not be written whole.
bool writeSet(const QString &folder, QStringList *paths = nullptr);
/// Writes \a count songs of all kinds with names and titles of their own, for measuring.
bool writeMany(const QString &folder, int count, QStringList *paths = nullptr);

} // namespace SampleSongs
