#pragma once

#include "base/plainfile.h"

namespace brisel
{

enum class ReadResult {
    Done,
    NoPlainFile, ///< a folder, a device, a FIFO
    TooLarge,
    NotOpened, ///< also what does not exist
    CutShort,  ///< fewer bytes came than the file holds, or its size changed meanwhile
};

/// The content of a file, or why there is none.
struct FileContent {
    ReadResult result = ReadResult::NotOpened;
    QByteArray bytes; ///< empty unless the result is Done
    FileState state;  ///< of what was opened, or of what stands there

    [[nodiscard]] bool isDone() const { return result == ReadResult::Done; }
};

/// Reads the whole of the plain file at \a path, or nothing. A file of more than \a maximum bytes
/// is not read: no size that a memory claims is trusted.
[[nodiscard]] FileContent readWholeFile(const QString &path, qint64 maximum);
/// The same of a file that is open.
[[nodiscard]] FileContent readWholeFile(const PlainFile &file, qint64 maximum);

/// Reads the first bytes of the plain file at \a path, \a maximum at most, and all of a shorter
/// one. False when it is not a plain file or so many could not be read: \a start is empty then.
/// \a state reports what stands there in either case. \a start keeps its room for the next file.
[[nodiscard]] bool readFileStart(const QString &path, qsizetype maximum, QByteArray &start,
                                 FileState &state);

} // namespace brisel
