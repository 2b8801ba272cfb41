#pragma once

#include "base/memoryidentity.h"
#include "memory/playlistdocument.h"
#include "memory/playlistwriter.h"
#include "tests/index/samplememory.h"
#include "tests/scriptedrun.h"

#include <QTest>

#include <memory>

namespace brisel
{

/// Memories with playlists, whose files are written by hand.
namespace Sample
{

inline const QString songsOf7 = u"playlist/play0007.dat"_qs;
inline const QString pathsOf7 = u"playlist/play0007.pts"_qs;

/// "VOLARE", id 2, "AZZURRO", id 5, and "NESSUNO", id 9.
inline const QByteArray volare = songRecord("00000002", "VOLARE", "7808");
inline const QByteArray azzurro = songRecord("00000005", "AZZURRO", "0001");
inline const QByteArray nessuno = songRecord("00000009", "NESSUNO", "5002");
/// Their records in a path file.
inline const QByteArray volarePath = field("/BASI/VOLARE.MID", 64);
inline const QByteArray azzurroPath = field("/BASI/AZZUR\x85.MP3", 64);
inline const QByteArray nessunoPath = field("/NESSUNO.ZB3", 64);
/// An entry whose id is not in the index, with bytes that no index has, and its path.
inline const QByteArray deadSong = songRecord("00000777", "ANCORA", "61F8");
inline const QByteArray deadPath = field("/OLD/ANCORA.MID", 64);
/// An entry with the id of "VOLARE" and another title.
inline const QByteArray wrongSong = songRecord("00000002", "AZZURRO", "0001");

/// Writes the index of the three songs.
inline void writeIndex(const SampleMemory &memory)
{
    const QByteArray digits = "20091231235958";
    memory.write(u"index.id2"_qs, pathRecord("00000002", "/BASI/VOLARE.MID", digits) +
                                      pathRecord("00000005", "/BASI/AZZUR\x85.MP3", digits) +
                                      pathRecord("00000009", "/NESSUNO.ZB3", digits));
    memory.write(u"ordfile.id2"_qs, hex("010000000200"));
    memory.write(u"title.id2"_qs, azzurro + nessuno + volare);
    memory.write(u"artist.id2"_qs, groupHeader("00000003", "MODUGNO") + azzurro + nessuno + volare);
    memory.write(u"genre.id2"_qs, groupHeader("00000003", "POP") + azzurro + nessuno + volare);
    memory.write(u"title3.id2"_qs, azzurro);
    memory.write(u"artist3.id2"_qs, groupHeader("00000001", "MODUGNO") + azzurro);
    memory.write(u"genre3.id2"_qs, groupHeader("00000001", "POP") + azzurro);
    for (const QString &name : {u"atitle.id2"_qs, u"aartist.id2"_qs, u"agenre.id2"_qs,
                                u"atitle3.id2"_qs, u"aartist3.id2"_qs, u"agenre3.id2"_qs})
        memory.write(name, alphabet({}));
    memory.write(u"fsinfos.id2"_qs, hex("030001000100010001000100"));
}

/// The record of the player's list for a playlist.
inline QByteArray listRecord(const char *numberHex)
{
    return hex(numberHex) + QByteArray(30, '\x55');
}

/// Writes the index and the playlist 7; no path file if \a paths is null.
inline void writePlaylist(const SampleMemory &memory, const QByteArray &songs,
                          const QByteArray &paths)
{
    writeIndex(memory);
    memory.write(u"playlist/playlist.dat"_qs, listRecord("0700"));
    memory.write(songsOf7, songs);
    if (!paths.isNull())
        memory.write(pathsOf7, paths);
}

inline std::shared_ptr<const MemoryContents> readContents(const SampleMemory &memory)
{
    auto contents = std::make_shared<MemoryContents>();
    ScriptedRun run;
    if (contents->read(memory.root(), run) != MemoryContents::Outcome::Done)
        qFatal("can't read the memory");
    return contents;
}

/// Adds the song \a id at the start of the first playlist and saves, as the memory window does.
inline bool addAndSave(const SampleMemory &memory, quint32 id)
{
    ScriptedRun run;
    PlaylistDocument document;
    document.setContents(readContents(memory));
    return document.add(0, 0, {id}) == 1 &&
           PlaylistWriter(document, run).save(MemoryIdentity(memory.root()));
}

} // namespace Sample

} // namespace brisel
