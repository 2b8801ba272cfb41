#pragma once

#include <QByteArray>
#include <QString>

/// Reads the whole of the plain file at \a path. False when it is none (a folder, a device), can't
/// be read, or holds more than \a maximum bytes: no size that a memory claims is trusted.
bool readPlainFile(const QString &path, qint64 maximum, QByteArray &content);
