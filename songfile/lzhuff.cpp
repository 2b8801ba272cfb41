#include "songfile/lzhuff.h"

#include "base/bytes.h"
#include "base/debugstream.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

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

} // namespace

/// The bits of a stream, and zeros after its end.
class LzHuff::BitReader
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
    /// The bit after the next \a offset ones.
    int bitAt(int offset) const { return static_cast<int>((m_bits << offset) >> 63); }
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
    m_out = QByteArray(sizeBytes + m_in.size() * longestCode / 8 + chunk, Qt::Uninitialized);
    putLe32(m_out, 0, static_cast<quint32>(m_in.size()));
    m_written = m_out.data() + sizeBytes;
    if (!m_in.isEmpty())
        encode();
    out = m_out.left(m_written - m_out.constData());
    m_out.clear();
    debug() << "Compress: " << static_cast<qint64>(m_in.size()) << " --> "
            << static_cast<qint64>(out.size());
}

void LzHuff::startHuff()
{
    for (int symbol = 0; symbol < symbolCount; ++symbol) {
        m_frequency[symbol] = 1;
        m_son[symbol] = static_cast<quint16>(symbol + treeSize);
        m_parent[symbol + treeSize] = static_cast<quint16>(symbol);
    }
    for (int node = symbolCount, pair = 0; node <= root; ++node, pair += 2) {
        m_frequency[node] = m_frequency[pair] + m_frequency[pair + 1];
        m_son[node] = static_cast<quint16>(pair);
        m_parent[pair] = m_parent[pair + 1] = static_cast<quint16>(node);
    }
    std::fill(m_frequency.begin() + treeSize, m_frequency.end(), 0xFFFF);
    m_parent[root] = root;
    startJumps();
}

void LzHuff::collectLeaves()
{
    int leaf = 0;
    for (int node = 0; node < treeSize; ++node) {
        if (m_son[node] < treeSize)
            continue;
        m_frequency[leaf] = (m_frequency[node] + 1) / 2;
        m_son[leaf] = m_son[node];
        ++leaf;
    }
}

void LzHuff::reconst()
{
    collectLeaves();
    for (int node = symbolCount, pair = 0; node < treeSize; ++node, pair += 2) {
        const auto sum = static_cast<quint16>(m_frequency[pair] + m_frequency[pair + 1]);
        // After the nodes of equal frequency: the order decides which nodes are swapped later.
        const auto begin = m_frequency.begin();
        const auto place =
            std::upper_bound(begin + pair + 2, begin + node, sum) - m_frequency.begin();
        std::move_backward(begin + place, begin + node, begin + node + 1);
        std::move_backward(m_son.begin() + place, m_son.begin() + node, m_son.begin() + node + 1);
        m_frequency[place] = sum;
        m_son[place] = static_cast<quint16>(pair);
    }
    for (int node = 0; node < treeSize; ++node) {
        const quint16 son = m_son[node];
        m_parent[son] = static_cast<quint16>(node);
        if (son < treeSize)
            m_parent[son + 1] = static_cast<quint16>(node);
    }
    startJumps();
}

int LzHuff::lastOfSameFrequency(int node) const
{
    // Four nodes at once; in a new tree hundreds have the same frequency.
    constexpr int step = sizeof(quint64) / sizeof(quint16);
    const quint64 same = m_frequency[node] * Q_UINT64_C(0x0001000100010001);
    for (const quint16 *next = m_frequency.data() + node + 1;; next += step) {
        quint64 difference = 0;
        std::memcpy(&difference, next, sizeof difference);
        difference ^= same;
        if (difference == 0)
            continue;
        const int zeros = std::endian::native == std::endian::little ? std::countr_zero(difference)
                                                                     : std::countl_zero(difference);
        return static_cast<int>(next - m_frequency.data()) + zeros / 16 - 1;
    }
}

int LzHuff::swapWithLast(int node)
{
    const int last = lastOfSameFrequency(node);
    ++m_frequency[last];
    const quint16 son = m_son[node];
    const quint16 other = m_son[last];
    m_son[node] = other;
    m_son[last] = son;
    m_parent[son] = static_cast<quint16>(last);
    m_parent[other] = static_cast<quint16>(node);
    // A branch's sons are side by side; for a leaf the same element is written twice.
    m_parent[son + (son < treeSize ? 1 : 0)] = static_cast<quint16>(last);
    m_parent[other + (other < treeSize ? 1 : 0)] = static_cast<quint16>(node);
    // If only leaves change places, no path from the root changes.
    const bool isBranchMoved = (son < treeSize) | (other < treeSize);
    if (isBranchMoved & (last >= m_jumpedFrom)) {
        if (node >= m_jumpedFrom)
            setJumps(node);
        setJumps(last);
    }
    return last;
}

/// Returns the new place of \a node.
inline int LzHuff::countNode(int node)
{
    if (m_frequency[node] == m_frequency[node + 1])
        return swapWithLast(node);
    ++m_frequency[node];
    return node;
}

inline void LzHuff::count(int symbol)
{
    if (m_frequency[root] == maxFrequency)
        reconst();
    const quint16 total = m_frequency[root] + 1;
    // Paths are seldom longer than this, and the root is its own parent: a fixed number of steps
    // avoids the unpredictable branch at the end of the path.
    constexpr int usualPath = 8;
    int node = m_parent[symbol + treeSize];
    for (int step = 0; step < usualPath; ++step)
        node = m_parent[countNode(node)];
    while (node != root)
        node = m_parent[countNode(node)];
    m_frequency[root] = total;
}

int LzHuff::getInByte()
{
    if (m_inPosition >= m_in.size())
        return -1;
    return static_cast<quint8>(m_in.at(m_inPosition++));
}

void LzHuff::startJumps()
{
    m_jumps.fill({});
    m_jumpedFrom = treeSize;
}

void LzHuff::setJumps(int node)
{
    constexpr int longest = jumpBits - 1; // a jump that ends at the node itself stays valid
    int prefix = 0;
    int depth = 0;
    int above = node;
    for (int step = 0; step < longest; ++step) {
        prefix |= (above & 1) << step; // the root is even
        depth += above != root ? 1 : 0;
        above = m_parent[above];
    }
    if (above != root)
        return; // too deep for any jump
    const int unknown = jumpBits - depth;
    const Jump jump{static_cast<quint16>(node), static_cast<quint16>(depth)};
    const std::array pair{jump, jump};
    Jump *next = m_jumps.data() + (prefix << unknown);
    for (Jump *const end = next + (1 << unknown); next != end; next += pair.size()) // usually one
        std::memcpy(next, pair.data(), sizeof pair);
}

inline int LzHuff::decodeChar(BitReader &bits)
{
    Jump &jump = m_jumps[bits.peek(jumpBits)];
    int node = jump.node;
    int depth = jump.depth;
    int son = m_son[node];
    while (son < treeSize) {
        const int above = node;
        node = son + bits.bitAt(depth++);
        son = m_son[node];
        if (depth <= jumpBits) {
            jump = {static_cast<quint16>(node), static_cast<quint16>(depth)};
            m_jumpedFrom = std::min(m_jumpedFrom, above);
        }
    }
    bits.skip(depth);
    const int symbol = son - treeSize;
    count(symbol);
    return symbol;
}

void LzHuff::decode(quint32 textSize)
{
    startHuff();
    BitReader bits(m_in.constData() + m_inPosition, m_in.constData() + m_in.size());
    // The text itself is the ring: before it are the initial blanks of the ring, after it is room
    // for copies in whole chunks.
    m_out = QByteArray(ringSize + static_cast<qsizetype>(textSize) + 2 * chunk, Qt::Uninitialized);
    char *next = std::fill_n(m_out.data(), ringSize, initialFill);
    const char *const end = next + textSize;
    while (next < end) {
        if (bits.ready() < longestCode + longestPosition)
            bits.fill();
        const int symbol = decodeChar(bits);
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
    // Codes are seldom longer than this: a fixed number of steps avoids an unpredictable branch.
    constexpr int usualCode = 8;
    quint32 code = 0;
    int length = 0;
    int node = m_parent[symbol + treeSize];
    for (int step = 0; step < usualCode; ++step) {
        code |= static_cast<quint32>(node & 1) << step; // the root is even, and its own parent
        length += node != root ? 1 : 0;
        node = m_parent[node];
    }
    for (; node != root; node = m_parent[node])
        code |= static_cast<quint32>(node & 1) << length++;
    putcode(length, code);
    count(symbol);
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
    startHuff();
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
