#include "history/packing.h"

#include <zstd.h>

namespace brisel
{

namespace
{

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
    const std::size_t most = ZSTD_compressBound(static_cast<std::size_t>(bytes.size()));
    QByteArray packed(static_cast<qsizetype>(most), Qt::Uninitialized);
    const std::size_t size = ZSTD_compress(packed.data(), most, bytes.constData(),
                                           static_cast<std::size_t>(bytes.size()), level);
    if (ZSTD_isError(size) != 0 || size >= static_cast<std::size_t>(bytes.size()))
        return {Packed::Kind::Plain, bytes};
    packed.truncate(static_cast<qsizetype>(size));
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

} // namespace brisel
