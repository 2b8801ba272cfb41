#pragma once

#include "songfile/matchfinder.h"

#include <QByteArray>

#include <array>
#include <memory>

/// The codec of the MIDI data inside a compressed song container: LZSS matches over a ring of
/// 4096 bytes, literals and match lengths coded by an adaptive Huffman tree, the upper bits of a
/// match position by a fixed prefix code. See docs/formats/codec.md.
class LzHuff
{
public:
    /// Bytes: a stream that announces more is not a song.
    static constexpr quint32 maxTextSize = 500000;

    /// Replaces \a out by the data of the stream \a in. Returns false, with \a out empty, if the
    /// announced length is 0 or above `maxTextSize`. A truncated or damaged stream is not detected:
    /// it gives the announced number of wrong bytes.
    [[nodiscard]] bool expand(const QByteArray &in, QByteArray &out);

    /// Replaces \a out by the stream of the data \a in. Empty data give four zero bytes, which
    /// expand() rejects.
    void compress(const QByteArray &in, QByteArray &out);

private:
    static constexpr int ringSize = MatchFinder::windowSize; ///< positions are 12 bits
    static constexpr int lookAhead = MatchFinder::lookAhead;
    static constexpr int threshold = MatchFinder::threshold; ///< only longer matches are coded
    static constexpr int symbolCount = 256 - threshold + lookAhead; ///< literals, lengths 3..29
    static constexpr int treeSize = 2 * symbolCount - 1;
    static constexpr int root = treeSize - 1;
    static constexpr quint16 maxFrequency = 0x8000; ///< of the root; then the counts are halved
    static constexpr int firstMatchSymbol = 256 - (threshold + 1); ///< plus the match length
    static constexpr char initialFill = ' ';

    /// The most bits of a symbol's code: a deeper tree would need frequencies with a sum above
    /// maxFrequency.
    static constexpr int longestCode = 24;
    static constexpr int jumpBits = 7;

    class BitReader;
    struct Jump {
        quint16 node = root;
        quint16 depth = 0;
    };

    // The adaptive Huffman tree. Nodes are in ascending order of frequency, siblings side by side;
    // a son of treeSize or more is a leaf: the symbol plus treeSize.
    void startHuff();
    void reconst();
    void collectLeaves();
    void count(int symbol);
    int countNode(int node);
    int lastOfSameFrequency(int node) const;
    int swapWithLast(int node);

    // Reading.
    void startJumps();
    void setJumps(int node);
    int decodeChar(BitReader &bits);
    void decode(quint32 textSize);

    // Writing.
    void putcode(int length, quint32 code);
    void encodeChar(int symbol);
    void encodePosition(int position);
    void encodeEnd();
    void encode();

    int getInByte();

    QByteArray m_in;
    qsizetype m_inPosition = 0;
    QByteArray m_out;
    char *m_written = nullptr; ///< the end of the bytes written to m_out
    quint64 m_writeBuffer = 0;
    int m_writeCount = 0; ///< valid bits at the bottom of m_writeBuffer, 0 to 31 between codes

    std::array<quint16, treeSize + 4> m_frequency{}; ///< followed by four that no node reaches
    std::array<quint16, treeSize + symbolCount> m_parent{};
    std::array<quint16, treeSize> m_son{};

    /// By the next bits of the stream: a node on their path from the root, which may be less deep
    /// than the bits lead.
    std::array<Jump, 1 << jumpBits> m_jumps{};
    int m_jumpedFrom = treeSize; ///< the first node that a jump skips; treeSize in compress()

    std::unique_ptr<MatchFinder> m_matches; ///< made on first use: expand() does not need it
};
