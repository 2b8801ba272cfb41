#pragma once

#include <QString>

namespace brisel
{

/// \a text on one line, and not longer than a cell of a table can show.
inline QString cellText(const QString &text)
{
    constexpr qsizetype longest = 500; // characters
    return text.left(longest).simplified();
}

} // namespace brisel
