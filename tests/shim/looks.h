#pragma once

/// Counts what a program asks the system about the files below one folder. Linked to a test, it
/// stands between the program and the C library, so that the product needs no hook.
namespace Looks
{

struct Counts {
    long opened = 0;
    long asked = 0; ///< for a file's kind, size or dates
    long reads = 0;
    long bytes = 0;  ///< that were read
    long listed = 0; ///< folders whose names were asked for
};

/// Counts from 0 what concerns \a folder and what is below it, an absolute path.
void start(const char *folder);
/// Ends it. What was counted.
Counts stop();

} // namespace Looks
