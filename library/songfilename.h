#pragma once

#include <QString>

namespace brisel
{

/// The title that a song gets from its file: what stands between the last "/" and the last "." of
/// \a path. Without a "." after the last "/" it is everything after that.
QString titleFromFileName(const QString &path);

} // namespace brisel
