#include "memory/memorylook.h"

#include "base/fileidentity.h"
#include "base/folderhandle.h"
#include "base/lettercase.h"
#include "base/songsuffix.h"
#include "index/longnames.h"
#include "index/songfolders.h"
#include "index/songinfoindex.h"
#include "index/workfolder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

#include <unistd.h>

namespace brisel
{

namespace
{

constexpr qint64 leastSong = 5; // bytes

/// The part of the name \a name before its last suffix.
QString withoutSuffix(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? name : name.left(dot);
}

} // namespace

MemoryLook::MemoryLook(const QString &root, std::shared_ptr<const MemoryContents> contents)
    : m_root(root), m_contents(std::move(contents)), m_met(m_contents->size(), false),
      m_folders(root), m_marks(m_contents->size())
{
    m_positions.reserve(m_contents->size());
    reportWorkFolder();
}

bool MemoryLook::work(int milliseconds)
{
    constexpr int portion = 16; // steps between two looks at the clock
    QElapsedTimer timer;
    timer.start();
    do {
        for (int i = 0; i < portion && !m_isDone; ++i)
            step();
    } while (!m_isDone && timer.elapsed() < milliseconds);
    return !m_isDone;
}

void MemoryLook::step()
{
    if (m_keyed < m_contents->size()) {
        readKey();
    } else if (m_entry < m_entries.size()) {
        lookAt(m_entries.at(m_entry++));
    } else if (!m_folder.isEmpty()) {
        leaveFolder();
    } else if (!m_folders.isEmpty()) {
        enterFolder(m_folders.takeLast());
    } else if (m_unmet < m_contents->size()) {
        if (!m_met.at(m_unmet))
            lookAtUnmet(m_unmet);
        ++m_unmet;
    } else {
        m_isDone = true;
    }
}

/// The lookup gives the position that was entered last, so those of one key are entered from the
/// end: the first of them is met first.
void MemoryLook::readKey()
{
    const qsizetype position = m_contents->size() - 1 - m_keyed++;
    m_positions.insert(pathSortKey(m_contents->path(position)), position);
}

void MemoryLook::enterFolder(const QString &folder)
{
    if (!m_walk.enter(folder))
        return;
    m_folder = folder;
    FolderEntries found = visibleEntries(folder);
    const QString below = folder.mid(m_root.size());
    if (!found.isComplete)
        report(Kind::Unreadable, Detail::UnreadableFolder,
               below.isEmpty() ? QStringLiteral("/") : below);
    for (const FolderEntry &entry : std::as_const(found.unnamed)) {
        if (entry.kind == FileKind::Folder || SongFolders::isSong(entry.name))
            report(Kind::Unreadable, Detail::InvalidName, below + u'/' + entry.name);
    }
    m_entries = std::move(found.entries);
    m_entry = 0;
}

void MemoryLook::leaveFolder()
{
    for (const QString &name : std::as_const(m_graphics)) {
        if (!m_mp3s.contains(lowerCased(withoutSuffix(name))))
            report(Kind::LoneGraphics, Detail::None, m_folder.mid(m_root.size()) + u'/' + name,
                   fileState(m_folder + u'/' + name).size);
    }
    std::reverse(m_subfolders.begin(), m_subfolders.end());
    m_folders += m_subfolders;
    m_subfolders.clear();
    m_graphics.clear();
    m_mp3s.clear();
    m_entries.clear();
    m_folder.clear();
}

void MemoryLook::lookAt(const FolderEntry &entry)
{
    const QString full = m_folder + u'/' + entry.name;
    const QString path = full.mid(m_root.size());
    const bool isFolder = entry.kind == FileKind::Folder;
    const bool mayBeSong = !isFolder && SongFolders::isSong(entry.name);
    if (isFolder ? SongFolders::isPlayersFolder(entry.name)
                 : !mayBeSong && entry.kind != FileKind::Regular)
        return;
    if ((entry.isLink || isFolder) && leavesRoot(full, m_root)) {
        if (isFolder || mayBeSong)
            report(Kind::Unreadable, Detail::Outside, path);
    } else if (isFolder) {
        m_subfolders.append(full);
    } else if (entry.kind != FileKind::Regular) {
        lookAtOther(path, entry);
    } else if (mayBeSong) {
        if (hasSuffix(entry.name, u"mp3"))
            m_mp3s.insert(lowerCased(withoutSuffix(entry.name)));
        lookAtSong(path, entry.isLink);
    } else if (hasSuffix(entry.name, u"cdg")) {
        m_graphics.append(entry.name);
    }
}

/// \a entry has the name of a song, but is neither a file nor a folder.
void MemoryLook::lookAtOther(const QString &path, const FolderEntry &entry)
{
    if (entry.kind == FileKind::Missing && !entry.isLink)
        return; // removed meanwhile
    report(Kind::Unreadable,
           entry.kind == FileKind::Unreachable ? Detail::UnreadableFile : Detail::NoFile, path);
}

void MemoryLook::lookAtSong(const QString &path, bool isLink)
{
    reportLongNames(path);
    const QString full = m_root + path;
    const FileState state = fileState(full);
    const bool isReadable = ::access(QFile::encodeName(full).constData(), R_OK) == 0;
    const bool isLongEnough = state.size >= leastSong;
    const qsizetype position = meet(path, state.size);
    if (!isReadable || !isLongEnough)
        report(Kind::Unreadable, isReadable ? Detail::ShortFile : Detail::UnreadableFile, path,
               state.size);
    if (isReadable && !isLink)
        m_songs.append({path, state.size});
    if (position < 0)
        return;
    if (!isReadable || !isLongEnough)
        m_marks[position] |= FileMark::Unreadable;
    if (state.kind == FileKind::Regular)
        compareDate(position, state.modified);
}

/// The position of the song with \a path in the index, which is met only once; -1 if there is none.
qsizetype MemoryLook::meet(const QString &path, qint64 size)
{
    const QString folded = foldedText(path);
    // For the player, paths that differ only in letter case are one song.
    if (m_known.contains(folded))
        return -1;
    m_known.insert(folded);
    const auto found = m_positions.constFind(pathSortKey(path));
    if (found != m_positions.cend()) {
        const qsizetype position = *found;
        m_positions.erase(found);
        m_met[position] = true;
        return position;
    }
    if (path.size() <= SongInfoIndex::maxPath) {
        report(Kind::NewSong, Detail::None, path, size);
        ++m_difference.added;
    }
    return -1;
}

/// A song that the walk did not meet: its file may be hidden, or lie where no songs are searched.
void MemoryLook::lookAtUnmet(qsizetype position)
{
    const FileState state = fileState(m_root + m_contents->path(position));
    if (state.kind == FileKind::Unreachable) {
        m_marks[position] |= FileMark::Unreadable;
    } else if (state.kind == FileKind::Regular) {
        compareDate(position, state.modified);
    } else {
        m_marks[position] |= FileMark::Missing;
        ++m_difference.missing;
    }
}

void MemoryLook::compareDate(qsizetype position, qint64 modified)
{
    SongInfoIndex stamp;
    stamp.setModified(modified);
    if (stamp.date == m_contents->date(position) && stamp.time == m_contents->time(position))
        return;
    m_marks[position] |= FileMark::OtherDate;
    ++m_difference.changed;
}

/// Of the song \a path and of the folders above it, which are reported once.
void MemoryLook::reportLongNames(const QString &path)
{
    if (path.size() > SongInfoIndex::maxPath)
        report(Kind::TooLong, Detail::LongPath, path);
    else if (LongNames::isLong(path))
        report(Kind::TooLong, Detail::LongName, path);
    for (qsizetype slash = path.lastIndexOf(u'/'); slash > 0;
         slash = path.lastIndexOf(u'/', slash - 1)) {
        const QString folder = path.left(slash);
        if (m_longFolders.contains(folder) || !LongNames::isLong(folder))
            continue;
        m_longFolders.insert(folder);
        report(Kind::TooLong, Detail::LongFolderName, folder);
    }
}

void MemoryLook::reportWorkFolder()
{
    WorkFolder work;
    work.setRoot(m_root);
    if (!work.stands())
        return;
    qint64 size = 0;
    const QFileInfoList files =
        QDir(work.path()).entryInfoList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo &file : files)
        size += file.size();
    report(Kind::WorkFolder, Detail::None, work.path().mid(m_root.size()), size);
}

void MemoryLook::report(Kind kind, Detail detail, const QString &path, qint64 size)
{
    m_findings.append({kind, detail, path, size});
}

} // namespace brisel
