#pragma once

#include "songfile/songkeeper.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace brisel
{

/// Compressed bytes in the history: docs/formats/history.md, "Old bytes".
struct Packed {
    /// The numbers are stored.
    enum class Kind { Plain = 0, Zstandard = 1 };

    Kind kind = Kind::Plain;
    QByteArray bytes;
};

/// Compresses \a bytes, unless that does not make them shorter.
[[nodiscard]] Packed pack(const QByteArray &bytes);
/// The bytes that were packed. Returns nothing if they are damaged, of an unknown kind, or would be
/// longer than \a longest bytes.
[[nodiscard]] std::optional<QByteArray> unpack(const Packed &packed, qint64 longest);

/// Changes of fields as one text: docs/formats/history.md, "Fields".
[[nodiscard]] QString fieldsText(const QList<FieldChange> &fields);
/// The changes in such a text; empty if it is damaged.
[[nodiscard]] QList<FieldChange> fieldsIn(const QString &text);

/// A kept song as the history stores it.
struct PackedSong {
    PackedSong() = default;
    /// Packs \a kept, which is most of the work of keeping it.
    PackedSong(const KeptSong &kept); // NOLINT(google-explicit-constructor)

    QString path;
    QString format;
    Fingerprint before;
    Fingerprint after;
    QString fields;     ///< fieldsText()
    qint64 oldSize = 0; ///< bytes before packing
    Packed old;
};

} // namespace brisel
