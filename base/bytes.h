#pragma once

#include <QByteArray>

namespace brisel
{

/// Bounds-checked reads and writes of single numbers: bytes outside of the array are read as 0 and
/// not written.

/// Returns true if there are \a count bytes at \a pos.
inline bool fits(const QByteArray &data, qsizetype pos, qsizetype count)
{
    return pos >= 0 && count >= 0 && pos <= data.size() && count <= data.size() - pos;
}

inline quint8 byteAt(const QByteArray &data, qsizetype pos)
{
    return fits(data, pos, 1) ? static_cast<quint8>(data.at(pos)) : 0;
}

/// The byte at \a pos as a two's complement number, -128 to 127.
qint8 signedByteAt(const QByteArray &data, qsizetype pos);
quint16 be16At(const QByteArray &data, qsizetype pos);
quint32 be32At(const QByteArray &data, qsizetype pos);
quint16 le16At(const QByteArray &data, qsizetype pos);
quint32 le32At(const QByteArray &data, qsizetype pos);

void putByte(QByteArray &data, qsizetype pos, quint8 value);
void putBe16(QByteArray &data, qsizetype pos, quint16 value);
void putBe32(QByteArray &data, qsizetype pos, quint32 value);
void putLe16(QByteArray &data, qsizetype pos, quint16 value);
void putLe32(QByteArray &data, qsizetype pos, quint32 value);

/// Copies \a text up to its first zero byte, at most \a width bytes of it, to \a pos and fills the
/// rest of the \a width bytes with zeros. A text that fills the field has no terminator. Writes
/// nothing if the field is not inside \a data.
void putField(QByteArray &data, qsizetype pos, qsizetype width, const QByteArray &text);

/// The bytes of a field: at most \a width from \a pos, up to the first zero byte.
QByteArray fieldAt(const QByteArray &data, qsizetype pos, qsizetype width);

} // namespace brisel
