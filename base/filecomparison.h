#pragma once

#include <QString>

#include <functional>

namespace brisel
{

/// Returns true if the plain files \a first and \a second have the same size and the same bytes.
/// Reads nothing of files of different sizes. False also if one can't be read to its end, or
/// \a mayGoOn, called before each block, returns false.
[[nodiscard]] bool haveSameContent(const QString &first, const QString &second,
                                   const std::function<bool()> &mayGoOn);

} // namespace brisel
