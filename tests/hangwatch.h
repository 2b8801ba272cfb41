#pragma once

#include <unistd.h>

namespace brisel
{

/// Ends a test that still runs after a minute by a signal.
class HangWatch
{
public:
    HangWatch() { ::alarm(60); }
    ~HangWatch() { ::alarm(0); }
    HangWatch(const HangWatch &) = delete;
    HangWatch &operator=(const HangWatch &) = delete;
};

} // namespace brisel
