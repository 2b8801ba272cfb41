#pragma once

#include <functional>

/// What another program does at the worst moment: \a change runs once, when a file is flushed to
/// the disk the next time while this lives. One at a time.
class DuringFlush
{
public:
    explicit DuringFlush(std::function<void()> change);
    ~DuringFlush();
    DuringFlush(const DuringFlush &) = delete;
    DuringFlush &operator=(const DuringFlush &) = delete;
};
