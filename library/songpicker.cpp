#include "library/songpicker.h"

#include "base/fileidentity.h"
#include "library/folderscan.h"
#include "library/progress.h"

#include <QFileInfo>

#include <algorithm>

const QString songNamePatterns = QStringLiteral("*.mid *.kar *.mp3 *.zb3 *.zb4 *.zb5");

static bool hasSongName(const QString &path)
{
    static const QStringList patterns = songNamePatterns.split(u' ');
    return std::any_of(patterns.cbegin(), patterns.cend(), [&path](const QString &pattern) {
        return path.endsWith(QStringView(pattern).mid(1), Qt::CaseInsensitive);
    });
}

SongPicker::SongPicker(Progress &progress) : m_progress(progress) {}

void SongPicker::add(const QString &path)
{
    const QString full = QFileInfo(path).absoluteFilePath();
    switch (fileKind(full)) {
    case FileKind::Regular:
        pick(full);
        break;
    case FileKind::Folder:
        FolderScan::visitFiles(full, m_visitedFolders,
                               [this](const QString &file) { return pick(file); });
        break;
    default:
        break;
    }
}

/// False when no more files are wanted.
bool SongPicker::pick(const QString &file)
{
    if (hasSongName(file) && !m_known.contains(file)) {
        m_known.insert(file);
        m_songs.append(file);
    }
    m_progress.breathe();
    return !m_progress.isCanceled();
}
