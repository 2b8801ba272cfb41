#pragma once

#include <QString>

namespace brisel
{

/// What is done with one song file without a run.

/// False when the file at \a path is still there.
bool deleteSongFile(const QString &path);

/// Debug aid: saves the song at \a path as "test_save.bin" in the working folder. False, logged,
/// when that failed.
bool saveTestCopy(const QString &path);

/// Debug aid: saves the song at \a path, with a marker \a text at the bar \a bar, as
/// "test_addmarker.bin" in the working folder. False, logged, when there is no marker in it.
bool saveMarkedCopy(const QString &path, const QString &text, unsigned short bar);

} // namespace brisel
