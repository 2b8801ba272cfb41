#include "tests/shim/readdamage.h"
#include "tests/shim/shim.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <dirent.h>
#include <dlfcn.h>

// Uses the C library's own functions: no single system call lists a folder.

namespace
{

char damagedFolder[pathSize]; ///< can't be listed to its end; empty if no folder is damaged
bool isRefused = false;
int entriesLeft = 0;

bool isDamaged(const char *path)
{
    return damagedFolder[0] != '\0' && std::strcmp(path, damagedFolder) == 0;
}

bool isDamaged(DIR *folder)
{
    char path[pathSize];
    return damagedFolder[0] != '\0' && pathOf(::dirfd(folder), path) && isDamaged(path);
}

template <typename Entry>
Entry *readEntry(const char *name, DIR *folder)
{
    using Read = Entry *(*)(DIR *);
    static const auto own = reinterpret_cast<Read>(::dlsym(RTLD_NEXT, name));
    if (!isDamaged(folder))
        return own(folder);
    if (entriesLeft <= 0) {
        errno = EIO;
        return nullptr;
    }
    Entry *const entry = own(folder);
    entriesLeft -= entry != nullptr && entry->d_name[0] != '.' ? 1 : 0;
    return entry;
}

} // namespace

void Shim::refuseFolder(const char *path)
{
    std::snprintf(damagedFolder, sizeof damagedFolder, "%s", path);
    isRefused = true;
}

void Shim::failListing(const char *path, int after)
{
    std::snprintf(damagedFolder, sizeof damagedFolder, "%s", path);
    isRefused = false;
    entriesLeft = after;
}

void Shim::listAll()
{
    damagedFolder[0] = '\0';
}

extern "C" {

DIR *opendir(const char *path)
{
    using Open = DIR *(*)(const char *);
    static const auto own = reinterpret_cast<Open>(::dlsym(RTLD_NEXT, "opendir"));
    if (!isRefused || !isDamaged(path))
        return own(path);
    errno = EACCES;
    return nullptr;
}

dirent *readdir(DIR *folder)
{
    return readEntry<dirent>("readdir", folder);
}

dirent64 *readdir64(DIR *folder)
{
    return readEntry<dirent64>("readdir64", folder);
}

} // extern "C"
