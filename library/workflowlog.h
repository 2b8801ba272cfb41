#pragma once

namespace brisel
{

/// The lines by which the workflows divide the log.

/// The three-line banner of a workflow: its name, ten blanks in front, between two lines of "=".
void logBanner(const char *name);

/// The line that ends one song's part, and an empty one.
void logSongEnd();

} // namespace brisel
