#include "library/songpicker.h"

#include "base/fileidentity.h"
#include "base/songsuffix.h"
#include "library/folderscan.h"

#include <QFileInfo>

#include <utility>

namespace brisel
{

QString songNamePatterns()
{
    QStringList patterns;
    for (const QStringView suffix : songSuffixes)
        patterns.append(QStringLiteral("*.%1").arg(suffix));
    return patterns.join(u' ');
}

static bool hasSongName(const QString &path)
{
    const qsizetype point = path.lastIndexOf(u'.');
    return point >= 0 && isSongSuffix(QStringView(path).mid(point + 1));
}

static QString identityOrPath(const QString &path)
{
    const QString identity = fileIdentity(path);
    return identity.isEmpty() ? path : identity;
}

SongPicker::SongPicker(QStringList paths) : m_paths(std::move(paths)), m_isAdding(false) {}

SongPicker::SongPicker(QStringList paths, QStringList listed)
    : m_paths(std::move(paths)), m_listed(std::move(listed)), m_isAdding(true)
{
}

SongPicker::Outcome SongPicker::run(Run &run)
{
    run.begin({tr("Lettura file"), tr("Cerco i brani...")});
    readListed(run);
    for (const QString &path : m_paths) {
        if (run.mayGoOn())
            add(run, path);
    }
    run.end();
    if (!run.mayGoOn())
        return Outcome::Interrupted;
    if (!m_songs.isEmpty())
        return Outcome::Done;
    return m_listedCount > 0 ? Outcome::NoNewSongs : Outcome::NoSongs;
}

void SongPicker::readListed(Run &run)
{
    for (const QString &path : m_listed) {
        if (!run.mayGoOn())
            return;
        m_listedFiles.insert(identityOrPath(path));
        run.processEvents();
    }
}

void SongPicker::add(Run &run, const QString &path)
{
    const QString full = QFileInfo(path).absoluteFilePath();
    switch (fileKind(full)) {
    case FileKind::Regular:
        pick(run, full);
        break;
    case FileKind::Folder:
        FolderScan::visitFiles(full, m_walk,
                               [this, &run](const QString &file) { return pick(run, file); });
        break;
    default:
        break;
    }
}

/// Also true for a file that was picked before under another name.
bool SongPicker::isListed(const QString &file)
{
    if (!m_isAdding)
        return false;
    const qsizetype before = m_listedFiles.size();
    m_listedFiles.insert(identityOrPath(file));
    return m_listedFiles.size() == before;
}

/// Returns false if the search must end.
bool SongPicker::pick(Run &run, const QString &file)
{
    if (hasSongName(file) && !m_known.contains(file)) {
        m_known.insert(file);
        if (isListed(file))
            ++m_listedCount;
        else
            m_songs.append(file);
    }
    run.processEvents();
    return run.mayGoOn();
}

} // namespace brisel
