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

Packer::Packer() : m_context(ZSTD_createCCtx()) {}

Packer::~Packer() = default;

void Packer::ContextDeleter::operator()(ZSTD_CCtx_s *context) const
{
    ZSTD_freeCCtx(context);
}

Packed Packer::pack(const QByteArray &bytes)
{
    constexpr int level = 1; // the fastest that is about as good as the next ones
    const auto size = static_cast<std::size_t>(bytes.size());
    const std::size_t most = ZSTD_compressBound(size);
    if (m_buffer.size() < static_cast<qsizetype>(most))
        m_buffer.resize(static_cast<qsizetype>(most));
    const std::size_t packed = m_context == nullptr
                                   ? size
                                   : ZSTD_compressCCtx(m_context.get(), m_buffer.data(), most,
                                                       bytes.constData(), size, level);
    if (ZSTD_isError(packed) != 0 || packed >= size)
        return {Packed::Kind::Plain, bytes};
    return {Packed::Kind::Zstandard,
            QByteArray(m_buffer.constData(), static_cast<qsizetype>(packed))};
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
