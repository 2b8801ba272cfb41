#pragma once

#include <QString>

namespace brisel
{

/// Operations on one song file without a run.

/// Returns false if the file at \a path still exists.
bool deleteSongFile(const QString &path);

/// Debug aid: saves the song at \a path as "test_save.bin" in the working folder. Returns false,
/// logged, on failure.
bool saveTestCopy(const QString &path);

/// Debug aid: saves the song at \a path, with a marker \a text at the bar \a bar, as
/// "test_addmarker.bin" in the working folder. Returns false, logged, if no marker was added.
bool saveMarkedCopy(const QString &path, const QString &text, unsigned short bar);

} // namespace brisel
