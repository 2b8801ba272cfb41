#pragma once

/// Counts the steps by which a program changes the files below one folder (open for writing, write,
/// rename, delete, flush, folder made or removed, ...), and lets a chosen one go wrong. Reading is
/// not a step; only its bytes are counted. The shim intercepts calls of the C library, so the
/// product needs no hooks. It is either linked to a test, which arms it, or preloaded into a
/// program, which it then watches from the start, controlled by
///
///     BRISEL_SHIM_FOLDER  the folder, as an absolute path
///     BRISEL_SHIM_AT      the step that goes wrong, counted from 1; 0 for none
///     BRISEL_SHIM_ACTION  kill, torn, enospc, eio, short, erofs or stop
///     BRISEL_SHIM_COUNT   a file for the number of steps (a native int)
///     BRISEL_SHIM_TRACE   a file, see startTrace()
///     BRISEL_SHIM_NO_REPLACE  set: a file can't be renamed to the name of another one
///     BRISEL_SHIM_FAT     set: like actLike(Fat)
///     BRISEL_SHIM_FLUSH_MS  how long each flush takes, in milliseconds
/// Flushes are counted but not performed, as they take too long and the tests end processes, not
/// the power. A flush is a step only if the action is IoError or a trace is written.
namespace Shim
{

enum Action {
    Kill,     ///< the process ends before the step
    Torn,     ///< the process ends after half of a write, before any other step
    NoSpace,  ///< from that step on nothing can be written or created, only deleted
    IoError,  ///< that one step fails
    Short,    ///< that one write writes half of its bytes
    ReadOnly, ///< from that step on nothing can be changed
    Stop,     ///< the process stops before the step until it gets SIGCONT
};

/// Starts counting the steps below \a folder; step \a at goes wrong by \a action.
void arm(const char *folder, int at, Action action);
/// Stops counting. Returns the number of steps since arm().
int disarm();

/// Makes each flush below the folder take \a milliseconds, as on a slow stick; 0 ends that.
void slowFlushes(int milliseconds);
/// The number of flushes of files, folders or the file system below the folder, from arm() to
/// disarm().
int flushes();
/// Starts to append a line for each step to the file \a path: its name, a blank, the path. The
/// flush of a whole file system is named "syncfs".
void startTrace(const char *path);
void stopTrace();

enum Disk {
    Plain,         ///< the real disk
    Fat,           ///< files below the folder appear to be on FAT
    WithoutSyncfs, ///< syncfs() fails
};
/// Simulates a kind of disk until the next call.
void actLike(Disk kind);

enum ReadFailure { BadSector, EndOfFile };

/// Makes the file \a path (absolute) unreadable from \a offset on. A read there fails, or finds the
/// end of the file; a read that starts before \a offset ends there. This includes copy_file_range
/// and sendfile, which then are not a step of the target.
void failReads(const char *path, long long offset, ReadFailure failure);
/// Makes all files readable again.
void readAll();

/// Makes listing the folder \a path (absolute) fail for lack of permission.
void refuseFolder(const char *path);
/// Makes listing the folder \a path (absolute) fail after its first \a after entries, without
/// counting names that start with a dot.
void failListing(const char *path, int after);
/// Makes all folders listable again.
void listAll();

/// The number of bytes read below the folder from arm() to disarm().
long long bytesRead();

} // namespace Shim
