#pragma once

#include <QByteArray>

namespace LiteralBytes
{

/// A literal with its zero bytes: `bytes("\0\xFF")`.
template <size_t size>
QByteArray bytes(const char (&literal)[size])
{
    return QByteArray(literal, size - 1);
}

} // namespace LiteralBytes
