#pragma once

// Functions of shim.cpp for disks.cpp, the part of the shim that simulates other kinds of disks.

/// Counts the flush of the file \a handle as a step, if flushes are steps. Returns -1 with errno
/// set if the step fails, otherwise 0.
int flushStep(const char *step, int handle);
/// True if the file or folder \a handle is below the watched folder.
bool isWatched(int handle);
