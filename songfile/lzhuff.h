#pragma once

#include "songfile/hufftree.h"
#include "songfile/matchfinder.h"

#include <QByteArray>

#include <memory>

namespace brisel
{

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
    static constexpr int threshold = MatchFinder::threshold; ///< only longer matches are coded
    static constexpr int firstMatchSymbol = 256 - (threshold + 1); ///< plus the match length
    static constexpr char initialFill = ' ';

    void decode(quint32 textSize);

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

    HuffTree m_tree;
    std::unique_ptr<MatchFinder> m_matches; ///< made on first use: expand() does not need it
};

} // namespace brisel
