#pragma once

#include <QString>

/// The player finds files and folders by names of up to eight characters and a suffix.
namespace LongNames
{

/// True when the name of \a path, its last suffix left out, has more than eight characters.
bool isLong(const QString &path);

/// The first free name of the kind "MYFAVO-1" for the file or folder \a path, as a full path;
/// empty when all 999 are taken.
QString freeShortPath(const QString &path);

/// Renames \a path to \a shortPath, and with an MP3 the ".cdg" file beside it. False when either
/// can't be; then both have their old names.
bool rename(const QString &path, const QString &shortPath);

} // namespace LongNames
