#include "tests/songfile/tagmaker.h"

#include <QtEndian>

#include <array>

namespace brisel
{

namespace
{

QByteArray bigEndian(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

/// One byte at a time, unlike the program.
QByteArray unsynchronised(const QByteArray &bytes)
{
    QByteArray result;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        result += bytes.at(i);
        if (bytes.at(i) != '\xFF')
            continue;
        const quint8 next = i + 1 < bytes.size() ? static_cast<quint8>(bytes.at(i + 1)) : 0;
        if (next == 0 || next >= 0xE0)
            result += '\0';
    }
    return result;
}

quint32 checksum(const QByteArray &bytes)
{
    quint32 sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320 : 0);
    }
    return ~sum;
}

const QString songTexts[] = {
    QStringLiteral("Volare"),
    QStringLiteral("Citt\u00E0 vuota"),
    QStringLiteral("\u00FFy \u00FE"),
    QStringLiteral("\u03A9mega \u2014 \u266A"),
    QStringLiteral("TIT2 and TPE1"),
    QStringLiteral("with blanks"),
    QStringLiteral("A"),
    QString(200, u'x'),
    QString(400, u'\u00E8'),
    QStringLiteral("128"),
    QStringLiteral("185999"),
    QStringLiteral("120.5"),
    QStringLiteral("\U0001F3B5 song"),
    QStringLiteral("F#-"),
};

} // namespace

int TagMaker::number(int limit)
{
    return static_cast<int>(m_random() % static_cast<unsigned>(limit));
}

QByteArray TagMaker::noise(int size)
{
    QByteArray bytes(size, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(isOneOf(3) ? (isOneOf(2) ? 0xFF : 0xE0) : number(256));
    return bytes;
}

QByteArray TagMaker::number28(quint32 value) const
{
    QByteArray bytes;
    for (const int shift : {21, 14, 7, 0})
        bytes += static_cast<char>((value >> shift) & 0x7F);
    return bytes;
}

QByteArray TagMaker::frameSize(qsizetype size) const
{
    const auto value = static_cast<quint32>(size);
    if (m_version == 2)
        return bigEndian(value).sliced(1);
    return m_version == 4 && !m_hasPlainSizes ? number28(value) : bigEndian(value);
}

QByteArray TagMaker::name(const char *current, const char *ofVersion22) const
{
    return m_version == 2 ? ofVersion22 : current;
}

QByteArray TagMaker::frame(const QByteArray &name, const QByteArray &content)
{
    QByteArray flags = m_version == 2 ? QByteArray() : QByteArray(2, '\0');
    QByteArray stored = content;
    if (m_version == 4 && m_isUnsynchronised) {
        stored = number28(static_cast<quint32>(content.size())) + unsynchronised(content);
        flags[1] = 0x03;
    }
    return name + frameSize(stored.size()) + flags + stored;
}

/// A frame that is grouped, compressed or encrypted.
QByteArray TagMaker::flaggedFrame(const QByteArray &name, QByteArray content)
{
    if (m_version == 2 || m_isUnsynchronised)
        return frame(name, content);
    const int kind = number(3);
    char flag = 0;
    if (kind == 0) {
        flag = m_version == 3 ? 0x20 : 0x40;
        content.prepend('G');
    } else if (kind == 1) {
        flag = m_version == 3 ? '\x80' : 0x09;
        const QByteArray size = m_version == 3 ? bigEndian(static_cast<quint32>(content.size()))
                                               : number28(static_cast<quint32>(content.size()));
        content = size + qCompress(content).sliced(4);
    } else {
        flag = m_version == 3 ? 0x40 : 0x04;
        content = 'E' + noise(20);
    }
    return name + frameSize(content.size()) + '\0' + flag + content;
}

QByteArray TagMaker::encoded(const QString &text, Encoding encoding) const
{
    QByteArray bytes;
    switch (encoding) {
    case Latin1:
        return text.toLatin1();
    case Utf8:
        return text.toUtf8();
    default:
        for (const QChar unit : text) {
            bytes += static_cast<char>(encoding == Utf16 ? unit.cell() : unit.row());
            bytes += static_cast<char>(encoding == Utf16 ? unit.row() : unit.cell());
        }
        return encoding == Utf16 ? "\xFF\xFE" + bytes : bytes;
    }
}

QByteArray TagMaker::textContent(const QString &text)
{
    const auto encoding = static_cast<Encoding>(number(m_version == 4 ? 4 : 2));
    const QByteArray terminator(encoding == Utf16 || encoding == Utf16BigEndian ? 2 : 1, '\0');
    QByteArray content = static_cast<char>(encoding) + encoded(text, encoding);
    if (m_version == 4 && isOneOf(4))
        content += terminator + encoded(QStringLiteral("Second value"), encoding);
    if (isOneOf(3))
        content += terminator;
    return content;
}

/// A text frame inside another frame's content.
QByteArray TagMaker::nested()
{
    const QByteArray inner = QByteArray(1, '\0') + "Inner";
    return name("TIT2", "TT2") + frameSize(inner.size()) +
           (m_version == 2 ? QByteArray() : QByteArray(2, '\0')) + inner;
}

QByteArray TagMaker::frames()
{
    QByteArrayList all;
    const auto anyText = [this] { return songTexts[number(std::size(songTexts))]; };
    const std::array<QByteArray, 7> fields{
        name("TIT2", "TT2"), name("TPE1", "TP1"), name("TCOM", "TCM"), name("TCON", "TCO"),
        name("TKEY", "TKE"), name("TLEN", "TLE"), name("TBPM", "TBP")};
    for (const QByteArray &field : fields) {
        if (isOneOf(12))
            all.append(flaggedFrame(field, textContent(anyText())));
        else if (!isOneOf(3))
            all.append(frame(field, textContent(anyText())));
    }
    all.append(frame(name("TALB", "TAL"), textContent(anyText())));
    if (isOneOf(2))
        all.append(frame(name("COMM", "COM"), '\0' + QByteArray("eng") + '\0' + "see TPE1 there"));
    if (isOneOf(2)) {
        const QByteArray kind =
            m_version == 2 ? QByteArray("JPG") : "image/jpeg" + QByteArray(1, '\0');
        all.append(frame(name("APIC", "PIC"), '\0' + kind + '\3' + QByteArray(1, '\0') +
                                                  noise(50 + number(isOneOf(4) ? 40000 : 900))));
    }
    if (isOneOf(2))
        all.append(frame(name("TXXX", "TXX"), '\0' + QByteArray("TBPM") + '\0' + nested()));
    if (m_version > 2 && isOneOf(2))
        all.append(frame("PRIV", "owner" + QByteArray(1, '\0') + nested() + noise(number(300))));
    if (m_version > 2 && isOneOf(3))
        all.append(frame("CHAP", "c1" + QByteArray(1, '\0') + bigEndian(0) + bigEndian(1000) +
                                     QByteArray(8, '\xFF') + nested()));
    if (isOneOf(3))
        all.append(frame(name("GEOB", "GEO"), '\0' + QByteArray(3, '\0') + noise(number(500))));
    std::shuffle(all.begin(), all.end(), m_random);
    return all.join();
}

QByteArray TagMaker::extendedHeader(const QByteArray &frames, qsizetype padding)
{
    const bool hasChecksum = isOneOf(2);
    if (m_version == 3)
        return bigEndian(hasChecksum ? 10 : 6) + (hasChecksum ? '\x80' : '\0') + '\0' +
               bigEndian(static_cast<quint32>(padding)) +
               (hasChecksum ? bigEndian(checksum(frames)) : QByteArray());
    if (!hasChecksum)
        return number28(6) + '\1' + '\0';
    const quint32 sum = checksum(frames + QByteArray(padding, '\0'));
    return number28(12) + '\1' + '\x20' + '\5' + static_cast<char>(sum >> 28) + number28(sum);
}

QByteArray TagMaker::song(const QByteArray &audio)
{
    m_version = 2 + number(3);
    m_isUnsynchronised = isOneOf(3);
    m_hasPlainSizes = m_version == 4 && !m_isUnsynchronised && isOneOf(4);
    // mutagen reads only a part of a tag of version 2.3 that has both.
    const bool isExtended =
        (m_version == 4 || (m_version == 3 && !m_isUnsynchronised)) && isOneOf(4);
    const bool hasFooter = m_version == 4 && isOneOf(4);
    const qsizetype padding = hasFooter || isOneOf(3) ? 0 : number(isOneOf(2) ? 40 : 2000);
    const QByteArray content = frames();
    QByteArray body = content + QByteArray(padding, '\0');
    if (isExtended)
        body.prepend(extendedHeader(content, padding));
    if (m_version < 4 && m_isUnsynchronised)
        body = unsynchronised(body);
    const int flags =
        (m_isUnsynchronised ? 0x80 : 0) | (isExtended ? 0x40 : 0) | (hasFooter ? 0x10 : 0);
    const QByteArray header = static_cast<char>(m_version) + QByteArray(1, '\0') +
                              static_cast<char>(flags) +
                              number28(static_cast<quint32>(body.size()));
    m_description = QStringLiteral("2.%1%2%3%4%5, padding %6")
                        .arg(m_version)
                        .arg(m_isUnsynchronised ? QStringLiteral(" unsynchronised") : QString(),
                             isExtended ? QStringLiteral(" extended") : QString(),
                             hasFooter ? QStringLiteral(" footer") : QString(),
                             m_hasPlainSizes ? QStringLiteral(" plain sizes") : QString())
                        .arg(padding);
    return "ID3" + header + body + (hasFooter ? "3DI" + header : QByteArray()) + audio;
}

} // namespace brisel
