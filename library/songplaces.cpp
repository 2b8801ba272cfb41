#include "library/songplaces.h"

#include "base/filechecksum.h"
#include "base/fileidentity.h"
#include "base/folderhandle.h"
#include "base/plainfile.h"
#include "base/run.h"
#include "index/longnames.h"

#include <QDir>
#include <QFileInfo>

namespace brisel
{

void SongPlaces::begin(const QString &root)
{
    *this = SongPlaces();
    m_root = root;
    if (root.isEmpty())
        return;
    m_names.setRoot(root);
    (void)m_names.load(); // on failure there are no names
}

QString SongPlaces::placeOf(const QString &source, const QString &destination, Run &run)
{
    if (m_root.isEmpty() || !LongNames::isLong(destination) ||
        fileKind(destination) != FileKind::Missing)
        return destination;
    const QString known = m_names.placeOf(destination);
    return known == destination ? twinOf(source, destination, run) : known;
}

/// The file beside \a destination that could be \a source under a short name and has the same
/// content; \a destination if there is no such file.
QString SongPlaces::twinOf(const QString &source, const QString &destination, Run &run)
{
    const QString folder = QFileInfo(destination).path();
    const QString name = QFileInfo(destination).fileName();
    const qint64 size = QFileInfo(source).size();
    QByteArray content;
    for (const QString &shape : LongNames::shapesFor(name, FileKind::Regular)) {
        for (const QString &candidate : candidates(folder, shape, size)) {
            if (m_taken.contains(candidate) || m_names.isKnown(candidate))
                continue;
            if (content.isEmpty() && (content = contentOf(source, run)).isEmpty())
                return destination;
            if (!m_contents.contains(candidate))
                m_contents.insert(candidate, contentOf(candidate, run));
            if (m_contents.value(candidate) != content)
                continue;
            m_taken.insert(candidate);
            m_found.append({wayBelow(m_root, folder), name, QFileInfo(candidate).fileName()});
            return candidate;
        }
    }
    return destination;
}

/// In the order of their numbers.
const QStringList &SongPlaces::candidates(const QString &folder, const QString &shape, qint64 size)
{
    if (m_folder != folder) {
        m_folder = folder;
        m_candidates.clear();
        const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
        for (const QFileInfo &file : files) {
            if (const QString given = LongNames::shapeOf(file.fileName()); !given.isEmpty())
                m_candidates[keyOf(given, file.size())].append(file.filePath());
        }
    }
    static const QStringList none;
    const auto found = m_candidates.constFind(keyOf(shape, size));
    return found == m_candidates.cend() ? none : *found;
}

QString SongPlaces::keyOf(const QString &shape, qint64 size)
{
    return QString::number(size) + u'/' + shape;
}

/// A checksum of the whole file; empty if it can't be read completely, or the run is interrupted.
QByteArray SongPlaces::contentOf(const QString &path, Run &run)
{
    run.processEvents();
    PlainFile file;
    if (!run.mayGoOn() || !file.open(path))
        return {};
    return fileChecksum(file, QCryptographicHash::Sha1);
}

void SongPlaces::remember()
{
    for (const Found &song : std::as_const(m_found))
        m_names.add(song.folder, song.name, song.shortName);
    m_found.clear();
}

} // namespace brisel
