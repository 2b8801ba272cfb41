#pragma once

#include <QIODevice>
#include <QString>

#include <utility>

#include <sys/types.h>

class QFile;

namespace brisel
{

/// Owns a file descriptor, which is closed by the destructor. Child processes do not inherit it. A
/// failed open call leaves its reason in errno.
class FileDescriptor
{
public:
    FileDescriptor() = default;
    /// Takes over \a handle; -1 means that nothing is open.
    explicit FileDescriptor(int handle) : m_handle(handle) {}
    ~FileDescriptor() { close(); }
    FileDescriptor(const FileDescriptor &) = delete;
    FileDescriptor &operator=(const FileDescriptor &) = delete;
    FileDescriptor(FileDescriptor &&other) noexcept : m_handle(other.release()) {}
    FileDescriptor &operator=(FileDescriptor &&other) noexcept;

    /// Read and write permissions for all, limited by the user's mask.
    static constexpr mode_t usualMode = 0666;

    /// Opens \a path. \a flags are those of open(2); \a mode is used for a new file.
    [[nodiscard]] static FileDescriptor open(const QString &path, int flags,
                                             mode_t mode = usualMode);
    /// The same for the entry \a name of the open folder \a folder, or a path with AT_FDCWD; a link
    /// at the end is not followed.
    [[nodiscard]] static FileDescriptor openIn(int folder, const QString &name, int flags,
                                               mode_t mode = usualMode);
    /// Opens a folder, to read it, to flush it or to access its entries. Links are followed.
    [[nodiscard]] static FileDescriptor openFolder(const QString &path);
    /// The same for the folder \a name in the open folder \a folder; a link is not followed.
    [[nodiscard]] static FileDescriptor openFolderIn(int folder, const QString &name);

    [[nodiscard]] bool isOpen() const { return m_handle >= 0; }
    /// The system's number, -1 if nothing is open. Still owned by this object.
    [[nodiscard]] int get() const { return m_handle; }
    /// The same, which the caller owns and must close from now on.
    [[nodiscard]] int release() { return std::exchange(m_handle, -1); }
    /// Passes the descriptor to \a file, unbuffered, which closes it. Returns false on failure, or
    /// if nothing is open.
    [[nodiscard]] bool giveTo(QFile &file, QIODevice::OpenMode mode);
    void close();

private:
    int m_handle = -1;
};

} // namespace brisel
