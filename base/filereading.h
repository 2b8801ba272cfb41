#pragma once

#include "base/plainfile.h"

enum class ReadResult {
    Done,
    NoPlainFile, ///< a folder, a device, a FIFO
    TooLarge,
    NotOpened, ///< also what does not exist
    CutShort,  ///< fewer bytes came than the file holds, or its size changed meanwhile
};

/// Reads the whole of the plain file at \a path, or nothing: \a content is empty then. A file of
/// more than \a maximum bytes is not read: no size that a memory claims is trusted. \a state gets
/// what was opened, or what stands there.
ReadResult readWholeFile(const QString &path, qint64 maximum, QByteArray &content,
                         FileState *state = nullptr);
/// The same of a file that is open.
ReadResult readWholeFile(const PlainFile &file, qint64 maximum, QByteArray &content);

/// Reads the first bytes of the plain file at \a path, \a maximum at most, and all of a shorter
/// one. False when it is not a plain file or so many could not be read: \a start is empty then.
/// \a state reports what stands there in either case.
bool readFileStart(const QString &path, qsizetype maximum, QByteArray &start, FileState &state);
