#pragma once

#include <functional>

/// Simulates a change by another program during a copy: \a change runs once, when the program next
/// sets the size of a file while this exists. Only one may exist at a time.
class DuringTruncate
{
public:
    explicit DuringTruncate(std::function<void()> change);
    ~DuringTruncate();
    DuringTruncate(const DuringTruncate &) = delete;
    DuringTruncate &operator=(const DuringTruncate &) = delete;
};
