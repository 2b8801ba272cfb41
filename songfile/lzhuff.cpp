#include "songfile/lzhuff.h"

#include "base/bytes.h"
#include "base/debugstream.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <utility>

namespace brisel
{

namespace
{

constexpr int lowPositionBits = 6; ///< written without coding, after the coded upper six
constexpr int longestPositionCode = 8;
constexpr int longestPosition = longestPositionCode + lowPositionBits;
constexpr int chunk = 16; ///< bytes copied at once: no match is longer than two

struct PositionCode {
    quint8 upper = 0;
    quint8 length = 0;
};

/// The fixed prefix code of a position's upper six bits, near positions first: lengths of 3 to 8
/// bits, the codes of each length continuing those of the shorter one.
struct PositionTables {
    std::array<quint8, 64> codeLength{};
    std::array<quint8, 64> code{};
    std::array<PositionCode, 256> decoded{}; ///< by the next eight bits of the stream
};

constexpr PositionTables makePositionTables()
{
    constexpr int firstLength = 3;
    constexpr std::array<int, 6> codesOfLength{1, 3, 8, 12, 24, 16};
    PositionTables tables;
    unsigned upper = 0;
    unsigned next = 0;
    for (unsigned group = 0; group < codesOfLength.size(); ++group) {
        const unsigned length = firstLength + group;
        const unsigned span = 1U << (longestPositionCode - length);
        for (int i = 0; i < codesOfLength.at(group); ++i, ++upper) {
            tables.codeLength.at(upper) = static_cast<quint8>(length);
            tables.code.at(upper) = static_cast<quint8>(next >> (longestPositionCode - length));
            for (const unsigned end = next + span; next < end; ++next)
                tables.decoded.at(next) = {static_cast<quint8>(upper), static_cast<quint8>(length)};
        }
    }
    return tables;
}

constexpr PositionTables positionTables = makePositionTables();
static_assert(positionTables.codeLength[63] == 8 && positionTables.code[63] == 0xFF);

/// The bits of a stream, and zeros after its end.
class BitReader
{
public:
    BitReader(const char *begin, const char *end) : m_next(begin), m_end(end) {}

    /// Fills the buffer to at least 56 bits.
    void fill()
    {
        constexpr int wordBytes = 8;
        if (m_end - m_next >= wordBytes) {
            // The bits of a byte that does not fit completely are set again when it is read again.
            m_bits |= qFromBigEndian<quint64>(m_next) >> m_count;
            const int bytes = (63 - m_count) / 8;
            m_next += bytes;
            m_count += 8 * bytes;
            return;
        }
        for (; m_count <= 56; m_count += 8) {
            const quint64 byte = m_next < m_end ? static_cast<quint8>(*m_next++) : 0;
            m_bits |= byte << (56 - m_count);
        }
    }

    int ready() const { return m_count; }
    /// The next bits, 1 or more.
    int peek(int count) const { return static_cast<int>(m_bits >> (64 - count)); }
    /// All that are ready; the next one is the highest.
    quint64 next() const { return m_bits; }
    void skip(int count)
    {
        m_bits <<= count;
        m_count -= count;
    }

private:
    const char *m_next;
    const char *m_end;
    quint64 m_bits = 0; ///< the next bit is the highest
    int m_count = 0;
};

} // namespace

bool LzHuff::expand(const QByteArray &in, QByteArray &out)
{
    m_in = in;
    m_inPosition = 0;
    out.clear();

    quint32 textSize = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const int byte = getInByte();
        textSize |= (byte < 0 ? 0xFFU : static_cast<quint32>(byte)) << shift;
    }
    if (textSize == 0 || textSize > maxTextSize) {
        debug() << "=====================================================================";
        debug() << "WARNING: skipping file, compressed stream corrupted/wrong size !!!";
        debug() << "Text size: " << textSize;
        debug() << "=====================================================================";
        debug() << "Expand: ERROR";
        return false;
    }
    m_out = QByteArray();
    decode(textSize);
    out = std::exchange(m_out, {});
    debug() << "Expand: " << static_cast<qint64>(m_in.size()) << " --> "
            << static_cast<qint64>(out.size());
    return true;
}

void LzHuff::compress(const QByteArray &in, QByteArray &out)
{
    m_in = in;
    m_inPosition = 0;
    // A byte takes at most one code, and a match with its position less than the codes of its
    // bytes.
    constexpr int sizeBytes = 4;
    m_out =
        QByteArray(sizeBytes + m_in.size() * HuffTree::longestCode / 8 + chunk, Qt::Uninitialized);
    putLe32(m_out, 0, static_cast<quint32>(m_in.size()));
    m_written = m_out.data() + sizeBytes;
    if (!m_in.isEmpty())
        encode();
    out = m_out.left(m_written - m_out.constData());
    m_out.clear();
    debug() << "Compress: " << static_cast<qint64>(m_in.size()) << " --> "
            << static_cast<qint64>(out.size());
}

int LzHuff::getInByte()
{
    if (m_inPosition >= m_in.size())
        return -1;
    return static_cast<quint8>(m_in.at(m_inPosition++));
}

void LzHuff::decode(quint32 textSize)
{
    m_tree.start();
    BitReader bits(m_in.constData() + m_inPosition, m_in.constData() + m_in.size());
    // The text itself is the ring: before it are the initial blanks of the ring, after it is room
    // for copies in whole chunks.
    m_out = QByteArray(ringSize + static_cast<qsizetype>(textSize) + 2 * chunk, Qt::Uninitialized);
    char *next = std::fill_n(m_out.data(), ringSize, initialFill);
    const char *const end = next + textSize;
    while (next < end) {
        if (bits.ready() < HuffTree::longestCode + longestPosition)
            bits.fill();
        const auto [symbol, length] = m_tree.decode(bits.next());
        bits.skip(length);
        if (symbol < 256) {
            *next++ = static_cast<char>(symbol);
            continue;
        }
        const PositionCode position = positionTables.decoded[bits.peek(longestPositionCode)];
        const int positionBits = position.length + lowPositionBits;
        const int low = bits.peek(positionBits) & ((1 << lowPositionBits) - 1);
        bits.skip(positionBits);
        const int distance = ((position.upper << lowPositionBits) | low) + 1;
        const auto count =
            std::min(static_cast<std::ptrdiff_t>(symbol - firstMatchSymbol), end - next);
        if (distance >= chunk) {
            std::memcpy(next, next - distance, chunk);
            std::memcpy(next + chunk, next + chunk - distance, chunk);
        } else {
            for (std::ptrdiff_t i = 0; i < count; ++i) // a byte may have just been written
                next[i] = next[i - distance];
        }
        next += count;
    }
    m_out = m_out.mid(ringSize, static_cast<qsizetype>(textSize));
}

void LzHuff::putcode(int length, quint32 code)
{
    // At most 31 bits are in the buffer.
    m_writeBuffer = (m_writeBuffer << length) | code;
    m_writeCount += length;
    if (m_writeCount >= 32) {
        m_writeCount -= 32;
        qToBigEndian(static_cast<quint32>(m_writeBuffer >> m_writeCount), m_written);
        m_written += sizeof(quint32);
    }
}

void LzHuff::encodeEnd()
{
    for (; m_writeCount > 0; m_writeCount -= 8) {
        const quint64 bits = m_writeCount < 8 ? m_writeBuffer << (8 - m_writeCount)
                                              : m_writeBuffer >> (m_writeCount - 8);
        *m_written++ = static_cast<char>(bits);
    }
    m_writeCount = 0;
}

void LzHuff::encodeChar(int symbol)
{
    const auto [bits, length] = m_tree.encode(symbol);
    putcode(length, bits);
}

void LzHuff::encodePosition(int position)
{
    const int upper = position >> lowPositionBits;
    putcode(positionTables.codeLength[upper], positionTables.code[upper]);
    putcode(lowPositionBits, static_cast<quint32>(position & ((1 << lowPositionBits) - 1)));
}

void LzHuff::encode()
{
    m_writeBuffer = 0;
    m_writeCount = 0;
    m_tree.start();
    if (m_matches == nullptr)
        m_matches = std::make_unique<MatchFinder>();
    m_matches->start(m_in);
    const auto size = static_cast<int>(m_in.size());
    for (int done = 0; done < size;) {
        int length = std::min(m_matches->length(), size - done);
        if (length > threshold) {
            encodeChar(firstMatchSymbol + length);
            encodePosition(m_matches->distance());
        } else {
            length = 1;
            encodeChar(static_cast<quint8>(m_in.at(done)));
        }
        done += length;
        for (int left = done < size ? length : 0; left > 0; --left)
            m_matches->advance(left == 1);
    }
    encodeEnd();
}

} // namespace brisel
