#pragma once

#include "tests/shim/readdamage.h"

#include <fcntl.h>

// The part of the shim that knows which files are watched.

/// From now on the files below \a folder (absolute) are watched; none when it is empty.
void watch(const char *folder);

/// One name of a call: a path, and the folder that it is relative to.
class Watched
{
public:
    Watched(int base, const char *path);
    explicit Watched(const char *path) : Watched(AT_FDCWD, path) {}
    explicit Watched(int handle);

    explicit operator bool() const { return m_watched; }
    const char *path() const { return m_path; }

private:
    char m_path[pathSize * 2] = {};
    bool m_watched = false;
};
