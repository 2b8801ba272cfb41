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

SongPicker::SongPicker(QStringList paths) : m_paths(std::move(paths)) {}

SongPicker::Outcome SongPicker::run(Run &run)
{
    run.begin({tr("Lettura file"), tr("Cerco i brani...")});
    for (const QString &path : m_paths)
        add(run, path);
    run.end();
    if (!run.mayGoOn())
        return Outcome::Interrupted;
    return m_songs.isEmpty() ? Outcome::NoSongs : Outcome::Done;
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

/// Returns false if the search must end.
bool SongPicker::pick(Run &run, const QString &file)
{
    if (hasSongName(file) && !m_known.contains(file)) {
        m_known.insert(file);
        m_songs.append(file);
    }
    run.processEvents();
    return run.mayGoOn();
}

} // namespace brisel
