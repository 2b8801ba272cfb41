#pragma once

#include <unistd.h>

/// Ends the test by a signal when it is still under way after a minute: it waits for what never
/// comes.
class HangWatch
{
public:
    HangWatch() { ::alarm(60); }
    ~HangWatch() { ::alarm(0); }
    HangWatch(const HangWatch &) = delete;
    HangWatch &operator=(const HangWatch &) = delete;
};
