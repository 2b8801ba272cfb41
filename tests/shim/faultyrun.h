#pragma once

#include "index/index.h"
#include "tests/index/samplememory.h"
#include "tests/scriptedindex.h"
#include "tests/shim/shim.h"

#include <QFile>

#include <csignal>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace brisel
{

/// Index runs that are cut, or whose disk fails.

using IndexWork = std::function<bool(ScriptedIndex &, const QString &)>;

inline constexpr int killed = -1;

/// Runs \a run in a separate process whose step \a number goes wrong. Returns killed, or the run's
/// result as 0 or 1; \a reached: whether the step was reached.
inline int runWithFault(const SampleMemory &memory, const IndexWork &run, int number,
                        Shim::Action fault, bool &reached)
{
    const pid_t child = ::fork();
    if (child == 0) {
        Shim::arm(QFile::encodeName(memory.root()).constData(), number, fault);
        ScriptedIndex index;
        const bool result = run(index, memory.root());
        const int steps = Shim::disarm();
        ::_exit((result ? 1 : 0) + (steps >= number ? 2 : 0));
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) {
        reached = true;
        return killed;
    }
    if (!WIFEXITED(status))
        qFatal("the run crashed");
    reached = (WEXITSTATUS(status) & 2) != 0;
    return WEXITSTATUS(status) & 1;
}

} // namespace brisel
