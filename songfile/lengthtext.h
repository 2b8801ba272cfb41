#pragma once

#include <QString>

namespace brisel
{

/// "mm:ss"; minutes above 99 have more digits, a negative length gives an empty text.
inline QString lengthText(int seconds)
{
    if (seconds < 0)
        return QStringLiteral("");
    return QStringLiteral("%1:%2")
        .arg(seconds / 60, 2, 10, QChar(u'0'))
        .arg(seconds % 60, 2, 10, QChar(u'0'));
}

} // namespace brisel
