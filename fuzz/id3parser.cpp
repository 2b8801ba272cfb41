#include "fuzz/id3parser.h"

namespace brisel
{

namespace
{

constexpr qsizetype tagHeader = 10; ///< bytes

quint32 number(const QByteArray &bytes, qsizetype at, int count, int bits)
{
    quint32 value = 0;
    for (qsizetype i = at; i < at + count; ++i)
        value = (value << bits) | static_cast<quint8>(bytes.at(i));
    return value;
}

bool isSevenBit(const QByteArray &bytes, qsizetype at)
{
    for (qsizetype i = at; i < at + 4; ++i) {
        if ((static_cast<quint8>(bytes.at(i)) & 0x80) != 0)
            return false;
    }
    return true;
}

bool isName(const QByteArray &name)
{
    for (const char letter : name) {
        if (!(letter >= 'A' && letter <= 'Z') && !(letter >= '0' && letter <= '9'))
            return false;
    }
    return true;
}

/// Undoes the unsynchronisation byte by byte. Returns nothing if a byte that the scheme would have
/// inserted is missing.
std::optional<QByteArray> withoutScheme(const QByteArray &stored)
{
    QByteArray meant;
    meant.reserve(stored.size());
    for (qsizetype i = 0; i < stored.size(); ++i) {
        meant += stored.at(i);
        if (stored.at(i) != '\xFF')
            continue;
        if (i + 1 == stored.size() || static_cast<quint8>(stored.at(i + 1)) >= 0xE0)
            return std::nullopt;
        if (stored.at(i + 1) == '\0')
            ++i;
    }
    return meant;
}

QByteArray upToZero(const QByteArray &bytes)
{
    const qsizetype end = bytes.indexOf('\0');
    return end < 0 ? bytes : bytes.left(end);
}

/// Reads UTF-16 up to its terminator.
QString units(const QByteArray &bytes, qsizetype at, bool isLittle)
{
    QString text;
    for (qsizetype i = at; i + 1 < bytes.size(); i += 2) {
        const QChar unit(static_cast<quint8>(bytes.at(isLittle ? i : i + 1)),
                         static_cast<quint8>(bytes.at(isLittle ? i + 1 : i)));
        if (unit.isNull())
            break;
        text += unit;
    }
    return text;
}

bool readFrames(const QByteArray &tag, Id3Parser::Tag &result, qsizetype maxFrames)
{
    const qsizetype letters = result.version == 2 ? 3 : 4;
    const qsizetype header = result.version == 2 ? 6 : 10;
    qsizetype at = tagHeader;
    while (at < tag.size() && tag.at(at) != '\0') {
        if (at + header > tag.size() || result.frames.size() == maxFrames)
            return false;
        if (result.version == 4 && !isSevenBit(tag, at + letters))
            return false;
        const qint64 size =
            number(tag, at + letters, static_cast<int>(letters), result.version == 4 ? 7 : 8);
        const QByteArray name = tag.mid(at, letters);
        if (!isName(name) || size == 0 || size > tag.size() - at - header)
            return false;
        result.frames.append({name, tag.mid(at + 2 * letters, header - 2 * letters),
                              tag.mid(at + header, size), at});
        at += header + size;
    }
    result.framesEnd = at;
    result.padding = tag.size() - at;
    return tag.mid(at).count('\0') == result.padding;
}

} // namespace

QByteArray Id3Parser::Tag::name(const QByteArray &id) const
{
    constexpr const char *names[][2] = {{"TIT2", "TT2"}, {"TPE1", "TP1"}, {"TCOM", "TCM"},
                                        {"TCON", "TCO"}, {"TKEY", "TKE"}, {"TLEN", "TLE"},
                                        {"TBPM", "TBP"}, {"MEDT", "MED"}};
    for (const auto &[current, old] : names) {
        if (id == current)
            return version == 2 ? old : current;
    }
    return {};
}

qsizetype Id3Parser::Tag::indexOf(const QByteArray &name) const
{
    for (qsizetype i = 0; i < frames.size(); ++i) {
        if (frames.at(i).name == name)
            return i;
    }
    return -1;
}

std::optional<QString> Id3Parser::Tag::text(const Frame &frame) const
{
    QByteArray bytes = frame.content;
    const char format = frame.flags.isEmpty() ? '\0' : frame.flags.back();
    if (version == 4 && (isUnsynchronised || format == 2)) {
        const std::optional<QByteArray> meant = withoutScheme(bytes);
        if (!meant || (format != 0 && format != 2))
            return std::nullopt;
        bytes = *meant;
    } else if (format != 0) {
        return std::nullopt;
    }
    const QByteArray text = bytes.mid(1);
    switch (bytes.at(0)) {
    case 0:
        return QString::fromLatin1(upToZero(text));
    case 1:
        if (text.startsWith("\xFF\xFE") || text.startsWith("\xFE\xFF"))
            return units(text, 2, text.startsWith("\xFF"));
        return std::nullopt;
    case 2:
        if (text.startsWith("\xFF\xFE") || text.startsWith("\xFE\xFF"))
            return std::nullopt;
        return units(text, 0, false);
    case 3:
        return QString::fromUtf8(upToZero(text));
    default:
        return std::nullopt;
    }
}

std::optional<Id3Parser::Tag> Id3Parser::parse(const QByteArray &file, qsizetype maxFrames)
{
    if (file.size() < tagHeader || !file.startsWith("ID3") || !isSevenBit(file, 6))
        return std::nullopt;
    Tag tag;
    tag.version = static_cast<quint8>(file.at(3));
    tag.isUnsynchronised = file.at(5) == '\x80';
    tag.size = number(file, 6, 4, 7) + tagHeader;
    if (tag.version < 2 || tag.version > 4 || (file.at(5) != 0 && !tag.isUnsynchronised) ||
        tag.size > file.size())
        return std::nullopt;
    QByteArray bytes = file.left(tag.size);
    if (tag.isUnsynchronised && tag.version < 4) {
        const std::optional<QByteArray> meant = withoutScheme(bytes.mid(tagHeader));
        if (!meant)
            return std::nullopt;
        bytes = bytes.left(tagHeader) + *meant;
    }
    return readFrames(bytes, tag, maxFrames) ? std::optional(tag) : std::nullopt;
}

} // namespace brisel
