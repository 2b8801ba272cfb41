#include "base/filereading.h"

#include <algorithm>

namespace brisel
{

FileContent readWholeFile(const QString &path, qint64 maximum)
{
    PlainFile file;
    if (file.open(path))
        return readWholeFile(file, maximum);
    const FileKind kind = file.state().kind;
    const bool isOther = kind == FileKind::Folder || kind == FileKind::Other;
    return {isOther ? ReadResult::NoPlainFile : ReadResult::NotOpened, {}, file.state()};
}

FileContent readWholeFile(const PlainFile &file, qint64 maximum)
{
    FileContent content{ReadResult::NotOpened, {}, file.state()};
    if (!file.isOpen())
        return content;
    if (file.size() > maximum) {
        content.result = ReadResult::TooLarge;
        return content;
    }
    const bool isWhole = file.read(0, file.size(), content.bytes) && file.keepsItsSize();
    content.result = isWhole ? ReadResult::Done : ReadResult::CutShort;
    if (!isWhole)
        content.bytes.clear();
    return content;
}

bool readFileStart(const QString &path, qsizetype maximum, QByteArray &start, FileState &state)
{
    PlainFile file;
    (void)file.open(path); // nothing is read from a file that is not open
    state = file.state();
    return file.read(0, std::min<qint64>(maximum, file.size()), start);
}

} // namespace brisel
