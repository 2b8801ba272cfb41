#pragma once

/// Counts the steps by which a program changes the files below one folder (open for writing, write,
/// rename, delete, flush, folder made or removed, ...), and lets a chosen one go wrong. Reading is
/// no step; its bytes are added up. It stands between the program and the C library, so that the
/// product needs no hook: either linked to a test, which arms it, or preloaded into any program,
/// which it then watches from the start by
///
///     BRISEL_SHIM_FOLDER  the folder, as an absolute path
///     BRISEL_SHIM_AT      the step that goes wrong, counted from 1; 0 for none
///     BRISEL_SHIM_ACTION  kill, torn, enospc, eio, short, erofs or stop
///     BRISEL_SHIM_COUNT   a file that afterwards holds the number of steps seen (a native int)
///     BRISEL_SHIM_TRACE   as startTrace()
///     BRISEL_SHIM_NO_REPLACE  set: a file can't be renamed to the name of another one
///     BRISEL_SHIM_FAT     set: as actLike(Fat)
///     BRISEL_SHIM_FLUSH_MS  how long each flush takes, in milliseconds
///
/// Nothing is flushed for real, it takes too long: the tests end processes, not the power. A flush
/// is a step where it can fail by itself, and in a trace.
namespace Shim
{

enum Action {
    Kill,     ///< the process ends before the step
    Torn,     ///< the process ends after half of a write, before any other step
    NoSpace,  ///< from that step on nothing can be written or created; deleting goes on
    IoError,  ///< that one step fails
    Short,    ///< that one write takes half of its bytes
    ReadOnly, ///< from that step on nothing can be changed
    Stop,     ///< the process stops before the step, and goes on when it gets SIGCONT
};

/// From now on: step \a at below \a folder meets \a action.
void arm(const char *folder, int at, Action action);
/// Ends it. The number of steps since arm().
int disarm();

/// From now on each flush below the folder takes \a milliseconds, as on a slow stick; 0 ends it.
void slowFlushes(int milliseconds);
/// The flushes below the folder from arm() to disarm(): of files, folders or the file system.
int flushes();
/// From now on: the file \a path gains a line for each step: its name, a blank, the path. The
/// flush of a whole file system is called "syncfs" there.
void startTrace(const char *path);
void stopTrace();

enum Disk {
    Plain,         ///< as it is
    Fat,           ///< what is below the folder says that it lies on FAT
    WithoutSyncfs, ///< no file system can be flushed as a whole
};
/// Until the next call the disk is of another kind.
void actLike(Disk kind);

enum ReadFailure { BadSector, EndOfFile };

/// From now on: what stands at or behind \a offset in the file \a path (absolute) can't be read. A
/// read there fails, or finds the end of the file; one that begins before it comes as far. Also by
/// copy_file_range and sendfile, which then are no step of the target.
void failReads(const char *path, long long offset, ReadFailure failure);
/// Ends it.
void readAll();

/// From now on: the folder \a path (absolute) can't be opened to be listed, for lack of permission.
void refuseFolder(const char *path);
/// From now on: the disk fails behind the first \a after entries of the folder \a path (absolute),
/// names that begin with a point not counted.
void failListing(const char *path, int after);
/// Ends either.
void listAll();

/// The bytes that were read below the folder from arm() to disarm().
long long bytesRead();

} // namespace Shim
