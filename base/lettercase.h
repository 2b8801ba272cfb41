#pragma once

#include <QString>

namespace brisel
{

/// Returns true if \a text has no character above 0x7F.
bool isAscii(const QString &text);

/// \a text with only a to z upper-cased.
QString asciiUpperCased(const QString &text);

/// Like QString::toUpper() and QString::toLower(), but faster for ASCII, the usual case.
QString upperCased(const QString &text);
QString lowerCased(const QString &text);

} // namespace brisel
