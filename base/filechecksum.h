#pragma once

#include <QByteArray>
#include <QCryptographicHash>

namespace brisel
{

class PlainFile;

/// The checksum of the whole open \a file, read in blocks; empty if it can't be read completely, or
/// its size changes meanwhile.
[[nodiscard]] QByteArray fileChecksum(const PlainFile &file,
                                      QCryptographicHash::Algorithm algorithm);

} // namespace brisel
