#pragma once

#include <QString>

namespace brisel
{

/// The title that a song gets from its file: the text between the last "/" and the last "." of
/// \a path. Without a "." after the last "/" it is everything after the "/".
QString titleFromFileName(const QString &path);

/// What the name of a song's file contains.
struct NamedSong {
    QString artist; ///< empty if the name has no artist
    QString title;
};

/// Reads the name of the file \a path as "Artist - Title": the dash, of any width, has blanks or
/// underscores around it. Without one, the name is the title. Numbers in front of either are
/// dropped if a dash, dot or bracket follows, or if they begin with 0.
NamedSong songFromFileName(const QString &path);

} // namespace brisel
