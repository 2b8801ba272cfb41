#include "index/indexset.h"

#include "base/filelot.h"
#include "base/filereading.h"
#include "base/flushing.h"
#include "base/memoryidentity.h"
#include "index/givennames.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace brisel
{

namespace
{

const QByteArray markHead = "brisel2pc swap 1";
constexpr qsizetype maxMarkLine = 128;           ///< bytes
constexpr qint64 maxMarkSize = 16 * 1024 * 1024; ///< bytes; room for all playlists
constexpr qint64 maxKept =
    64 * 1024 * 1024; ///< bytes; a full set has 46 MiB at most; playlists have no limit

QByteArray checksumOf(const QByteArray &content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha1).toHex();
}

/// Returns true for names that a swap may write: a mark on a memory can have any content.
bool isReplaceable(const QString &name)
{
    static const QRegularExpression playlist(
        QStringLiteral("\\Aplaylist/play[0-9]{4,10}\\.(dat|pts)\\z"));
    return IndexSet::names().contains(name) || playlist.match(name).hasMatch();
}

} // namespace

void IndexSet::setRoot(const QString &root)
{
    m_root = root;
    m_isCut = false;
    m_work.setRoot(root);
}

QString IndexSet::filePath(const QString &name) const
{
    return QStringLiteral("%1/%2").arg(m_root, name);
}

const QStringList &IndexSet::names()
{
    static const QStringList list{QStringLiteral("index.id2"),
                                  QStringLiteral("ordfile.id2"),
                                  QStringLiteral("title.id2"),
                                  QStringLiteral("artist.id2"),
                                  QStringLiteral("genre.id2"),
                                  QStringLiteral("atitle.id2"),
                                  QStringLiteral("aartist.id2"),
                                  QStringLiteral("agenre.id2"),
                                  QStringLiteral("title3.id2"),
                                  QStringLiteral("artist3.id2"),
                                  QStringLiteral("genre3.id2"),
                                  QStringLiteral("atitle3.id2"),
                                  QStringLiteral("aartist3.id2"),
                                  QStringLiteral("agenre3.id2"),
                                  keyName()};
    return list;
}

bool IndexSet::isComplete() const
{
    return !m_root.isEmpty() &&
           std::all_of(names().cbegin(), names().cend(),
                       [this](const QString &name) { return QFileInfo::exists(filePath(name)); });
}

void IndexSet::remove()
{
    if (m_root.isEmpty())
        return;
    removeSet({});
    // Never written by this program; the player may leave them from an older index.
    for (const QString &name : {QStringLiteral("temp1.id2"), QStringLiteral("temp2.id2")})
        QFile::remove(filePath(name));
    (void)flushFolder(m_root);
}

void IndexSet::recover()
{
    if (!m_work.stands())
        return;
    QList<StagedFile> files;
    // With a complete set the swap had not begun or was finished: replacing playlists by the staged
    // ones now would undo later changes by the player.
    if (!isComplete() && readMark(files))
        swap(files);
    discard();
}

bool IndexSet::beginStaging()
{
    clear({MemoryIdentity::markName()});
    return m_work.make();
}

bool IndexSet::stage(const QString &name, const QByteArray &content)
{
    const bool isKept = m_kept + content.size() <= maxKept;
    if (!isReplaceable(name) || (!isKept && !m_work.write(workName(name), content))) {
        m_stagingFailed = true;
        return false;
    }
    m_kept += isKept ? content.size() : 0;
    m_staged.append({name, content.size(), checksumOf(content), isKept ? content : QByteArray()});
    if (!isInSet(name))
        pulse();
    return true;
}

bool IndexSet::commit()
{
    const bool isWhole = std::all_of(names().cbegin(), names().cend(), [this](const QString &name) {
        return std::any_of(m_staged.cbegin(), m_staged.cend(),
                           [&name](const StagedFile &file) { return file.name == name; });
    });
    if (m_stagingFailed || !isWhole)
        return false;
    const Way way = wayToReplace();
    m_lacksRoom = way == Way::NoRoom;
    switch (way) {
    case Way::Beside:
        return replaceBeside();
    case Way::Over:
        return replaceOver();
    case Way::NoRoom:
        break;
    }
    return false;
}

/// Removes the work folder except the files \a kept and the given names, unless it has the only
/// copy of a set.
bool IndexSet::clear(const QStringList &kept)
{
    m_staged.clear();
    m_kept = 0;
    m_stagingFailed = false;
    const QString given = GivenNames::fileName();
    return !m_isCut && m_work.clear(m_work.has(given) ? kept + QStringList(given) : kept);
}

/// One line for each file, and a last one with the checksum of all before it, so that a truncated
/// mark is invalid.
QByteArray IndexSet::mark() const
{
    QByteArray mark = markHead + '\n';
    for (const StagedFile &file : m_staged)
        mark +=
            file.checksum + ' ' + QByteArray::number(file.size) + ' ' + file.name.toLatin1() + '\n';
    return mark + "end " + checksumOf(mark) + '\n';
}

bool IndexSet::readMark(QList<StagedFile> &files) const
{
    QByteArray mark;
    if (!m_work.read(markName(), maxMarkSize, mark))
        return false;
    const qsizetype end = mark.lastIndexOf("end ");
    if (end < 0 || mark.mid(end) != "end " + checksumOf(mark.left(end)) + '\n')
        return false;
    mark.truncate(end);
    if (!mark.startsWith(markHead + '\n'))
        return false;
    // Each file once, and the first invalid line ends it, so that the time depends on the existing
    // files and not on the number of lines.
    QSet<QString> found;
    for (qsizetype start = markHead.size() + 1; start < end;) {
        const qsizetype lineEnd = mark.indexOf('\n', start);
        if (lineEnd < 0 || lineEnd - start > maxMarkLine)
            return false;
        const QList<QByteArray> parts = mark.mid(start, lineEnd - start).split(' ');
        const QString name = QString::fromLatin1(parts.value(2));
        files.append({name, parts.value(1).toLongLong(), parts.value(0), {}});
        QByteArray content;
        if (parts.size() != 3 || found.contains(name) || !isReplaceable(name) ||
            (!readStaged(files.last(), content) && !isPlaced(files.last())))
            return false;
        found.insert(name);
        start = lineEnd + 1;
    }
    return std::all_of(names().cbegin(), names().cend(),
                       [&found](const QString &name) { return found.contains(name); });
}

bool IndexSet::readStaged(const StagedFile &file, QByteArray &content) const
{
    return m_work.read(workName(file.name), std::min(file.size, maxFileSize), content) &&
           content.size() == file.size && checksumOf(content) == file.checksum;
}

/// Returns true if an interrupted swap has moved \a file out of the work folder to save room.
bool IndexSet::isPlaced(const StagedFile &file) const
{
    const FileContent content =
        readWholeFile(filePath(file.name), std::min(file.size, maxFileSize));
    return content.isDone() && content.bytes.size() == file.size &&
           checksumOf(content.bytes) == file.checksum;
}

} // namespace brisel
