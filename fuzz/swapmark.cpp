#include "base/bytes.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "index/indexset.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace brisel
{

namespace
{

enum MarkPart { Mark, Counts, Titles, Playlist, SwapFlags, MarkParts };
enum Flag { NoEnd = 1, OldIsWhole = 2 };

bool hasFlag(const QList<QByteArray> &parts, Flag flag)
{
    return (byteAt(parts.at(SwapFlags), 0) & flag) != 0;
}

const QString playlistName = QStringLiteral("playlist/play0001.dat");

QByteArray checksum(const QByteArray &content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha1).toHex();
}

/// The content that is staged under \a name; empty for the other files of the set.
QByteArray stagedContent(const QString &name, const QList<QByteArray> &parts)
{
    if (name == QStringLiteral("fsinfos.id2"))
        return parts.at(Counts);
    if (name == QStringLiteral("title.id2"))
        return parts.at(Titles);
    return name == playlistName ? parts.at(Playlist) : QByteArray();
}

/// A fuzzer can't guess checksums: "#1" to "#9" in the mark are replaced by those of the staged
/// parts or of no content, and the last line is added unless a flag forbids it.
QByteArray markBytes(const QList<QByteArray> &parts)
{
    QByteArray mark = parts.at(Mark);
    for (const MarkPart part : {Counts, Titles, Playlist})
        mark.replace('#' + QByteArray::number(part), checksum(parts.at(part)));
    mark.replace("#9", checksum({}));
    if (!hasFlag(parts, NoEnd))
        mark += "end " + checksum(mark) + '\n';
    return mark;
}

QByteArray oldContent(const QString &name)
{
    return "old " + name.toLatin1();
}

/// Files that a swap must not change.
QStringList strangers()
{
    return {QStringLiteral("outside"), QStringLiteral("memory/SONG.MID"),
            QStringLiteral("memory/playlist/playlist.dat"),
            QStringLiteral("memory/playlist/play0001.pts"), QStringLiteral("memory/sfx.id2")};
}

void makeMemory(const QString &folder, const QList<QByteArray> &parts)
{
    const QString root = folder + QStringLiteral("/memory");
    REQUIRE(!QFileInfo::exists(root) || QDir(root).removeRecursively());
    for (const QString &name : strangers())
        putFile(folder + u'/' + name, oldContent(name));
    for (const QString &name : IndexSet::names()) {
        putFile(root + u'/' + name, oldContent(name));
        putFile(root + QStringLiteral("/.brisel2pc/") + name, stagedContent(name, parts));
    }
    if (!hasFlag(parts, OldIsWhole))
        QFile::remove(root + QStringLiteral("/fsinfos.id2"));
    putFile(root + QStringLiteral("/.brisel2pc/play0001.dat"), parts.at(Playlist));
    putFile(root + QStringLiteral("/.brisel2pc/swap"), markBytes(parts));
}

void requireNothingElse(const QString &root)
{
    static const QRegularExpression playlist(
        QStringLiteral("\\Aplaylist/play[0-9]{4,10}\\.dat\\z"));
    QDirIterator walk(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString name = walk.next().mid(root.size() + 1);
        REQUIRE(IndexSet::names().contains(name) || playlist.match(name).hasMatch() ||
                strangers().contains(QStringLiteral("memory/") + name));
    }
}

} // namespace

void checkSwapMark(const QByteArray &input)
{
    const QString folder = scratchFolder();
    const QString root = folder + QStringLiteral("/memory");
    const QList<QByteArray> parts = splitInput(input, MarkParts);
    makeMemory(folder, parts);
    Run setRun;
    IndexSet set(setRun);
    set.setRoot(root);
    set.recover();

    REQUIRE(!QFileInfo::exists(root + QStringLiteral("/.brisel2pc")));
    for (const QString &name : strangers())
        REQUIRE(fileBytes(folder + u'/' + name) == oldContent(name));
    requireNothingElse(root);
    // A whole old set stays; one that is not whole stays or becomes the whole new set.
    const bool wasWhole = hasFlag(parts, OldIsWhole);
    REQUIRE(!wasWhole || set.isComplete());
    if (!set.isComplete())
        return;
    for (const QString &name : IndexSet::names())
        REQUIRE(fileBytes(root + u'/' + name) ==
                (wasWhole ? oldContent(name) : stagedContent(name, parts)));
}

} // namespace brisel
