#pragma once

class QByteArray;

/// The fuzz targets. Each takes any bytes at all, and ends the program when the code under test
/// breaks one of its promises.

/// The codec's decoder, by a stream that anyone may have written.
void checkLzHuffExpand(const QByteArray &input);
/// The codec's coder and decoder, by data that come back unchanged.
void checkLzHuffRoundTrip(const QByteArray &input);
/// A MIDI file: every getter, and a script of setters against a model.
void checkMidiFile(const QByteArray &input);
/// A container's header, in the same way.
void checkZbxHeader(const QByteArray &input);
/// An ID3 tag, in the same way.
void checkMp3Header(const QByteArray &input);
/// A whole song file of any format: import, change, save, import again.
void checkMetaSong(const QByteArray &input);
/// What the player's index says of a song by its first bytes.
void checkSongHead(const QByteArray &input);
/// An index set read back from a memory.
void checkIndexReader(const QByteArray &input);
/// A check and an update of a memory whose index anyone may have written.
void checkMemoryCheck(const QByteArray &input);
/// The playlists of a memory, to paths and back.
void checkPlaylists(const QByteArray &input);
/// A marker list of the catalogue.
void checkMarkers(const QByteArray &input);
/// A catalogue file.
void checkCatalogue(const QByteArray &input);
/// The names that a memory remembers of its songs.
void checkGivenNames(const QByteArray &input);
/// What a swap of the index that was cut has left on a memory.
void checkSwapMark(const QByteArray &input);
