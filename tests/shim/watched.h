#pragma once

#include "tests/shim/readdamage.h"

#include <fcntl.h>

// The part of the shim that decides which files are watched.

/// Starts to watch the files below \a folder (absolute); watches none if it is empty.
void watch(const char *folder);

/// A path argument of a call, with the folder to which it is relative.
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
