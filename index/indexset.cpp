#include "index/indexset.h"

#include "base/filereading.h"
#include "base/filewriting.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace
{

/// The file whose absence makes a set incomplete while it is swapped: first out, last in.
const QString keyFile = QStringLiteral("fsinfos.id2");
const QString markName = QStringLiteral("swap");
const QString placingName = QStringLiteral("placing");
const QByteArray markHead = "brisel2pc swap 1";
constexpr qint64 maxMarkSize = 16 * 1024 * 1024; ///< bytes; holds every playlist number there is

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

bool writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && writeAll(file, content) &&
           finishWriting(file, content.size());
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
    if (readMark(files) && !swap(files))
        remove();
    discard();
}

bool IndexSet::beginStaging()
{
    discard();
    return makeWorkFolder();
}

bool IndexSet::stage(const QString &name, const QByteArray &content)
{
    if (!isReplaceable(name) || !writeFile(workFile(name), content)) {
        m_stagingFailed = true;
        return false;
    }
    m_staged.append({name, content.size(), checksumOf(content)});
    return true;
}

bool IndexSet::commit()
{
    const bool done = !m_stagingFailed && flushFolder(workFolder()) && writeMark() &&
                      flushFolder(workFolder()) && flushFolder(m_root) && swap(m_staged);
    discard();
    return done;
}

void IndexSet::discard()
{
    m_staged.clear();
    m_stagingFailed = false;
    const QString folder = workFolder();
    if (QFileInfo(folder).isSymLink()) {
        QFile::remove(folder);
        return;
    }
    if (!QFileInfo::exists(folder))
        return;
    // The mark goes first: without it the rest means nothing.
    QFile::remove(workFile(markName));
    flushFolder(folder);
    QDir(folder).removeRecursively();
    flushFolder(m_root);
}

bool IndexSet::place(const QString &name, const QByteArray &content)
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
        !readPlainFile(workFile(markName), maxMarkSize, mark))
        return false;
    const qsizetype end = mark.lastIndexOf("end ");
    if (end < 0 || mark.mid(end) != "end " + checksumOf(mark.left(end)) + '\n')
        return false;
    QList<QByteArray> lines = mark.left(end).split('\n');
    if (lines.takeFirst() != markHead || lines.isEmpty())
        return false;
    lines.removeLast();
    QStringList missing = names();
    for (const QByteArray &line : lines) {
        const QList<QByteArray> parts = line.split(' ');
        const QString name = QString::fromLatin1(parts.value(2));
        files.append({name, parts.value(1).toLongLong(), parts.value(0)});
        missing.removeOne(name);
        QByteArray content;
        if (parts.size() != 3 || !isReplaceable(name) || !readStaged(files.last(), content))
            return false;
    }
    return missing.isEmpty();
}

bool IndexSet::readStaged(const StagedFile &file, QByteArray &content) const
{
    return readPlainFile(workFile(file.name), file.size, content) && content.size() == file.size &&
           checksumOf(content) == file.checksum;
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
    QByteArray content;
    return readStaged(file, content) && place(file.name, content);
}
