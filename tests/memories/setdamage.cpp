#include "tests/memories/setdamage.h"

#include "tests/memories/livingmemory.h"
#include "tests/testfiles.h"

#include <sys/stat.h>

namespace brisel
{

namespace
{

constexpr int recordBytes = 64;

const QStringList setNames{
    u"index.id2"_qs,  u"ordfile.id2"_qs, u"title.id2"_qs,    u"artist.id2"_qs,  u"genre.id2"_qs,
    u"atitle.id2"_qs, u"aartist.id2"_qs, u"agenre.id2"_qs,   u"title3.id2"_qs,  u"artist3.id2"_qs,
    u"genre3.id2"_qs, u"atitle3.id2"_qs, u"aartist3.id2"_qs, u"agenre3.id2"_qs, u"fsinfos.id2"_qs};

enum Kind {
    Emptied,
    Cut,
    Zeros,
    HalfRecord,
    OneByte,
    SwappedIds,
    DoubledId,
    DoubledPath,
    OtherOffset,
    Removed,
    Folder,
    Fifo,
    Kinds
};

/// Copies \a size bytes at \a pos of one record to another, or exchanges them. Returns the numbers
/// of the records; empty if there are no two different ones.
QString copyField(QByteArray &content, std::mt19937 &random, int pos, int size, bool areSwapped)
{
    const auto records = content.size() / recordBytes;
    if (records < 2)
        return {};
    const qsizetype one = below(random, records);
    const qsizetype other = (one + 1 + below(random, records - 1)) % records;
    // Songs with the same content can't be distinguished.
    if (areSwapped && content.mid(one * recordBytes + size, recordBytes - size) ==
                          content.mid(other * recordBytes + size, recordBytes - size))
        return {};
    const QByteArray first = content.mid(one * recordBytes + pos, size);
    const QByteArray second = content.mid(other * recordBytes + pos, size);
    content.replace(other * recordBytes + pos, size, first);
    if (areSwapped)
        content.replace(one * recordBytes + pos, size, second);
    return u" %1 %2"_qs.arg(one).arg(other);
}

/// True if \a pos is in the name of an artist or genre, which is stored only there: a change can't
/// be detected.
bool isGroupName(const QByteArray &content, int pos)
{
    const QByteArray record = content.mid(pos - pos % recordBytes, recordBytes);
    return record.endsWith(QByteArray("\0\xFF", 2)) && pos % recordBytes >= 4 &&
           pos % recordBytes < 62;
}

/// Changes \a content, the new content of the file. Returns a description; empty if it can't be
/// changed in this way.
QString change(QByteArray &content, Kind kind, std::mt19937 &random)
{
    const qsizetype size = content.size();
    switch (kind) {
    case Emptied:
        content.clear();
        return u"emptied"_qs;
    case Cut:
        content.truncate(size == 0 ? 0 : below(random, size));
        return u"cut to %1"_qs.arg(content.size());
    case Zeros:
        content.fill('\0');
        return u"zeros"_qs;
    case HalfRecord:
        content += QByteArray(1 + below(random, recordBytes - 1), 'h');
        return u"half a record"_qs;
    case OneByte: {
        if (size == 0)
            return {};
        const int pos = below(random, size);
        if (isGroupName(content, pos))
            return {};
        content[pos] = static_cast<char>(content.at(pos) ^ (1 + below(random, 255)));
        return u"byte %1"_qs.arg(pos);
    }
    case SwappedIds:
        return u"swapped ids"_qs + copyField(content, random, 0, 4, true);
    case DoubledId:
        return u"doubled id"_qs + copyField(content, random, 0, 4, false);
    case DoubledPath:
        return u"doubled path"_qs + copyField(content, random, 4, 46, false);
    case OtherOffset: {
        const QByteArray offset = QByteArray::number(below(random, 20) * recordBytes, 16);
        content.replace(below(random, 64) * 4, 4,
                        QByteArray::fromHex(offset.rightJustified(8, '0')));
        return u"another offset"_qs;
    }
    default:
        return {};
    }
}

/// Replaces the file by something that is not a file, or removes it.
QString replace(const QString &path, Kind kind)
{
    QFile::remove(path);
    if (kind == Folder)
        QDir().mkdir(path);
    else if (kind == Fifo)
        ::mkfifo(QFile::encodeName(path).constData(), 0644);
    return kind == Removed ? u"removed"_qs : kind == Folder ? u"folder"_qs : u"FIFO"_qs;
}

bool suits(Kind kind, const QString &name)
{
    const bool isTable = name.startsWith(u'a') && !name.startsWith(u"artist");
    switch (kind) {
    case SwappedIds:
    case DoubledId:
        return !isTable && name != u"ordfile.id2" && name != u"fsinfos.id2";
    case DoubledPath:
        return name == u"index.id2";
    case OtherOffset:
        return isTable;
    default:
        return true;
    }
}

} // namespace

SetDamage damageSet(const QString &root, std::mt19937 &random, bool mayRemove)
{
    // A third of the damage is to the paths, the most important file.
    const QString name = setNames.at(below(random, 3) == 0 ? 0 : below(random, setNames.size()));
    const QString path = root + u'/' + name;
    Kind kind = Emptied;
    do {
        kind = static_cast<Kind>(below(random, mayRemove ? Kinds : Removed));
    } while (!suits(kind, name));
    SetDamage damage;
    if (!QFileInfo(path).isFile())
        return {u"no damage"_qs};
    QByteArray content = fileContent(path);
    const QByteArray before = content;
    const QString description =
        kind >= Removed ? replace(path, kind) : change(content, kind, random);
    if (kind < Removed && content != before)
        makeFile(path, content);
    damage.description = u"damage %1: %2"_qs.arg(name, description);
    damage.isOfIds = name == u"index.id2";
    if (damage.isOfIds && kind == OneByte) {
        const auto pos =
            std::mismatch(before.cbegin(), before.cend(), content.cbegin()).first - before.cbegin();
        damage.isOfPath = pos % recordBytes >= 4 && pos % recordBytes < 50;
    }
    return damage;
}

SetDamage damagePathFile(const QString &root, std::mt19937 &random)
{
    const QDir folder(root + u"/playlist"_qs);
    const QStringList names = folder.entryList({u"*.pts"_qs}, QDir::Files, QDir::Name);
    if (names.isEmpty())
        return {u"no path file"_qs};
    const QString name = names.at(below(random, names.size()));
    const QString path = folder.filePath(name);
    const auto kind = static_cast<Kind>(below(random, SwappedIds));
    if (below(random, 8) == 0)
        return {u"damage %1: %2"_qs.arg(name, replace(path, below(random, 2) ? Removed : Folder))};
    QByteArray content = fileContent(path);
    const QString description = change(content, kind, random);
    makeFile(path, content);
    return {u"damage %1: %2"_qs.arg(name, description)};
}

} // namespace brisel
