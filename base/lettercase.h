#pragma once

#include <QString>

namespace brisel
{

/// True when \a text has no character above 0x7F.
bool isAscii(const QString &text);

/// \a text with a to z upper-cased and all else as it is.
QString asciiUpperCased(const QString &text);

/// As QString::toUpper() and QString::toLower(), quicker for plain ASCII, which most names and
/// texts are.
QString upperCased(const QString &text);
QString lowerCased(const QString &text);

} // namespace brisel
