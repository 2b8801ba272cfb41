#pragma once

#include "songfile/matchfinder.h"

#include <QtGlobal>

#include <array>

namespace brisel
{

/// The adaptive Huffman tree of a compressed container's literals and match lengths: each coded
/// symbol counts, so that frequent ones get shorter codes. See docs/formats/codec.md.
///
/// Nodes are in ascending order of frequency, siblings side by side; a son of treeSize or more is a
/// leaf: the symbol plus treeSize.
class HuffTree
{
public:
    /// Literals, and matches of 3 to 29 bytes.
    static constexpr int symbolCount = 256 - MatchFinder::threshold + MatchFinder::lookAhead;
    /// The most bits of a symbol's code: a deeper tree would need frequencies with a sum above
    /// maxFrequency.
    static constexpr int longestCode = 24;

    struct Code {
        quint32 bits = 0; ///< the last one is the lowest
        int length = 0;   ///< bits, 1 to longestCode
    };
    struct Decoded {
        int symbol;
        int length; ///< of its code
    };

    /// Gives every symbol the frequency 1. Call it before the first symbol of each stream.
    void start();
    /// Counts \a symbol and returns the code that it had before.
    Code encode(int symbol);
    /// Finds the symbol whose code begins \a bits, highest bit first, and counts it. At least
    /// longestCode of the bits must be valid.
    Decoded decode(quint64 bits);

private:
    static constexpr int treeSize = 2 * symbolCount - 1;
    static constexpr int root = treeSize - 1;
    static constexpr quint16 maxFrequency = 0x8000; ///< of the root; then the counts are halved
    static constexpr int jumpBits = 7;

    struct Jump {
        quint16 node = root;
        quint16 depth = 0;
    };

    void reconst();
    void collectLeaves();
    void count(int symbol);
    int countNode(int node);
    int lastOfSameFrequency(int node) const;
    int swapWithLast(int node);

    void startJumps();
    void setJumps(int node);

    std::array<quint16, treeSize + 4> m_frequency{}; ///< followed by four that no node reaches
    std::array<quint16, treeSize + symbolCount> m_parent{};
    std::array<quint16, treeSize> m_son{};

    /// By the next bits of the stream: a node on their path from the root, which may be less deep
    /// than the bits lead.
    std::array<Jump, 1 << jumpBits> m_jumps{};
    int m_jumpedFrom = treeSize; ///< the first node that a jump skips; treeSize in encode()
};

} // namespace brisel
