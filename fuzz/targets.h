#pragma once

class QByteArray;

namespace brisel
{

/// The fuzz targets. Each accepts any bytes, and ends the program if the code under test breaks a
/// guarantee.

/// The codec's decoder, with any stream.
void checkLzHuffExpand(const QByteArray &input);
/// The codec's coder and decoder: the data must come back unchanged.
void checkLzHuffRoundTrip(const QByteArray &input);
/// A MIDI file: every getter, and a script of setters against a model.
void checkMidiFile(const QByteArray &input);
/// The time map of a MIDI file, and its karaoke lines.
void checkSongTimeline(const QByteArray &input);
/// A container's header: every getter, and a script of setters.
void checkZbxHeader(const QByteArray &input);
/// An ID3 tag: every getter, and a script of setters.
void checkMp3Header(const QByteArray &input);
/// A whole song file of any format: import, change, save, import again.
void checkMetaSong(const QByteArray &input);
/// The index record made from the first bytes of a song.
void checkSongHead(const QByteArray &input);
/// An index set read back from a memory.
void checkIndexReader(const QByteArray &input);
/// A check and an update of a memory with any index.
void checkMemoryCheck(const QByteArray &input);
/// The playlists of a memory, converted to paths and back.
void checkPlaylists(const QByteArray &input);
/// The playlists of a memory as they are shown, changed and written.
void checkMemoryPlaylists(const QByteArray &input);
/// A marker list of the catalogue.
void checkMarkers(const QByteArray &input);
/// A catalogue file.
void checkCatalogue(const QByteArray &input);
/// The file in which a memory keeps the given names of its songs.
void checkGivenNames(const QByteArray &input);
/// The files that a cut swap of the index has left on a memory.
void checkSwapMark(const QByteArray &input);

} // namespace brisel
