#pragma once

namespace brisel
{

/// The lines that separate the workflows in the log.

/// The three-line banner of a workflow: its name after ten blanks, between two lines of "=".
void logBanner(const char *name);

/// The line that ends one song's part, and an empty one.
void logSongEnd();

} // namespace brisel
