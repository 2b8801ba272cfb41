#include "base/filelot.h"

#include "base/fatfolder.h"
#include "base/fileattributes.h"
#include "base/flushing.h"
#include "base/plainfile.h"
#include "base/stagingfolder.h"

#include <QFileInfo>
#include <QMap>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <stdio.h>
#endif

struct FileLot::Staged {
    QFile file;
    QString temporaryPath;
    Place place;
    FileState expected; ///< what place.expected points to
    qint64 size = -1;   ///< bytes that were written
    quint64 device = 0;
    bool isOnFat = false;
    bool isLastCopy = false; ///< the old file is gone: nothing but this one is left of it
    PlainFile old;           ///< the file that is replaced
    FileState written;       ///< the file with the new content
    WriteResult result = WriteResult::Staged;
};

namespace
{

/// As many files are flushed one by one; more, with all that the file system holds.
constexpr std::size_t mostSingleFlushes = 2;

QString folderOf(const QString &path)
{
    return QFileInfo(path).absolutePath();
}

bool stands(const QString &path)
{
    const QFileInfo entry(path);
    return entry.exists() || entry.isSymLink();
}

std::error_code moveEntry(const QString &from, const QString &to, bool mayReplace)
{
#ifdef Q_OS_LINUX
    if (!mayReplace) {
        if (::renameat2(AT_FDCWD, QFile::encodeName(from).constData(), AT_FDCWD,
                        QFile::encodeName(to).constData(), RENAME_NOREPLACE) == 0)
            return {};
        if (errno != EINVAL && errno != ENOSYS)
            return {errno, std::generic_category()};
    }
#endif
    if (!mayReplace && stands(to))
        return std::make_error_code(std::errc::file_exists);
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemAbsoluteFilePath(),
                            QFileInfo(to).filesystemAbsoluteFilePath(), error);
    return error;
}

/// True when the system can't rename a file to the name of another one.
bool canNotReplace(const std::error_code &error)
{
    return error == std::errc::file_exists || error == std::errc::operation_not_supported ||
           error == std::errc::function_not_supported;
}

bool isSameEntry(const FileState &a, const FileState &b)
{
    return a.kind == b.kind && a.device == b.device && a.inode == b.inode;
}

bool flushPath(const QString &path)
{
    PlainFile file;
    return file.open(path) && flushHandle(file.handle());
}

} // namespace

FileLot::FileLot() = default;

FileLot::~FileLot()
{
    while (!m_files.empty())
        dropLast();
}

bool FileLot::isFull() const
{
    constexpr qint64 maxBytes = 64 * 1024 * 1024;
    return size() >= StagingFolder::maxFiles || m_bytes >= maxBytes;
}

bool FileLot::holds(const QString &path) const
{
    return m_paths.contains(path.toLower());
}

QFile *FileLot::add(const Place &place)
{
    auto staged = std::make_unique<Staged>();
    staged->place = place;
    if (place.expected != nullptr)
        staged->expected = *place.expected;
    if (place.watched.isEmpty())
        staged->place.watched = place.path;
    const Folder folder = lookAt(folderOf(place.path));
    staged->device = folder.device;
    staged->isOnFat = folder.isOnFat;
    if (!openStaged(*staged, folder.stagingRoot) && !openTemporary(*staged))
        return nullptr;
    m_paths.insert(place.path.toLower());
    m_files.push_back(std::move(staged));
    return &m_files.back()->file;
}

/// Files of one folder come one after the other, as a rule.
FileLot::Folder FileLot::lookAt(const QString &path)
{
    if (m_folder.path != path) {
        m_folder = {path, fileState(path).device, isOnFat(path), {}};
        if (m_folder.isOnFat)
            m_folder.stagingRoot = StagingFolder::rootOf(path);
        else if (!m_memory.isEmpty() && fileState(m_memory).device == m_folder.device)
            m_folder.stagingRoot = m_memory;
    }
    return m_folder;
}

bool FileLot::openStaged(Staged &staged, const QString &root)
{
    if (root.isEmpty())
        return false;
    std::unique_ptr<StagingFolder> &folder = m_staging[root];
    if (folder == nullptr)
        folder = std::make_unique<StagingFolder>(root);
    if (folder->isOpen())
        staged.temporaryPath = folder->makeFile(staged.file);
    return !staged.temporaryPath.isEmpty();
}

/// Beside its place.
bool FileLot::openTemporary(Staged &staged)
{
    const Place &place = staged.place;
    const QString folder = folderOf(place.path);
    const auto beside = [&](int) { return temporaryPathIn(folder, m_temporaries++); };
    const bool isOpen = openNewFile(staged.file, place.temporaryPath ? place.temporaryPath : beside,
                                    stands(place.path));
    staged.temporaryPath = staged.file.fileName();
    return isOpen;
}

bool FileLot::write(const Place &place, const QByteArray &content)
{
    QFile *const file = add(place);
    if (file == nullptr)
        return false;
    if (PlainFile old; old.open(place.path))
        keepAttributes(old.handle(), file->handle());
    if (writeAll(*file, content)) {
        finishLast(content.size());
        return true;
    }
    dropLast();
    return false;
}

void FileLot::dropLast()
{
    Staged &staged = *m_files.back();
    staged.file.close();
    QFile::remove(staged.temporaryPath);
    m_bytes -= std::max<qint64>(staged.size, 0);
    m_paths.remove(staged.place.path.toLower());
    m_files.pop_back();
}

void FileLot::finishLast(qint64 size)
{
    m_files.back()->size = size;
    m_bytes += size;
    if (!writeAhead(m_files.back()->file.handle(), size))
        m_files.back()->result = WriteResult::Failed;
}

QList<WriteResult> FileLot::commit()
{
    reserveNames();
    flushContents();
    takeNames();
    flushNames();
    QList<WriteResult> results;
    for (const auto &staged : m_files)
        results.append(staged->result);
    m_files.clear();
    m_paths.clear();
    m_bytes = 0;
    m_temporaries = 0;
    m_folder = {};
    // The one of a memory serves the next lot, too.
    if (m_staging.size() > 1)
        m_staging.clear();
    return results;
}

bool FileLot::commitAll()
{
    const QList<WriteResult> results = commit();
    return std::all_of(results.cbegin(), results.cend(),
                       [](WriteResult result) { return result == WriteResult::Done; });
}

/// On FAT a folder must not grow while files get their names.
void FileLot::reserveNames() const
{
    QMap<QString, QStringList> names;
    for (const auto &staged : m_files) {
        if (staged->isOnFat && !stands(staged->place.path))
            names[folderOf(staged->place.path)].append(QFileInfo(staged->place.path).fileName());
    }
    for (auto folder = names.cbegin(); folder != names.cend(); ++folder)
        reserveEntries(folder.key(), folder.value());
}

/// The contents reach the disk. What does not is given up.
void FileLot::flushContents()
{
    QMap<quint64, std::vector<Staged *>> devices;
    for (const auto &staged : m_files) {
        QFile &file = staged->file;
        const bool isWhole =
            file.flush() && file.error() == QFileDevice::NoError && file.size() == staged->size;
        if (isWhole && staged->result == WriteResult::Staged)
            devices[staged->device].push_back(staged.get());
        else
            staged->result = WriteResult::Failed;
    }
    for (const auto &group : std::as_const(devices)) {
        if (group.size() > mostSingleFlushes &&
            flushFileSystem(group.front()->file.handle()).value_or(false))
            continue;
        // One by one: where that is not what was asked for, it finds the files that failed.
        for (Staged *staged : group) {
            if (!flushHandle(staged->file.handle()))
                staged->result = WriteResult::Failed;
        }
    }
    for (const auto &staged : m_files) {
        staged->written = fileState(staged->file.handle());
        staged->file.close();
    }
}

void FileLot::takeNames()
{
    for (const auto &staged : m_files) {
        if (staged->result == WriteResult::Staged)
            takeName(*staged);
        if (staged->result != WriteResult::Done && !staged->isLastCopy)
            QFile::remove(staged->temporaryPath);
    }
}

void FileLot::takeName(Staged &staged) const
{
    const Place &place = staged.place;
    if (place.expected != nullptr && fileState(place.watched) != staged.expected) {
        staged.result = WriteResult::Changed;
        return;
    }
    // What another program has put there instead, a link perhaps, is not what was written.
    if (QFileInfo(staged.temporaryPath).isSymLink() ||
        !isSameEntry(fileState(staged.temporaryPath), staged.written)) {
        staged.result = WriteResult::Failed;
        return;
    }
    // While a replaced file is open, FAT does not give its clusters to others: until the new entry
    // is on the disk the old one leads to them.
    if (staged.isOnFat && !place.mustBeNew)
        (void)staged.old.open(place.path);
    std::error_code error = moveEntry(staged.temporaryPath, place.path, !place.mustBeNew);
    if (!place.mustBeNew && canNotReplace(error) && QFile::remove(place.path)) {
        error = moveEntry(staged.temporaryPath, place.path, true);
        staged.isLastCopy = bool(error);
    }
    staged.result = error ? WriteResult::NotNamed : WriteResult::Done;
}

void FileLot::flushNames()
{
    QMap<quint64, std::vector<Staged *>> devices;
    std::vector<Staged *> onFat;
    for (const auto &staged : m_files) {
        if (staged->result != WriteResult::Done)
            continue;
        if (staged->isOnFat)
            onFat.push_back(staged.get());
        else
            devices[staged->device].push_back(staged.get());
    }
    for (const auto &group : std::as_const(devices))
        flushNames(group);
    if (!onFat.empty())
        flushNamesOnFat(onFat);
}

/// Of files on one file system.
void FileLot::flushNames(const std::vector<Staged *> &named)
{
    QSet<QString> folders;
    for (const Staged *staged : named)
        folders.insert(folderOf(staged->place.path));
    PlainFile any;
    if (static_cast<std::size_t>(folders.size()) > mostSingleFlushes &&
        any.open(named.front()->place.path) && flushFileSystem(any.handle()).value_or(false))
        return;
    for (const QString &folder : std::as_const(folders)) {
        if (flushFolder(folder))
            continue;
        for (Staged *staged : named) {
            if (folderOf(staged->place.path) == folder)
                staged->result = WriteResult::Failed;
        }
    }
}

/// FAT writes where a renamed file begins, and how long it is, when that file is flushed. Its
/// temporary name must be gone by then: else two names lead to it.
void FileLot::flushNamesOnFat(const std::vector<Staged *> &named)
{
    QSet<QString> folders;
    for (const Staged *staged : named)
        folders.insert(folderOf(staged->temporaryPath));
    const bool areOldNamesFlushed = std::all_of(folders.cbegin(), folders.cend(), flushFolder);
    // One flushed by itself could take along half of its neighbour's entry, and is not written at
    // all when the system has begun to write it by itself.
    PlainFile any;
    const bool areAllFlushed =
        any.open(named.front()->place.path) && flushFileSystem(any.handle()).value_or(false);
    for (Staged *staged : named) {
        const QString &path = staged->place.path;
        const bool isFlushed = areAllFlushed || (flushPath(path) && flushFolder(folderOf(path)));
        if (!areOldNamesFlushed || !isFlushed)
            staged->result = WriteResult::Failed;
        staged->old.close();
    }
}
