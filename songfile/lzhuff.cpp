#include "songfile/lzhuff.h"

#include "base/bytes.h"
#include "base/debugstream.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <utility>

namespace
{

constexpr int lowPositionBits = 6; ///< sent plainly, below the coded upper six
constexpr int longestPositionCode = 8;
constexpr int chunk = 32; ///< bytes copied at once: no match is longer

/// The fixed prefix code of a position's upper six bits, near positions first: lengths of 3 to 8
/// bits, the codes of each length following on from those of the shorter one.
struct PositionTables {
    std::array<quint8, 64> codeLength{};
    std::array<quint8, 64> code{};
    std::array<quint8, 256> decoded{}; ///< by the next eight bits of the stream
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
                tables.decoded.at(next) = static_cast<quint8>(upper);
        }
    }
    return tables;
}

constexpr PositionTables positionTables = makePositionTables();
static_assert(positionTables.codeLength[63] == 8 && positionTables.code[63] == 0xFF);

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
    m_out = QByteArray(4, '\0');
    putLe32(m_out, 0, static_cast<quint32>(m_in.size()));
    if (!m_in.isEmpty())
        encode();
    out = std::exchange(m_out, {});
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
    m_frequency[treeSize] = 0xFFFF; // stops every search to the right
    m_parent[root] = 0;
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
        // Behind the nodes of equal frequency: the order decides which nodes are swapped later.
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
}

void LzHuff::swapNodes(int first, int second)
{
    std::swap(m_frequency[first], m_frequency[second]);
    std::swap(m_son[first], m_son[second]);
    for (const int node : {first, second}) {
        const quint16 son = m_son[node];
        m_parent[son] = static_cast<quint16>(node);
        if (son < treeSize)
            m_parent[son + 1] = static_cast<quint16>(node);
    }
}

int LzHuff::countNode(int node)
{
    const quint16 frequency = ++m_frequency[node];
    if (frequency <= m_frequency[node + 1])
        return node;
    int last = node + 1;
    while (frequency > m_frequency[last + 1])
        ++last;
    swapNodes(node, last);
    return last;
}

void LzHuff::update(int symbol)
{
    if (m_frequency[root] == maxFrequency)
        reconst();
    countWayFrom(m_parent[symbol + treeSize]);
}

void LzHuff::countWayFrom(int node)
{
    do {
        node = m_parent[countNode(node)];
    } while (node != 0); // the root's parent; node 0 itself is always a leaf
}

void LzHuff::updateWay(int symbol, const Way &way, int depth)
{
    if (m_frequency[root] == maxFrequency) {
        update(symbol);
        return;
    }
    // The way down is known, as long as no node on it changes places.
    while (depth > 0) {
        const int node = way[--depth];
        const int now = countNode(node);
        if (now != node) {
            countWayFrom(m_parent[now]);
            return;
        }
    }
    ++m_frequency[root];
}

int LzHuff::getInByte()
{
    if (m_inPosition >= m_in.size())
        return -1;
    return static_cast<quint8>(m_in.at(m_inPosition++));
}

void LzHuff::fillBits()
{
    constexpr int wordBytes = 8;
    if (m_in.size() - m_inPosition >= wordBytes) {
        // Bits of a byte that does not fit whole are there already when it is read again.
        m_readBuffer |= qFromBigEndian<quint64>(m_in.constData() + m_inPosition) >> m_readCount;
        const int bytes = (63 - m_readCount) / 8;
        m_inPosition += bytes;
        m_readCount += 8 * bytes;
        return;
    }
    for (; m_readCount <= 56; m_readCount += 8) {
        const int byte = getInByte();
        m_readBuffer |= static_cast<quint64>(std::max(byte, 0)) << (56 - m_readCount);
    }
}

int LzHuff::getBits(int count)
{
    if (m_readCount < count)
        fillBits();
    const int bits = static_cast<int>(m_readBuffer >> (64 - count));
    m_readBuffer <<= count;
    m_readCount -= count;
    return bits;
}

int LzHuff::getByte()
{
    return getBits(8);
}

int LzHuff::decodeChar()
{
    if (m_readCount < longestCode)
        fillBits();
    Way way; // all that is read of it is written first
    int depth = 0;
    quint64 bits = m_readBuffer;
    int node = m_son[root];
    while (node < treeSize) {
        node += static_cast<int>(bits >> 63);
        bits <<= 1;
        way[depth++] = static_cast<quint16>(node);
        node = m_son[node];
    }
    m_readBuffer = bits;
    m_readCount -= depth;
    const int symbol = node - treeSize;
    updateWay(symbol, way, depth);
    return symbol;
}

int LzHuff::decodePosition()
{
    int bits = getByte();
    const int upper = positionTables.decoded[bits];
    const int unread = positionTables.codeLength[upper] + lowPositionBits - 8;
    bits = (bits << unread) | getBits(unread);
    constexpr int lowMask = (1 << lowPositionBits) - 1;
    return (upper << lowPositionBits) | (bits & lowMask);
}

void LzHuff::decode(quint32 textSize)
{
    m_readBuffer = 0;
    m_readCount = 0;
    startHuff();
    // The text itself is the ring: before it stand the blanks that the ring starts with, behind it
    // there is room for copies in whole chunks.
    m_out = QByteArray(ringSize + static_cast<qsizetype>(textSize) + chunk, Qt::Uninitialized);
    char *next = std::fill_n(m_out.data(), ringSize, initialFill);
    const char *const end = next + textSize;
    while (next < end) {
        const int symbol = decodeChar();
        if (symbol < 256) {
            *next++ = static_cast<char>(symbol);
            continue;
        }
        const int length = symbol - firstMatchSymbol;
        const int distance = decodePosition() + 1;
        const auto count = std::min(static_cast<std::ptrdiff_t>(length), end - next);
        if (distance >= chunk)
            std::memcpy(next, next - distance, chunk);
        else
            for (std::ptrdiff_t i = 0; i < count; ++i) // each byte may be one just written
                next[i] = next[i - distance];
        next += count;
    }
    m_out = m_out.mid(ringSize, static_cast<qsizetype>(textSize));
}

void LzHuff::putOutByte(quint8 byte)
{
    m_out.append(static_cast<char>(byte));
}

void LzHuff::putcode(int length, quint32 code)
{
    // At most 7 bits wait in the buffer.
    m_writeBuffer = (m_writeBuffer << length) | code;
    m_writeCount += length;
    while (m_writeCount >= 8) {
        m_writeCount -= 8;
        putOutByte(static_cast<quint8>(m_writeBuffer >> m_writeCount));
    }
}

void LzHuff::encodeEnd()
{
    if (m_writeCount > 0)
        putOutByte(static_cast<quint8>(m_writeBuffer << (8 - m_writeCount)));
    m_writeCount = 0;
}

void LzHuff::encodeChar(int symbol)
{
    quint32 code = 0;
    int length = 0;
    for (int node = m_parent[symbol + treeSize]; node != root; node = m_parent[node])
        code |= static_cast<quint32>(node & 1) << length++;
    putcode(length, code);
    update(symbol);
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
