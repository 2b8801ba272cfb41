#pragma once

#include "base/filedescriptor.h"
#include "base/fileidentity.h"

#include <QByteArray>
#include <QString>

namespace brisel
{

/// A plain file that is open for reading. If the name now belongs to another kind of entry (a FIFO,
/// a device, a folder), this is detected after opening, and it is closed again at once.
class PlainFile
{
public:
    /// Opens the file at \a path, links followed, without blocking. Returns false if no plain file
    /// could be opened there. Closes the file that was open before.
    [[nodiscard]] bool open(const QString &path);
    /// The same for the file \a name in the open folder \a folder, where a link is not a plain
    /// file.
    [[nodiscard]] bool openIn(int folder, const QString &name);
    void close() { m_handle.close(); }
    [[nodiscard]] bool isOpen() const { return m_handle.isOpen(); }

    /// The state of the file when it was opened; if it could not be opened, the state of the entry.
    const FileState &state() const { return m_state; }
    qint64 size() const { return m_state.size; } ///< bytes, when it was opened
    /// Reads exactly \a count bytes from \a pos on. Returns false, with \a bytes empty, if fewer
    /// could be read, or if they are not within size().
    [[nodiscard]] bool read(qint64 pos, qsizetype count, QByteArray &bytes) const;
    /// Returns true if the file still has the size that it had when it was opened.
    [[nodiscard]] bool keepsItsSize() const;
    /// The system's handle, -1 if nothing is open; still owned by this object.
    int handle() const { return m_handle.get(); }

private:
    bool keepIfPlain();

    FileState m_state;
    FileDescriptor m_handle;
};

} // namespace brisel
