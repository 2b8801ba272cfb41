#pragma once

#include <QStringList>

namespace brisel
{

/// Names for copies of \a files side by side in one folder: each keeps its own name, except for the
/// second and later files of one name, which get the first free number: "SONG (2).MID". Ignores
/// letter case, and counts the graphics beside an MP3 as a part of it. No name is one of
/// \a reserved, and none is longer than 255 bytes if the file's own was not.
QStringList numberedNames(const QStringList &files, const QStringList &reserved);

} // namespace brisel
