#pragma once

#include "base/fileidentity.h"

#include <QByteArray>
#include <QString>

/// Reads the whole of the plain file at \a path. False when it is none (a folder, a device), can't
/// be read, or holds more than \a maximum bytes: no size that a memory claims is trusted.
bool readPlainFile(const QString &path, qint64 maximum, QByteArray &content);

/// Reads the first bytes of the plain file at \a path, \a maximum at most. False when it is none or
/// can't be read. \a state tells what stands there in either case. It opens what it finds, and does
/// not wait for a FIFO: for files that were plain a moment ago.
bool readFileStart(const QString &path, qsizetype maximum, QByteArray &start, FileState &state);
