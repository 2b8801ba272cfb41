#include "id3/id3text.h"

#include "base/songtext.h"

#include <QtEndian>

#include <algorithm>

namespace brisel
{

namespace
{

enum Encoding : char { Latin1 = 0, Utf16 = 1, Utf16BigEndian = 2, Utf8 = 3 };

constexpr char16_t byteOrderMark = 0xFEFF;
constexpr char16_t swappedMark = 0xFFFE;

/// Decodes UTF-16 up to the terminator. A text without a byte order mark is little-endian, because
/// programs that write no mark write little-endian texts.
QString utf16Text(QByteArrayView bytes, bool isBigEndian, qsizetype limit)
{
    qsizetype pos = 0;
    const auto unitAt = [&bytes, &isBigEndian](qsizetype at) {
        const auto *unit = bytes.data() + at;
        return isBigEndian ? qFromBigEndian<char16_t>(unit) : qFromLittleEndian<char16_t>(unit);
    };
    if (bytes.size() >= 2 && (unitAt(0) == byteOrderMark || unitAt(0) == swappedMark)) {
        isBigEndian = isBigEndian == (unitAt(0) == byteOrderMark);
        pos = 2;
    }
    QString text;
    for (; pos + 1 < bytes.size() && text.size() < limit && unitAt(pos) != 0; pos += 2)
        text += QChar(unitAt(pos));
    return text;
}

bool holdsAsLatin1(const QString &text)
{
    constexpr char16_t last = 0xFF;
    return std::all_of(text.cbegin(), text.cend(),
                       [](QChar character) { return character.unicode() <= last; });
}

QByteArrayView upToZero(QByteArrayView bytes)
{
    const qsizetype end = bytes.indexOf('\0');
    return end < 0 ? bytes : bytes.first(end);
}

} // namespace

QString Id3Text::read(QByteArrayView content, qsizetype limit)
{
    if (content.isEmpty())
        return {};
    const QByteArrayView bytes = content.sliced(1);
    switch (content.front()) {
    case Utf16:
    case Utf16BigEndian:
        return trimmedSongText(utf16Text(bytes, content.front() == Utf16BigEndian, limit));
    case Utf8:
        return trimmedSongText(QString::fromUtf8(upToZero(bytes)).left(limit));
    default:
        return songText(bytes.first(std::min(bytes.size(), limit)));
    }
}

bool Id3Text::isPlain(QByteArrayView content)
{
    if (content.isEmpty())
        return true;
    const QByteArrayView text = upToZero(content.sliced(1));
    const QByteArrayView rest = content.sliced(1 + text.size());
    return content.front() == Latin1 &&
           std::all_of(rest.cbegin(), rest.cend(), [](char byte) { return byte == '\0'; });
}

QByteArray Id3Text::content(const QString &text, int version)
{
    constexpr int firstWithUtf8 = 4;
    if (holdsAsLatin1(text))
        return QByteArray(1, Latin1) + songBytes(text);
    if (version >= firstWithUtf8)
        return utf8Content(text);
    QByteArray bytes = QByteArray(1, Utf16) + "\xFF\xFE";
    for (const QChar character : text) {
        bytes += static_cast<char>(character.cell());
        bytes += static_cast<char>(character.row());
    }
    return bytes;
}

QByteArray Id3Text::utf8Content(const QString &text)
{
    return QByteArray(1, Utf8) + text.toUtf8();
}

} // namespace brisel
