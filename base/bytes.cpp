#include "base/bytes.h"

#include <QtEndian>

#include <algorithm>

namespace brisel
{

namespace
{

template <typename Number, Number (*decode)(const void *)>
Number numberAt(const QByteArray &data, qsizetype pos)
{
    if (!fits(data, pos, sizeof(Number)))
        return 0;
    return decode(data.constData() + pos);
}

template <typename Number, void (*encode)(Number, void *)>
void putNumber(QByteArray &data, qsizetype pos, Number value)
{
    if (fits(data, pos, sizeof(Number)))
        encode(value, data.data() + pos);
}

} // namespace

qint8 signedByteAt(const QByteArray &data, qsizetype pos)
{
    return static_cast<qint8>(byteAt(data, pos));
}

quint16 be16At(const QByteArray &data, qsizetype pos)
{
    return numberAt<quint16, qFromBigEndian<quint16>>(data, pos);
}

quint32 be32At(const QByteArray &data, qsizetype pos)
{
    return numberAt<quint32, qFromBigEndian<quint32>>(data, pos);
}

quint16 le16At(const QByteArray &data, qsizetype pos)
{
    return numberAt<quint16, qFromLittleEndian<quint16>>(data, pos);
}

quint32 le32At(const QByteArray &data, qsizetype pos)
{
    return numberAt<quint32, qFromLittleEndian<quint32>>(data, pos);
}

void putByte(QByteArray &data, qsizetype pos, quint8 value)
{
    if (fits(data, pos, 1))
        data[pos] = static_cast<char>(value);
}

void putBe16(QByteArray &data, qsizetype pos, quint16 value)
{
    putNumber<quint16, qToBigEndian<quint16>>(data, pos, value);
}

void putBe32(QByteArray &data, qsizetype pos, quint32 value)
{
    putNumber<quint32, qToBigEndian<quint32>>(data, pos, value);
}

void putLe16(QByteArray &data, qsizetype pos, quint16 value)
{
    putNumber<quint16, qToLittleEndian<quint16>>(data, pos, value);
}

void putLe32(QByteArray &data, qsizetype pos, quint32 value)
{
    putNumber<quint32, qToLittleEndian<quint32>>(data, pos, value);
}

void putField(QByteArray &data, qsizetype pos, qsizetype width, const QByteArray &text)
{
    if (!fits(data, pos, width))
        return;
    const char *end = std::find(text.cbegin(), text.cbegin() + std::min(width, text.size()), '\0');
    char *field = data.data() + pos;
    std::fill(std::copy(text.cbegin(), end, field), field + width, '\0');
}

QByteArray fieldAt(const QByteArray &data, qsizetype pos, qsizetype width)
{
    if (pos < 0 || width < 0 || pos >= data.size())
        return {};
    const auto window = QByteArrayView(data).sliced(pos, std::min(width, data.size() - pos));
    const qsizetype end = window.indexOf('\0');
    return (end < 0 ? window : window.first(end)).toByteArray();
}

} // namespace brisel
