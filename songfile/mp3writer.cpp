#include "songfile/mp3writer.h"

#include "base/debugstream.h"
#include "base/fileattributes.h"
#include "base/filecopying.h"
#include "base/overwriting.h"
#include "songfile/mp3header.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

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

/// Creates a file that was not there before: somebody's own ".tmp" is never overwritten.
bool createTemporary(QFile &file, const QString &song)
{
    constexpr int maxAttempts = 1000;
    const QFile::Permissions own = QFile::ReadOwner | QFile::WriteOwner;
    for (int attempt = 0; attempt < maxAttempts; ++attempt) {
        file.setFileName(temporaryPath(song, attempt));
        if (file.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered, own))
            return true;
        const QFileInfo entry(file.fileName());
        if (!entry.exists() && !entry.isSymLink())
            return false;
    }
    return false;
}

/// Writes the tag, and behind it the audio of the open file \a song of \a size bytes. Logs what
/// failed.
WriteResult writeSong(int song, qint64 size, QFile &target, const QByteArray &tag,
                      qint64 audioStart)
{
    if (!writeAll(target, tag)) {
        debug() << "[MetaSong::saveToFile] Impossible to write to file.";
        return WriteResult::Failed;
    }
    // A tag may say that it ends up to its header's size behind the file; a song that is shorter
    // than that is not the one that was loaded.
    if (audioStart < 0 || size + Mp3Header::tagHeaderSize < audioStart) {
        debug() << "[MetaSong::saveToFile] Impossible to seek file.";
        return WriteResult::Failed;
    }
    const qint64 audio = std::max<qint64>(size - audioStart, 0);
    const CopyResult result = copyRest(song, size - audio, audio, target.handle());
    if (result == CopyResult::Done && finishOverwriting(target, tag.size() + audio))
        return WriteResult::Done;
    debug() << "[MetaSong::saveToFile] Impossible to copy part of file.";
    return result == CopyResult::SourceFailed ? WriteResult::SourceFailed : WriteResult::Failed;
}

/// Like rewriteMp3(), for a song that keeps its other names; \a copy gets the old one.
WriteResult rewriteInPlace(const QString &place, QFile &copy, const PlainFile &song,
                           const QByteArray &tag, qint64 audioStart)
{
    bool isCopied = false;
    const auto write = [&](QFile &file) {
        isCopied = true;
        return writeSong(copy.handle(), song.size(), file, tag, audioStart) == WriteResult::Done;
    };
    const WriteResult result = overwriteKeepingCopy(place, copy, &song.state(), write);
    if ((result == WriteResult::Failed || result == WriteResult::SourceFailed) && !isCopied)
        debug() << "[MetaSong::saveToFile] Impossible to copy part of file.";
    return result;
}

} // namespace

WriteResult rewriteMp3(const QString &path, const PlainFile &song, const QByteArray &tag,
                       qint64 audioStart)
{
    const QString place = QFileInfo(path).canonicalFilePath();
    QFile target;
    if (!createTemporary(target, place)) {
        debug() << "[MetaSong::saveToFile] Impossible to write to file. Maybe it's write "
                   "protected? Aborting!";
        return WriteResult::Failed;
    }
    if (hasOtherNames(place))
        return rewriteInPlace(place, target, song, tag, audioStart);
    keepAttributes(song.handle(), target.handle());
    const WriteResult result = writeSong(song.handle(), song.size(), target, tag, audioStart);
    const bool isWritten = result == WriteResult::Done;
    target.close();
    const bool isChanged = fileState(path) != song.state();
    if (isWritten && !isChanged && moveOver(target.fileName(), place))
        return WriteResult::Done;
    // Where the old song had to be deleted first, the temporary file is all that is left of it.
    if (!isWritten || isChanged || QFile::exists(place))
        target.remove();
    // What another program has made shorter can't be read to its end either.
    if (isChanged && result != WriteResult::Failed)
        return WriteResult::Changed;
    return isWritten ? WriteResult::Failed : result;
}
