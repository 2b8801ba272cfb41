#include "songfile/songrestoring.h"

#include "base/filelot.h"
#include "base/filereading.h"
#include "songfile/metasong.h"
#include "songfile/mp3writer.h"
#include "songfile/songkeeper.h"

#include <algorithm>

namespace brisel
{

namespace
{

/// The data in \a bytes; empty if they are not a song of that format. After an MP3's tag its audio
/// is missing, but a header must have ten bytes.
SongInfo infoIn(const OldSong &song)
{
    SongData data;
    bool isLoaded = false;
    if (song.isMp3())
        isLoaded = data.loadMp3(song.bytes + QByteArray(Mp3Header::tagHeaderSize, '\0'));
    else if (ZbxHeader::typeOf(song.bytes) != SongInfo::Unknown)
        isLoaded = data.loadContainer(song.bytes);
    else
        isLoaded = data.loadMidi(song.bytes);
    return isLoaded ? data.info() : SongInfo();
}

WriteResult restoreWhole(const QString &path, PlainFile &file, const OldSong &old, FileLot &lot,
                         SongKeeper *keeper)
{
    const FileContent present = readWholeFile(file, MetaSong::maxSongSize);
    if (!present.isDone())
        return WriteResult::SourceFailed;
    if (keeper != nullptr)
        keeper->keep(
            {path, old.format, Fingerprint::ofWhole(present.bytes), Fingerprint::ofWhole(old.bytes),
             fieldChanges(infoIn({old.format, present.bytes}), infoIn(old)), present.bytes});
    // The space of the replaced file is not freed while the file is open.
    file.close();
    return replaceUnchanged(path, old.bytes, file.state(), &lot);
}

WriteResult restoreTag(const QString &path, PlainFile &file, const OldSong &old, qint64 tagSize,
                       FileLot &lot, SongKeeper *keeper)
{
    const qint64 tagEnd = std::min(tagSize, file.size());
    const qint64 audioSize = file.size() - tagEnd;
    QByteArray tag;
    QByteArray audio;
    if (!file.read(0, tagEnd, tag) ||
        !file.read(tagEnd, std::min(audioSize, Fingerprint::checkedAudio), audio))
        return WriteResult::SourceFailed;
    if (keeper != nullptr)
        keeper->keep({path, old.format, Fingerprint::ofMp3(tag, audio, file.size()),
                      Fingerprint::ofMp3(old.bytes, audio, old.bytes.size() + audioSize),
                      fieldChanges(infoIn({old.format, tag}), infoIn(old)), tag});
    return rewriteMp3(path, file, old.bytes, tagEnd, &lot);
}

} // namespace

WriteResult restoreSong(const QString &path, PlainFile &file, const OldSong &old, qint64 tagSize,
                        FileLot &lot, SongKeeper *keeper)
{
    const WriteResult result = old.isMp3() ? restoreTag(path, file, old, tagSize, lot, keeper)
                                           : restoreWhole(path, file, old, lot, keeper);
    if (keeper != nullptr && result != WriteResult::Staged)
        keeper->settle(path, result);
    return result;
}

} // namespace brisel
