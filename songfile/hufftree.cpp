#include "songfile/hufftree.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace brisel
{

void HuffTree::start()
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

void HuffTree::collectLeaves()
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

void HuffTree::reconst()
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

int HuffTree::lastOfSameFrequency(int node) const
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

int HuffTree::swapWithLast(int node)
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
inline int HuffTree::countNode(int node)
{
    if (m_frequency[node] == m_frequency[node + 1])
        return swapWithLast(node);
    ++m_frequency[node];
    return node;
}

inline void HuffTree::count(int symbol)
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

void HuffTree::startJumps()
{
    m_jumps.fill({});
    m_jumpedFrom = treeSize;
}

void HuffTree::setJumps(int node)
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

HuffTree::Decoded HuffTree::decode(quint64 bits)
{
    Jump &jump = m_jumps[bits >> (64 - jumpBits)];
    int node = jump.node;
    int depth = jump.depth;
    int son = m_son[node];
    while (son < treeSize) {
        const int above = node;
        node = son + static_cast<int>((bits << depth++) >> 63);
        son = m_son[node];
        if (depth <= jumpBits) {
            jump = {static_cast<quint16>(node), static_cast<quint16>(depth)};
            m_jumpedFrom = std::min(m_jumpedFrom, above);
        }
    }
    const int symbol = son - treeSize;
    count(symbol);
    return {symbol, depth};
}

HuffTree::Code HuffTree::encode(int symbol)
{
    // Codes are seldom longer than this: a fixed number of steps avoids an unpredictable branch.
    constexpr int usualCode = 8;
    Code code;
    int node = m_parent[symbol + treeSize];
    for (int step = 0; step < usualCode; ++step) {
        code.bits |= static_cast<quint32>(node & 1) << step; // the root is even, and its own parent
        code.length += node != root ? 1 : 0;
        node = m_parent[node];
    }
    for (; node != root; node = m_parent[node])
        code.bits |= static_cast<quint32>(node & 1) << code.length++;
    count(symbol);
    return code;
}

} // namespace brisel
