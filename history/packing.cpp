#include "history/packing.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <zstd.h>

#include <memory>

namespace brisel
{

namespace
{

struct ContextDeleter {
    void operator()(ZSTD_CCtx *context) const { ZSTD_freeCCtx(context); }
};

/// Kept for the next songs of this thread: a new one for each song takes as long as the song.
ZSTD_CCtx *packingContext()
{
    thread_local const std::unique_ptr<ZSTD_CCtx, ContextDeleter> context(ZSTD_createCCtx());
    return context.get();
}

std::optional<QByteArray> expanded(const QByteArray &packed, qint64 longest)
{
    const unsigned long long size =
        ZSTD_getFrameContentSize(packed.constData(), static_cast<std::size_t>(packed.size()));
    // Both kinds of failure are the largest numbers.
    if (size > static_cast<unsigned long long>(longest))
        return {};
    QByteArray bytes(static_cast<qsizetype>(size), Qt::Uninitialized);
    const std::size_t length =
        ZSTD_decompress(bytes.data(), static_cast<std::size_t>(size), packed.constData(),
                        static_cast<std::size_t>(packed.size()));
    return length == size ? std::optional(bytes) : std::nullopt;
}

} // namespace

Packed pack(const QByteArray &bytes)
{
    constexpr int level = 1; // the fastest that is about as good as the next ones
    const auto size = static_cast<std::size_t>(bytes.size());
    ZSTD_CCtx *context = packingContext();
    if (context == nullptr)
        return {Packed::Kind::Plain, bytes};
    // A frame that is longer than the bytes is not needed.
    QByteArray packed(bytes.size(), Qt::Uninitialized);
    const std::size_t length =
        ZSTD_compressCCtx(context, packed.data(), size, bytes.constData(), size, level);
    if (ZSTD_isError(length) != 0 || length >= size)
        return {Packed::Kind::Plain, bytes};
    packed.truncate(static_cast<qsizetype>(length));
    return {Packed::Kind::Zstandard, packed};
}

std::optional<QByteArray> unpack(const Packed &packed, qint64 longest)
{
    switch (packed.kind) {
    case Packed::Kind::Plain:
        return packed.bytes.size() <= longest ? std::optional(packed.bytes) : std::nullopt;
    case Packed::Kind::Zstandard:
        return expanded(packed.bytes, longest);
    }
    return {};
}

QString fieldsText(const QList<FieldChange> &fields)
{
    QJsonArray rows;
    for (const FieldChange &field : fields)
        rows.append(QJsonArray{static_cast<int>(field.field), field.before, field.after});
    return QString::fromUtf8(QJsonDocument(rows).toJson(QJsonDocument::Compact));
}

QList<FieldChange> fieldsIn(const QString &text)
{
    constexpr qsizetype columns = 3;
    constexpr int lastField = static_cast<int>(FieldChange::Field::Markers);
    QList<FieldChange> fields;
    const QJsonArray rows = QJsonDocument::fromJson(text.toUtf8()).array();
    for (const auto &value : rows) {
        const QJsonArray row = value.toArray();
        const int field = row.at(0).toInt();
        if (row.size() != columns || field < 1 || field > lastField || !row.at(1).isString() ||
            !row.at(2).isString())
            return {};
        fields.append(
            {static_cast<FieldChange::Field>(field), row.at(1).toString(), row.at(2).toString()});
    }
    return fields;
}

PackedSong::PackedSong(const KeptSong &kept)
    : path(kept.path), format(kept.format), before(kept.before), after(kept.after),
      fields(fieldsText(kept.fields)), oldSize(kept.oldBytes.size()), old(pack(kept.oldBytes))
{
}

} // namespace brisel
