#include "tests/shim/trace.h"

#include "tests/shim/readdamage.h"
#include "tests/shim/shim.h"

#include <cstdio>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

// Makes system calls directly, like shim.cpp.

namespace
{

int trace = -1;

} // namespace

bool isTracing()
{
    return trace >= 0;
}

void note(const char *step, const char *path)
{
    if (trace < 0)
        return;
    char line[pathSize * 2 + 64];
    const int length = std::snprintf(line, sizeof line, "%s %s\n", step, path);
    if (length > 0)
        ::syscall(SYS_write, trace, line, length);
}

void Shim::startTrace(const char *path)
{
    trace = static_cast<int>(
        ::syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
}

void Shim::stopTrace()
{
    ::close(trace);
    trace = -1;
}
