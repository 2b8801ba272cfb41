#pragma once

/// Counts a program's system calls for the files below one folder. Linked to a test, it intercepts
/// calls of the C library, so the product needs no hooks.
namespace Looks
{

struct Counts {
    long opened = 0;
    long asked = 0; ///< calls for a file's kind, size or dates
    long reads = 0;
    long bytes = 0;  ///< bytes that were read
    long listed = 0; ///< folders that were listed
};

/// Starts counting from 0 for \a folder, an absolute path, and everything below it.
void start(const char *folder);
/// Stops counting and returns the counts.
Counts stop();

} // namespace Looks
