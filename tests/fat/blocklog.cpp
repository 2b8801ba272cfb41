#include <cstdarg>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

// Preloaded into the kernel that scripts/realfat boots: logs its writes to its disks, in order.
// Writes to a disk "card.img" go to "card.img.log", each as a head and then its bytes. When a job
// makes the file "card.img.done", a mark is added to show what was written before. Only disks that
// have a log file already, which may be empty, are logged.

namespace
{

struct Head {
    char type[8]; ///< 'W': bytes written, 'F': disk flushed, 'D': job done
    std::int64_t offset;
    std::int64_t size; ///< of the bytes that follow; 0 except for 'W'
};
static_assert(sizeof(Head) == 24);

constexpr std::string_view doneSuffix = ".done";
constexpr int mostFiles = 1024;
int logs[mostFiles]; ///< the log of each open disk, by its descriptor, plus 1

int openLog(const std::string &disk)
{
    const std::string path = disk + ".log";
    return static_cast<int>(::syscall(SYS_open, path.c_str(), O_WRONLY | O_APPEND));
}

void append(int log, char type, std::int64_t offset, const void *bytes, std::int64_t size)
{
    const Head head = {{type}, offset, size};
    std::string record(reinterpret_cast<const char *>(&head), sizeof head);
    if (size > 0)
        record.append(static_cast<const char *>(bytes), static_cast<std::size_t>(size));
    // In one call, because the kernel writes from several threads.
    if (::syscall(SYS_write, log, record.data(), record.size()) !=
        static_cast<std::int64_t>(record.size()))
        std::abort();
}

/// The log of the disk that is open as \a file; -1 if it has none.
int logOf(int file)
{
    return file >= 0 && file < mostFiles ? logs[file] - 1 : -1;
}

void markDone(std::string_view path)
{
    const int log = openLog(std::string(path.substr(0, path.size() - doneSuffix.size())));
    if (log < 0)
        return;
    append(log, 'D', 0, nullptr, 0);
    ::syscall(SYS_close, log);
}

} // namespace

extern "C" {

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = va_arg(arguments, mode_t);
    va_end(arguments);
    const int file = static_cast<int>(::syscall(SYS_open, path, flags | O_LARGEFILE, mode));
    const std::string_view name(path);
    if (file < 0 || (flags & O_ACCMODE) == O_RDONLY)
        return file;
    if (name.ends_with(doneSuffix))
        markDone(name);
    else if (name.ends_with(".img") && file < mostFiles)
        logs[file] = openLog(path) + 1;
    return file;
}

int close(int file)
{
    if (const int log = logOf(file); log >= 0) {
        logs[file] = 0;
        ::syscall(SYS_close, log);
    }
    return static_cast<int>(::syscall(SYS_close, file));
}

ssize_t pwrite64(int file, const void *bytes, size_t size, off64_t offset)
{
    const ssize_t written = ::syscall(SYS_pwrite64, file, bytes, size, offset);
    if (const int log = logOf(file); log >= 0 && written > 0)
        append(log, 'W', offset, bytes, written);
    return written;
}

ssize_t pwrite(int file, const void *bytes, size_t size, off_t offset)
{
    return pwrite64(file, bytes, size, offset);
}

// The disks are temporary files, so a flush is only logged.
int fdatasync(int file)
{
    if (const int log = logOf(file); log >= 0)
        append(log, 'F', 0, nullptr, 0);
    return 0;
}

int fsync(int file)
{
    return fdatasync(file);
}

} // extern "C"
