#include "tests/shim/watched.h"

#include <cstdio>
#include <cstring>

#include <unistd.h>

namespace
{

char folder[pathSize];
size_t folderLength = 0;

bool isBelow(const char *path)
{
    return folderLength > 0 && std::strncmp(path, folder, folderLength) == 0 &&
           (path[folderLength] == '/' || path[folderLength] == '\0' || path[folderLength] == ' ');
}

} // namespace

void watch(const char *watched)
{
    std::snprintf(folder, sizeof folder, "%s", watched);
    folderLength = std::strlen(folder);
}

Watched::Watched(int base, const char *path)
{
    if (folderLength == 0 || path == nullptr)
        return;
    if (path[0] == '/') {
        std::snprintf(m_path, sizeof m_path, "%s", path);
    } else {
        char start[pathSize] = {};
        if (base == AT_FDCWD ? ::getcwd(start, sizeof start) == nullptr : !pathOf(base, start))
            return;
        if (std::snprintf(m_path, sizeof m_path, "%s/%s", start, path) < 0)
            return;
    }
    m_watched = isBelow(m_path);
}

Watched::Watched(int handle)
{
    m_watched = folderLength > 0 && pathOf(handle, m_path) && isBelow(m_path);
}
