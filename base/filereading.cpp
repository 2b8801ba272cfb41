#include "base/filereading.h"

#include <algorithm>

ReadResult readWholeFile(const QString &path, qint64 maximum, QByteArray &content, FileState *state)
{
    PlainFile file;
    const bool isOpen = file.open(path);
    if (state != nullptr)
        *state = file.state();
    if (isOpen)
        return readWholeFile(file, maximum, content);
    content.clear();
    const FileKind kind = file.state().kind;
    return kind == FileKind::Folder || kind == FileKind::Other ? ReadResult::NoPlainFile
                                                               : ReadResult::NotOpened;
}

ReadResult readWholeFile(const PlainFile &file, qint64 maximum, QByteArray &content)
{
    content.clear();
    if (!file.isOpen())
        return ReadResult::NotOpened;
    if (file.size() > maximum)
        return ReadResult::TooLarge;
    if (file.read(0, file.size(), content) && file.keepsItsSize())
        return ReadResult::Done;
    content.clear();
    return ReadResult::CutShort;
}

bool readFileStart(const QString &path, qsizetype maximum, QByteArray &start, FileState &state)
{
    PlainFile file;
    file.open(path);
    state = file.state();
    return file.read(0, std::min<qint64>(maximum, file.size()), start);
}
