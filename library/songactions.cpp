#include "library/songactions.h"

#include "base/debugstream.h"
#include "library/songfile.h"

#include <QFile>

namespace brisel
{

static bool logged(bool isDone)
{
    debug() << (isDone ? "Ok" : "Error!");
    return isDone;
}

bool deleteSongFile(const QString &path)
{
    return QFile::remove(path);
}

bool saveTestCopy(const QString &path)
{
    const QString copy = QStringLiteral("test_save.bin");
    SongFile file(path);
    debug() << "Saving to file: " << copy;
    return logged(file.song.saveToFile(copy));
}

bool saveMarkedCopy(const QString &path, const QString &text, unsigned short bar)
{
    const QString copy = QStringLiteral("test_addmarker.bin");
    SongFile file(path);
    const bool isMarked = logged(file.song.dbgAddMarker(text, bar) > 0);
    debug() << "Saving to file: " << copy;
    return file.song.saveToFile(copy) && isMarked;
}

} // namespace brisel
