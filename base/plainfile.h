#pragma once

#include "base/filedescriptor.h"
#include "base/fileidentity.h"

#include <QByteArray>
#include <QString>

#ifndef Q_OS_UNIX
#include <QFile>
#endif

namespace brisel
{

/// A plain file that is open for reading, and nothing else: what a name has become since the last
/// look (a FIFO, a device, a folder) is noticed by what was opened, and is closed again at once.
class PlainFile
{
public:
    /// Opens the file at \a path, links followed, without waiting for anything. False when no
    /// plain file could be opened there. A file that was open before is closed.
    [[nodiscard]] bool open(const QString &path);
#ifdef Q_OS_UNIX
    /// The same of the file \a name in the open folder \a folder, where a link is no plain file.
    [[nodiscard]] bool openIn(int folder, const QString &name);
#endif
    void close();
    [[nodiscard]] bool isOpen() const;

    /// The file as it was when it was opened; when it could not be opened, what stands there.
    const FileState &state() const
    {
        return m_state;
    }
    qint64 size() const
    {
        return m_state.size;
    } ///< bytes, when it was opened
    /// Reads exactly \a count bytes from \a pos on. False when fewer came, or when they don't lie
    /// within size(): \a bytes is empty then.
    [[nodiscard]] bool read(qint64 pos, qsizetype count, QByteArray &bytes) const;
    /// True when the file still is as long as when it was opened.
    [[nodiscard]] bool keepsItsSize() const;
    /// The system's handle, -1 when nothing is open; it stays the object's own.
    int handle() const;

private:
#ifdef Q_OS_UNIX
    bool keepIfPlain();
#endif

    FileState m_state;
#ifdef Q_OS_UNIX
    FileDescriptor m_handle;
#else
    mutable QFile m_file;
#endif
};

} // namespace brisel
