#pragma once

#include <QByteArray>

#include <memory>
#include <optional>

struct ZSTD_CCtx_s;

namespace brisel
{

/// Compression of the old bytes in the history: docs/formats/history.md, "Old bytes".
struct Packed {
    /// The numbers are stored.
    enum class Kind { Plain = 0, Zstandard = 1 };

    Kind kind = Kind::Plain;
    QByteArray bytes;
};

/// Compresses many contents, which is faster than each alone.
class Packer
{
public:
    Packer();
    ~Packer();
    Packer(const Packer &) = delete;
    Packer &operator=(const Packer &) = delete;

    /// Compresses \a bytes, unless that does not make them shorter.
    Packed pack(const QByteArray &bytes);

private:
    struct ContextDeleter {
        void operator()(ZSTD_CCtx_s *context) const;
    };

    std::unique_ptr<ZSTD_CCtx_s, ContextDeleter> m_context;
    QByteArray m_buffer;
};

/// The bytes that were packed. Returns nothing if they are damaged, of an unknown kind, or would be
/// longer than \a longest bytes.
[[nodiscard]] std::optional<QByteArray> unpack(const Packed &packed, qint64 longest);

} // namespace brisel
