#pragma once

#include <cstddef>

#include <sys/types.h>

// The part of the shim that knows which file can't be read whole: see Shim::failReads().

constexpr size_t pathSize = 4096;

/// What /proc says of a file or folder that is open. \a path has room for pathSize bytes.
bool pathOf(int handle, char *path);

/// How many of \a size bytes from \a pos on can be read; -1 when that fails, with errno set.
ssize_t readable(int handle, long long pos, size_t size);

/// Where a call with \a offset, which may be none, begins to read.
long long readPosition(int handle, const off64_t *offset);
