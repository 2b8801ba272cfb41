#include "songfile/mp3writer.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/filewriting.h"
#include "songfile/mp3header.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{

/// The song's path up to the last "." of its file name, then ".tmp"; later attempts number it.
QString temporaryPath(const QString &song, int attempt)
{
    const qsizetype nameStart = song.lastIndexOf(u'/') + 1;
    const qsizetype dot = song.lastIndexOf(u'.');
    const QString prefix = song.left(dot >= nameStart ? dot : nameStart);
    return attempt == 0 ? prefix + u".tmp"_s : u"%1.%2.tmp"_s.arg(prefix).arg(attempt);
}

/// Creates a file that was not there before: somebody's own ".tmp" is never overwritten.
bool createTemporary(QFile &file, const QFile &song)
{
    constexpr int maxAttempts = 1000;
    for (int attempt = 0; attempt < maxAttempts; ++attempt) {
        file.setFileName(temporaryPath(song.fileName(), attempt));
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered,
                      song.permissions())) {
            file.setPermissions(song.permissions());
            return true;
        }
        const QFileInfo entry(file.fileName());
        if (!entry.exists() && !entry.isSymLink())
            return false;
    }
    return false;
}

/// A tag may say that it ends up to its header's size behind the file; a song that is shorter than
/// that is not the one that was loaded.
bool seekAudio(QFile &song, qint64 audioStart)
{
    return song.size() + Mp3Header::tagHeaderSize >= audioStart && song.seek(audioStart);
}

/// Copies what is left of \a song; returns the bytes copied or -1. A song that has become shorter
/// meanwhile is an error.
qint64 copyAudio(QFile &song, QFile &target)
{
    constexpr qint64 blockSize = 100000;
    const qint64 expected = song.size() - song.pos();
    QByteArray block(blockSize, Qt::Uninitialized);
    qint64 copied = 0;
    for (;;) {
        const qint64 got = song.read(block.data(), blockSize);
        if (got < 0)
            return -1;
        if (got == 0)
            return copied >= expected ? copied : -1;
        if (target.write(block.constData(), got) != got)
            return -1;
        copied += got;
    }
}

/// Fills the temporary file. Logs what failed.
bool writeSong(QFile &song, QFile &target, const QByteArray &tag, qint64 audioStart)
{
    if (!writeAll(target, tag)) {
        debug() << "[MetaSong::saveToFile] Impossible to write to file.";
        return false;
    }
    if (!seekAudio(song, audioStart)) {
        debug() << "[MetaSong::saveToFile] Impossible to seek file.";
        return false;
    }
    const qint64 copied = copyAudio(song, target);
    if (copied < 0 || !finishWriting(target, tag.size() + copied)) {
        debug() << "[MetaSong::saveToFile] Impossible to copy part of file.";
        return false;
    }
    return true;
}

} // namespace

bool rewriteMp3(const QString &path, const QByteArray &tag, qint64 audioStart)
{
    QFile song(QFileInfo(path).canonicalFilePath());
    if (!isRegularFile(path) || !song.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        debug() << "[MetaSong::saveToFile] Impossible to read from file.";
        return false;
    }
    QFile target;
    if (!createTemporary(target, song)) {
        debug() << "[MetaSong::saveToFile] Impossible to write to file. Maybe it's write "
                   "protected? Aborting!";
        return false;
    }
    if (!writeSong(song, target, tag, audioStart)) {
        target.remove();
        return false;
    }
    target.close();
    song.close();
    if (moveOver(target.fileName(), song.fileName()))
        return true;
    if (song.exists())
        target.remove();
    return false;
}
