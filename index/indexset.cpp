#include "index/indexset.h"

#include "base/filereading.h"
#include "base/filewriting.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace
{

/// The file whose absence makes a set incomplete while it is swapped: first out, last in.
const QString keyFile = QStringLiteral("fsinfos.id2");
const QString markName = QStringLiteral("swap");
const QString placingName = QStringLiteral("placing");
const QString noteName = QStringLiteral("paths");
const QByteArray markHead = "brisel2pc swap 1";
const QByteArray noteHead = "brisel2pc paths 1\n";
constexpr qsizetype maxMarkLine = 128;           ///< bytes
constexpr qint64 maxMarkSize = 16 * 1024 * 1024; ///< bytes; holds every playlist number there is
constexpr qint64 maxKept =
    64 * 1024 * 1024; ///< bytes; a full set has 46 at most, playlists any number
constexpr qint64 maxStagedSize =
    16 * 1024 * 1024; ///< bytes; the largest file of a full index has 8

QByteArray checksumOf(const QByteArray &content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha1).toHex();
}

/// True for the names that a swap may write: a mark is read from a memory that anyone has written.
bool isReplaceable(const QString &name)
{
    static const QRegularExpression playlist(
        QStringLiteral("\\Aplaylist/play[0-9]{4,10}\\.dat\\z"));
    return IndexSet::names().contains(name) || playlist.match(name).hasMatch();
}

bool isGone(const QString &path)
{
    return QFile::remove(path) || !QFileInfo(path).exists();
}

} // namespace

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
                                  keyFile};
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
    QFile::remove(filePath(keyFile));
    flushFolder(m_root);
    for (const QString &name : names())
        QFile::remove(filePath(name));
    // Never written by this program; the player's own leftovers of an older index.
    for (const QString &name : {QStringLiteral("temp1.id2"), QStringLiteral("temp2.id2")})
        QFile::remove(filePath(name));
    flushFolder(m_root);
}

void IndexSet::recover()
{
    const QFileInfo work(workFolder());
    if (!work.exists() && !work.isSymLink())
        return;
    QList<StagedFile> files;
    // A complete set means that the swap had not begun, or was over: putting the staged playlists
    // in place now would undo what the player has done to them since.
    if (!isComplete() && readMark(files) && !swap(files))
        remove();
    abandon();
}

bool IndexSet::notePathFiles()
{
    return makeWorkFolder() && writeFile(workFile(noteName), noteHead) &&
           flushFolder(workFolder()) && flushFolder(m_root);
}

bool IndexSet::hasUnusedPathFiles() const
{
    return !QFileInfo(workFolder()).isSymLink() && QFileInfo(workFile(noteName)).isFile();
}

bool IndexSet::beginStaging()
{
    abandon();
    return makeWorkFolder();
}

bool IndexSet::stage(const QString &name, const QByteArray &content)
{
    if (!isReplaceable(name) || !writeFile(workFile(name), content)) {
        m_stagingFailed = true;
        return false;
    }
    const bool isKept = m_kept + content.size() <= maxKept;
    m_kept += isKept ? content.size() : 0;
    m_staged.append({name, content.size(), checksumOf(content), isKept ? content : QByteArray()});
    return true;
}

bool IndexSet::commit()
{
    return !m_stagingFailed && flushFolder(workFolder()) && writeMark() &&
           flushFolder(workFolder()) && flushFolder(m_root) && swap(m_staged);
}

void IndexSet::discard()
{
    clearWorkFolder(QString());
}

void IndexSet::abandon()
{
    clearWorkFolder(hasUnusedPathFiles() ? noteName : QString());
}

void IndexSet::clearWorkFolder(const QString &kept)
{
    m_staged.clear();
    m_kept = 0;
    m_stagingFailed = false;
    const QFileInfo folder(workFolder());
    if (folder.isSymLink() || !folder.isDir()) {
        QFile::remove(folder.filePath());
        return;
    }
    // The mark goes first: without it the rest means nothing.
    QFile::remove(workFile(markName));
    flushFolder(folder.filePath());
    const QFileInfoList entries =
        QDir(folder.filePath())
            .entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries) {
        if (entry.isDir() && !entry.isSymLink())
            QDir(entry.filePath()).removeRecursively();
        else if (entry.fileName() != kept)
            QFile::remove(entry.filePath());
    }
    if (kept.isEmpty())
        QDir(m_root).rmdir(folder.fileName());
    flushFolder(m_root);
}

bool IndexSet::place(const QString &name, const QByteArray &content) const
{
    return makeWorkFolder() && writeFile(workFile(placingName), content) &&
           moveIntoPlace(workFile(placingName), filePath(name));
}

QString IndexSet::workFolder() const
{
    return filePath(QStringLiteral(".brisel2pc"));
}

QString IndexSet::workFile(const QString &name) const
{
    return workFolder() + u'/' + name.mid(name.lastIndexOf(u'/') + 1);
}

bool IndexSet::makeWorkFolder() const
{
    const QFileInfo folder(workFolder());
    return (folder.isDir() && !folder.isSymLink()) || QDir(m_root).mkdir(folder.fileName());
}

/// One line a file, and a last one with the checksum of all before: half a mark is none.
bool IndexSet::writeMark() const
{
    QByteArray mark = markHead + '\n';
    for (const StagedFile &file : m_staged)
        mark +=
            file.checksum + ' ' + QByteArray::number(file.size) + ' ' + file.name.toLatin1() + '\n';
    mark += "end " + checksumOf(mark) + '\n';
    return writeFile(workFile(markName), mark);
}

bool IndexSet::readMark(QList<StagedFile> &files) const
{
    QByteArray mark;
    if (QFileInfo(workFolder()).isSymLink() ||
        readWholeFile(workFile(markName), maxMarkSize, mark) != ReadResult::Done)
        return false;
    const qsizetype end = mark.lastIndexOf("end ");
    if (end < 0 || mark.mid(end) != "end " + checksumOf(mark.left(end)) + '\n')
        return false;
    mark.truncate(end);
    if (!mark.startsWith(markHead + '\n'))
        return false;
    // Each file once, and the first line that is wrong ends it: a mark of a million lines takes no
    // longer than the files that are there.
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
            !readStaged(files.last(), content))
            return false;
        found.insert(name);
        start = lineEnd + 1;
    }
    return std::all_of(names().cbegin(), names().cend(),
                       [&found](const QString &name) { return found.contains(name); });
}

bool IndexSet::readStaged(const StagedFile &file, QByteArray &content) const
{
    return readWholeFile(workFile(file.name), std::min(file.size, maxStagedSize), content) ==
               ReadResult::Done &&
           content.size() == file.size && checksumOf(content) == file.checksum;
}

bool IndexSet::swap(const QList<StagedFile> &files)
{
    if (!isGone(filePath(keyFile)) || !flushFolder(m_root))
        return false;
    // The old files go first, all of them: their room may be what the new ones need.
    for (const QString &name : names()) {
        if (!isGone(filePath(name)))
            return false;
    }
    const StagedFile *last = nullptr;
    for (const StagedFile &file : files) {
        if (file.name == keyFile)
            last = &file;
        else if (!placeStaged(file))
            return false;
    }
    return last != nullptr && flushFolder(m_root) && placeStaged(*last) && flushFolder(m_root);
}

bool IndexSet::placeStaged(const StagedFile &file)
{
    QByteArray content = file.content;
    if (content.isNull() && !readStaged(file, content))
        return false;
    // A rename that is cut can leave two names on one file. It is for files that must appear at
    // once: the last one, and playlists that are still the old ones. The others may be torn.
    const QString path = filePath(file.name);
    const bool atOnce = file.name == keyFile || !names().contains(file.name);
    if (atOnce ? place(file.name, content)
               : writeFile(path, content, QIODevice::WriteOnly | QIODevice::NewOnly))
        return true;
    // No room for a second copy. Once the staged one is gone a cut can't be mended from it any
    // more, but it leaves an incomplete set, and the next run builds that anew.
    return readStaged(file, content) && moveIntoPlace(workFile(file.name), path);
}

bool IndexSet::writeFile(const QString &path, const QByteArray &content,
                         QIODevice::OpenMode mode) const
{
    QFile file(path);
    const bool isWhole =
        file.open(mode) && writeAll(file, content) && finishWriting(file, content.size());
    file.close();
    m_written();
    return isWhole;
}
