#pragma once

#include <QByteArray>

namespace brisel
{

namespace LiteralBytes
{

/// The bytes of a literal that may contain zero bytes: `bytes("\0\xFF")`.
template <size_t size>
QByteArray bytes(const char (&literal)[size])
{
    return QByteArray(literal, size - 1);
}

} // namespace LiteralBytes

} // namespace brisel
