#pragma once

#include <QIODevice>
#include <QString>

class QFile;

#ifdef Q_OS_UNIX
#include <sys/types.h>
#endif

namespace brisel
{

/// A file descriptor and its owner: it is closed when the object ends. No child process inherits
/// what is opened here. An open call that fails leaves its reason in errno. On systems without file
/// descriptors nothing is ever open.
class FileDescriptor
{
public:
    FileDescriptor() = default;
    /// Takes over \a handle; -1 stands for none.
    explicit FileDescriptor(int handle) : m_handle(handle) {}
    ~FileDescriptor() { close(); }
    FileDescriptor(const FileDescriptor &) = delete;
    FileDescriptor &operator=(const FileDescriptor &) = delete;
    FileDescriptor(FileDescriptor &&other) noexcept : m_handle(other.release()) {}
    FileDescriptor &operator=(FileDescriptor &&other) noexcept;

#ifdef Q_OS_UNIX
    /// Read and write for everybody whom the user's mask does not exclude.
    static constexpr mode_t usualMode = 0666;

    /// Opens what stands at \a path. \a flags are those of open(2); \a mode counts for a new file.
    [[nodiscard]] static FileDescriptor open(const QString &path, int flags,
                                             mode_t mode = usualMode);
    /// The same of the entry \a name of the open folder \a folder, or of a path with AT_FDCWD; a
    /// link at the end is not followed.
    [[nodiscard]] static FileDescriptor openIn(int folder, const QString &name, int flags,
                                               mode_t mode = usualMode);
    /// Opens a folder, to read it, to flush it or to reach what is in it. Links are followed.
    [[nodiscard]] static FileDescriptor openFolder(const QString &path);
    /// The same of the folder \a name in the open folder \a folder; a link is not followed.
    [[nodiscard]] static FileDescriptor openFolderIn(int folder, const QString &name);
#endif

    [[nodiscard]] bool isOpen() const
    {
        return m_handle >= 0;
    }
    /// The system's number, -1 when nothing is open. It stays the object's own.
    [[nodiscard]] int get() const
    {
        return m_handle;
    }
    /// The same, which the caller has to close from now on.
    [[nodiscard]] int release();
    /// Lets \a file, unbuffered, take over the descriptor and close it. False when it refuses, or
    /// nothing is open.
    [[nodiscard]] bool giveTo(QFile &file, QIODevice::OpenMode mode);
    void close();

private:
    int m_handle = -1;
};

} // namespace brisel
