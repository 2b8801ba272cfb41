#pragma once

#include <cstddef>

#include <sys/types.h>

// The part of the shim that knows which file can't be read whole: see Shim::failReads().

constexpr size_t pathSize = 4096;

/// The path of an open file or folder, from /proc. \a path has room for pathSize bytes.
bool pathOf(int handle, char *path);

/// How many of \a size bytes from \a pos on can be read; -1 with errno set if reading fails.
ssize_t readable(int handle, long long pos, size_t size);

/// The position at which a call starts to read: \a offset, or if null the file's own position.
long long readPosition(int handle, const off64_t *offset);
