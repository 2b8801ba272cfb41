#pragma once

#include <QByteArray>

#include <optional>

namespace brisel
{

/// Compression of the old bytes in the history: docs/formats/history.md, "Old bytes".
struct Packed {
    /// The numbers are stored.
    enum class Kind { Plain = 0, Zstandard = 1 };

    Kind kind = Kind::Plain;
    QByteArray bytes;
};

/// Compresses \a bytes, unless that does not make them shorter.
Packed pack(const QByteArray &bytes);

/// The bytes that were packed. Returns nothing if they are damaged, of an unknown kind, or would be
/// longer than \a longest bytes.
[[nodiscard]] std::optional<QByteArray> unpack(const Packed &packed, qint64 longest);

} // namespace brisel
