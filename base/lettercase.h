#pragma once

#include <QString>

/// As QString::toUpper() and QString::toLower(), quicker for plain ASCII, which most names and
/// texts are.
QString upperCased(const QString &text);
QString lowerCased(const QString &text);
