#pragma once

#include <QString>

namespace brisel
{

/// The title that a song gets from its file: the text between the last "/" and the last "." of
/// \a path. Without a "." after the last "/" it is everything after the "/".
QString titleFromFileName(const QString &path);

} // namespace brisel
