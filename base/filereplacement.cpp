#include "base/filereplacement.h"

#include "base/fileattributes.h"
#include "base/flushing.h"
#include "base/stagingfolder.h"

#include <QFileInfo>

#include <cerrno>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <stdio.h>
#endif

namespace brisel
{

namespace
{

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
    if (!mayReplace && entryExists(to))
        return std::make_error_code(std::errc::file_exists);
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemAbsoluteFilePath(),
                            QFileInfo(to).filesystemAbsoluteFilePath(), error);
    return error;
}

/// Returns true if the system can't rename a file to the name of another one.
bool canNotReplace(const std::error_code &error)
{
    return error == std::errc::file_exists || error == std::errc::operation_not_supported ||
           error == std::errc::function_not_supported;
}

bool isSameEntry(const FileState &a, const FileState &b)
{
    return a.kind == b.kind && a.device == b.device && a.inode == b.inode;
}

} // namespace

FileReplacement::FileReplacement(const Place &place) : m_place(place)
{
    if (place.expected != nullptr) {
        m_expected = *place.expected;
        m_place.expected = &m_expected;
    }
    if (place.watched.isEmpty())
        m_place.watched = place.path;
}

FileReplacement::~FileReplacement()
{
    m_file.close();
    removeTemporary();
}

void FileReplacement::removeTemporary()
{
    if (m_mayRemove)
        QFile::remove(m_temporaryPath);
    m_mayRemove = false;
}

bool FileReplacement::openIn(StagingFolder &folder)
{
    if (folder.isOpen())
        m_temporaryPath = folder.makeFile(m_file);
    m_mayRemove = !m_temporaryPath.isEmpty();
    return m_mayRemove;
}

bool FileReplacement::openBeside(int &attempt)
{
    const QString folder = QFileInfo(m_place.path).absolutePath();
    const auto beside = [&](int) { return temporaryPathIn(folder, attempt++); };
    m_mayRemove = openNewFile(m_file, m_place.temporaryPath ? m_place.temporaryPath : beside,
                              entryExists(m_place.path));
    m_temporaryPath = m_file.fileName();
    return m_mayRemove;
}

bool FileReplacement::keepAttributesOfOld()
{
    PlainFile old;
    if (!old.open(m_place.path))
        return false;
    keepAttributes(old.handle(), m_file.handle());
    return true;
}

bool FileReplacement::write(const QByteArray &content)
{
    if (!writeAll(m_file, content))
        return false;
    finish(content.size());
    return true;
}

void FileReplacement::finish(qint64 size)
{
    m_size = size;
    if (!writeAhead(m_file.handle(), size))
        fail();
}

bool FileReplacement::isWhole()
{
    return m_file.flush() && m_file.error() == QFileDevice::NoError && m_file.size() == m_size;
}

void FileReplacement::flush()
{
    if (!flushHandle(m_file.handle()))
        fail();
}

void FileReplacement::close()
{
    m_written = fileState(m_file.handle());
    m_file.close();
}

/// Returns false if another program has replaced the new file, for example by a link.
bool FileReplacement::isStillTheNewFile() const
{
    return !QFileInfo(m_temporaryPath).isSymLink() &&
           isSameEntry(fileState(m_temporaryPath), m_written);
}

void FileReplacement::takeName(bool keepsOld)
{
    if (m_result != WriteResult::Staged)
        removeTemporary();
    else if (m_place.expected != nullptr && fileState(m_place.watched) != m_expected)
        giveUp(WriteResult::Changed);
    else if (!isStillTheNewFile())
        giveUp(WriteResult::Failed);
    else
        moveToPlace(keepsOld);
}

void FileReplacement::giveUp(WriteResult result)
{
    m_result = result;
    removeTemporary();
}

void FileReplacement::moveToPlace(bool keepsOld)
{
    if (keepsOld && !m_place.mustBeNew)
        (void)m_old.open(m_place.path);
    std::error_code error = moveEntry(m_temporaryPath, m_place.path, !m_place.mustBeNew);
    bool isOldGone = !error;
    if (!m_place.mustBeNew && canNotReplace(error) && QFile::remove(m_place.path)) {
        error = moveEntry(m_temporaryPath, m_place.path, true);
        isOldGone = true; // then the new file is kept under any name
    }
    m_result = error ? WriteResult::NotNamed : WriteResult::Done;
    m_mayRemove = !isOldGone;
    removeTemporary();
}

} // namespace brisel
