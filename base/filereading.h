#pragma once

#include "base/plainfile.h"

namespace brisel
{

enum class ReadResult {
    Done,
    NoPlainFile, ///< a folder, a device, a FIFO
    TooLarge,
    NotOpened, ///< also if the file does not exist
    CutShort,  ///< fewer bytes could be read than the file has, or its size changed
};

/// The content of a file, or the reason why it was not read.
struct FileContent {
    ReadResult result = ReadResult::NotOpened;
    QByteArray bytes; ///< empty unless the result is Done
    FileState state;  ///< of the opened file; if it was not opened, of the entry there

    [[nodiscard]] bool isDone() const { return result == ReadResult::Done; }
};

/// Reads the whole plain file at \a path, or nothing. A file of more than \a maximum bytes is not
/// read, because a damaged memory can report any size.
[[nodiscard]] FileContent readWholeFile(const QString &path, qint64 maximum);
/// The same for an open file.
[[nodiscard]] FileContent readWholeFile(const PlainFile &file, qint64 maximum);

/// Reads the first \a maximum bytes of the plain file at \a path, or all of a shorter one. Returns
/// false, with \a start empty, if it is not a plain file or they could not be read. Always sets
/// \a state. \a start keeps its allocated memory for the next file.
[[nodiscard]] bool readFileStart(const QString &path, qsizetype maximum, QByteArray &start,
                                 FileState &state);

} // namespace brisel
