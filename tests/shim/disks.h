#pragma once

// What disks.cpp, the part of the shim that plays other kinds of disks, needs of shim.cpp.

/// Counts the flush of what is open as \a handle, where flushes are steps; -1 when it fails, with
/// errno set.
int flushStep(const char *step, int handle);
/// True when what is open as \a handle lies below the watched folder.
bool isWatched(int handle);
