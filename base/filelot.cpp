#include "base/filelot.h"

#include "base/fatfolder.h"
#include "base/flushing.h"
#include "base/stagingfolder.h"

#include <QFileInfo>
#include <QMap>

#include <algorithm>
#include <utility>

namespace brisel
{

namespace
{

/// Up to so many files are flushed separately; more, with the whole file system.
constexpr std::size_t mostSingleFlushes = 2;

QString folderOf(const QString &path)
{
    return QFileInfo(path).absolutePath();
}

bool flushPath(const QString &path)
{
    PlainFile file;
    return file.open(path) && flushHandle(file.handle());
}

} // namespace

FileLot::FileLot() = default;

FileLot::~FileLot() = default;

bool FileLot::isFull() const
{
    constexpr qint64 maxBytes = 64 * 1024 * 1024;
    return size() >= StagingFolder::maxFiles || m_bytes >= maxBytes;
}

std::unique_ptr<FileReplacement> FileLot::open(const Place &place)
{
    auto file = std::make_unique<FileReplacement>(place);
    const QString stagingRoot = lookAt(folderOf(place.path)).stagingRoot;
    const bool isOpen = openStaged(*file, stagingRoot) || file->openBeside(m_temporaries);
    return isOpen ? std::move(file) : nullptr;
}

void FileLot::add(std::unique_ptr<FileReplacement> file)
{
    const QString &path = file->place().path;
    const Folder folder = lookAt(folderOf(path));
    m_bytes += std::max<qint64>(file->size(), 0);
    m_paths.insert(path.toLower());
    m_files.push_back({std::move(file), folder.device, folder.isOnFat});
}

/// Files of one folder are usually added in sequence.
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

bool FileLot::openStaged(FileReplacement &file, const QString &root)
{
    if (root.isEmpty())
        return false;
    std::unique_ptr<StagingFolder> &folder = m_staging[root];
    if (folder == nullptr)
        folder = std::make_unique<StagingFolder>(root);
    return file.openIn(*folder);
}

bool FileLot::write(const Place &place, const QByteArray &content)
{
    std::unique_ptr<FileReplacement> file = open(place);
    if (file == nullptr)
        return false;
    (void)file->keepAttributesOfOld(); // there may be no old one
    if (!file->write(content))
        return false;
    add(std::move(file));
    return true;
}

QList<WriteResult> FileLot::commit()
{
    reserveNames();
    flushContents();
    if (!m_files.empty())
        aboutToReplace();
    takeNames();
    flushNames();
    QList<WriteResult> results;
    for (const Staged &staged : m_files)
        results.append(staged.file->result());
    m_files.clear();
    m_paths.clear();
    m_bytes = 0;
    m_temporaries = 0;
    m_folder = {};
    // The staging folder of a memory is kept for the next lot.
    if (m_staging.size() > 1)
        m_staging.clear();
    return results;
}

void FileLot::aboutToReplace() const
{
    if (m_beforeReplacing)
        m_beforeReplacing();
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
    for (const Staged &staged : m_files) {
        const QString &path = staged.file->place().path;
        if (staged.isOnFat && !entryExists(path))
            names[folderOf(path)].append(QFileInfo(path).fileName());
    }
    for (auto folder = names.cbegin(); folder != names.cend(); ++folder)
        reserveEntries(folder.key(), folder.value());
}

/// Flushes the contents. Files whose flush fails are dropped.
void FileLot::flushContents()
{
    QMap<quint64, std::vector<FileReplacement *>> devices;
    for (const Staged &staged : m_files) {
        if (!staged.file->isWhole())
            staged.file->fail();
        else if (staged.file->result() == WriteResult::Staged)
            devices[staged.device].push_back(staged.file.get());
    }
    for (const auto &group : std::as_const(devices)) {
        if (group.size() > mostSingleFlushes &&
            flushFileSystem(group.front()->file().handle()).value_or(false))
            continue;
        // Separately; after a failed flush of the file system, this finds the files that failed.
        for (FileReplacement *file : group)
            file->flush();
    }
    for (const Staged &staged : m_files)
        staged.file->close();
}

void FileLot::takeNames()
{
    // While a replaced file is open, FAT does not reuse its clusters: until the new entry is on the
    // disk, the old one leads to them.
    for (const Staged &staged : m_files)
        staged.file->takeName(staged.isOnFat);
}

void FileLot::flushNames()
{
    QMap<quint64, std::vector<const Staged *>> devices;
    std::vector<const Staged *> onFat;
    for (const Staged &staged : m_files) {
        if (staged.file->result() != WriteResult::Done)
            continue;
        if (staged.isOnFat)
            onFat.push_back(&staged);
        else
            devices[staged.device].push_back(&staged);
    }
    for (const auto &group : std::as_const(devices))
        flushNames(group);
    if (!onFat.empty())
        flushNamesOnFat(onFat);
}

/// Of files on one file system.
void FileLot::flushNames(const std::vector<const Staged *> &named)
{
    QSet<QString> folders;
    for (const Staged *staged : named)
        folders.insert(folderOf(staged->file->place().path));
    PlainFile any;
    if (static_cast<std::size_t>(folders.size()) > mostSingleFlushes &&
        any.open(named.front()->file->place().path) &&
        flushFileSystem(any.handle()).value_or(false))
        return;
    for (const QString &folder : std::as_const(folders)) {
        if (flushFolder(folder))
            continue;
        for (const Staged *staged : named) {
            if (folderOf(staged->file->place().path) == folder)
                staged->file->fail();
        }
    }
}

/// FAT writes the first cluster and the size of a renamed file when that file is flushed. Its
/// temporary name must be removed before, because otherwise two names lead to it.
void FileLot::flushNamesOnFat(const std::vector<const Staged *> &named)
{
    QSet<QString> folders;
    for (const Staged *staged : named)
        folders.insert(folderOf(staged->file->temporaryPath()));
    const bool areOldNamesFlushed = std::all_of(folders.cbegin(), folders.cend(), flushFolder);
    // A separate flush could write half of the neighbouring entry, and would write nothing if the
    // system has already begun to write the file.
    PlainFile any;
    const bool areAllFlushed = any.open(named.front()->file->place().path) &&
                               flushFileSystem(any.handle()).value_or(false);
    for (const Staged *staged : named) {
        const QString &path = staged->file->place().path;
        const bool isFlushed = areAllFlushed || (flushPath(path) && flushFolder(folderOf(path)));
        if (!areOldNamesFlushed || !isFlushed)
            staged->file->fail();
        staged->file->closeOld();
    }
}

} // namespace brisel
