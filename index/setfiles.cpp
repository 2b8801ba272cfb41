#include "index/setfiles.h"

#include "base/fileidentity.h"
#include "base/filereading.h"
#include "index/indexrecords.h"
#include "index/indexset.h"
#include "index/songinfoindex.h"

#include <utility>

namespace brisel
{

namespace
{

constexpr qint64 mostSongs = SongInfoIndex::maxSongs;

/// Returns null for a file that is missing or can't be read.
QByteArray readSetFile(const IndexSet &set, const QString &name, qint64 maximum)
{
    return readWholeFile(set.filePath(name), maximum).bytes;
}

bool readPathFile(const QString &path, QByteArray &content)
{
    constexpr qint64 maximum = mostSongs * IndexRecord::size;
    FileContent whole = readWholeFile(path, maximum);
    content = std::move(whole.bytes);
    switch (whole.result) {
    case ReadResult::Done:
    case ReadResult::NoPlainFile:
        return true;
    case ReadResult::TooLarge:
        // Something was appended to it.
        return readFileStart(path, maximum, content, whole.state);
    case ReadResult::NotOpened:
        return fileKind(path) == FileKind::Missing;
    case ReadResult::CutShort:
        break;
    }
    return false;
}

} // namespace

bool SetFiles::read(const IndexSet &set)
{
    static const std::array<QString, Lists> names{
        QStringLiteral("title.id2"),  QStringLiteral("artist.id2"),  QStringLiteral("genre.id2"),
        QStringLiteral("title3.id2"), QStringLiteral("artist3.id2"), QStringLiteral("genre3.id2")};
    constexpr qint64 countsSize = 12; // bytes
    if (!readPathFile(set.filePath(QStringLiteral("index.id2")), paths))
        return false;
    order = readSetFile(set, QStringLiteral("ordfile.id2"), 2 * mostSongs);
    counts = readSetFile(set, QStringLiteral("fsinfos.id2"), countsSize);
    for (std::size_t i = 0; i < Lists; ++i) {
        // Each song can have its own header.
        const qint64 records = isGrouped(i) ? 2 * mostSongs : mostSongs;
        lists.at(i).content = readSetFile(set, names.at(i), records * IndexRecord::size);
        lists.at(i).alphabet = readSetFile(set, u'a' + names.at(i), AlphabetTable::size);
    }
    return true;
}

} // namespace brisel
