#pragma once

#include <functional>

/// Simulates a change by another program at the worst moment: \a change runs once, at the next
/// flush of a file while this exists. Only one may exist at a time. Without a \a change, all
/// flushes of files and folders fail.
class DuringFlush
{
public:
    explicit DuringFlush(std::function<void()> change);
    ~DuringFlush();
    DuringFlush(const DuringFlush &) = delete;
    DuringFlush &operator=(const DuringFlush &) = delete;
};
