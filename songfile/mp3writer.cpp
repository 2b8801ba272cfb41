#include "songfile/mp3writer.h"

#include "base/debugstream.h"
#include "base/fileattributes.h"
#include "base/filecopying.h"
#include "base/filelot.h"
#include "base/overwriting.h"
#include "songfile/mp3header.h"

#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <utility>

namespace brisel
{

using namespace Qt::StringLiterals;

namespace
{

/// The song's path up to the last "." of its file name, then ".tmp"; later attempts number it.
QString temporaryPath(const QString &song, int attempt)
{
    const qsizetype nameStart = song.lastIndexOf(u'/') + 1;
    const qsizetype dot = song.lastIndexOf(u'.');
    const QString prefix = song.left(dot >= nameStart ? dot : nameStart);
    return attempt == 0 ? prefix + u".tmp"_s : u"%1.%2.tmp"_s.arg(prefix, QString::number(attempt));
}

void logNoTemporary()
{
    debug() << "[MetaSong::saveToFile] Impossible to write to file. Maybe it's write "
               "protected? Aborting!";
}

void logNoCopy()
{
    debug() << "[MetaSong::saveToFile] Impossible to copy part of file.";
}

qint64 audioSize(qint64 songSize, qint64 audioStart)
{
    return std::max<qint64>(songSize - audioStart, 0);
}

/// Writes the tag, and after it the audio of the open file \a song of \a size bytes. Does not
/// flush. Logs failures.
WriteResult writeSong(int song, qint64 size, QFile &target, const QByteArray &tag,
                      qint64 audioStart)
{
    if (!writeAll(target, tag)) {
        debug() << "[MetaSong::saveToFile] Impossible to write to file.";
        return WriteResult::Failed;
    }
    // A tag may end after the file by up to its header's size; a shorter song is not the one that
    // was loaded.
    if (audioStart < 0 || size + Mp3Header::tagHeaderSize < audioStart) {
        debug() << "[MetaSong::saveToFile] Impossible to seek file.";
        return WriteResult::Failed;
    }
    const qint64 audio = audioSize(size, audioStart);
    const CopyResult result = copyRest(song, size - audio, audio, target.handle());
    if (result == CopyResult::Done)
        return WriteResult::Done;
    logNoCopy();
    return result == CopyResult::SourceFailed ? WriteResult::SourceFailed : WriteResult::Failed;
}

/// Like rewriteMp3(), for a song that keeps its other names; \a copy gets the old one.
WriteResult rewriteInPlace(const QString &place, QFile &copy, const PlainFile &song,
                           const QByteArray &tag, qint64 audioStart)
{
    bool isCopied = false;
    const auto write = [&](QFile &file) {
        isCopied = true;
        if (writeSong(copy.handle(), song.size(), file, tag, audioStart) != WriteResult::Done)
            return false;
        const bool isFlushed =
            finishOverwriting(file, tag.size() + audioSize(song.size(), audioStart));
        if (!isFlushed)
            logNoCopy();
        return isFlushed;
    };
    const WriteResult result = overwriteKeepingCopy(place, copy, &song.state(), write);
    if ((result == WriteResult::Failed || result == WriteResult::SourceFailed) && !isCopied)
        logNoCopy();
    return result;
}

/// Returns Staged if the commit of the lot does the rest.
WriteResult rewriteIn(FileLot &lot, const FileLot::Place &place, const PlainFile &song,
                      const QByteArray &tag, qint64 audioStart)
{
    std::unique_ptr<FileReplacement> target = lot.open(place);
    if (target == nullptr) {
        logNoTemporary();
        return WriteResult::Failed;
    }
    QFile &file = target->file();
    keepAttributes(song.handle(), file.handle());
    const WriteResult result = writeSong(song.handle(), song.size(), file, tag, audioStart);
    if (result == WriteResult::Done) {
        target->finish(tag.size() + audioSize(song.size(), audioStart));
        lot.add(std::move(target));
        return WriteResult::Staged;
    }
    // A song that another program has shortened can't be read to its end either.
    const bool isChanged = fileState(place.watched) != song.state();
    return isChanged && result == WriteResult::SourceFailed ? WriteResult::Changed : result;
}

} // namespace

WriteResult rewriteMp3(const QString &path, PlainFile &song, const QByteArray &tag,
                       qint64 audioStart, FileLot *lot,
                       const std::function<void()> &beforeReplacing)
{
    FileLot alone;
    alone.setBeforeReplacing(beforeReplacing);
    FileLot &used = lot == nullptr ? alone : *lot;
    const QString target = QFileInfo(path).canonicalFilePath();
    const TemporaryPath temporary = [&target](int attempt) {
        return temporaryPath(target, attempt);
    };
    if (hasOtherNames(target)) {
        QFile copy;
        if (openNewFile(copy, temporary, true)) {
            used.aboutToReplace();
            return rewriteInPlace(target, copy, song, tag, audioStart);
        }
        logNoTemporary();
        return WriteResult::Failed;
    }
    FileLot::Place place{target};
    place.expected = &song.state();
    place.watched = path;
    place.temporaryPath = temporary;
    const WriteResult result = rewriteIn(used, place, song, tag, audioStart);
    if (lot != nullptr || result != WriteResult::Staged)
        return result;
    // The space of the replaced file is not freed while the file is open.
    song.close();
    const WriteResult placed = alone.commit().first();
    if (placed == WriteResult::Failed)
        logNoCopy();
    return placed;
}

} // namespace brisel
