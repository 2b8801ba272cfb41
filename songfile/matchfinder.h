#pragma once

#include <QByteArray>

#include <array>
#include <vector>

/// Finds the matches of a text as the search trees of the format's encoder find them: one tree for
/// each first byte holds the strings of the last 4067 places, never balanced, and the match is the
/// nearest one among the longest that lie on a new string's way from the root. See
/// docs/formats/codec.md, "Choosing matches".
///
/// The trees are the real ones, but nobody walks down to a string's place, for some texts make them
/// as deep as the window. A new string hangs below its neighbour in the sorted window, so the
/// strings are ranked, a few thousand at a time, and the neighbours found in a set of ranks. Only
/// where a match is wanted the way is followed, upwards, as long as the strings on it match.
class MatchFinder
{
public:
    static constexpr int windowSize = 4096; ///< a power of 2; distances are 12 bits
    static constexpr int lookAhead = 29;    ///< bytes; also the longest match
    static constexpr int threshold = 2;     ///< only longer matches are of use

    /// Starts at the first byte of \a text, with the blanks before it in the trees, and finds the
    /// match there. \a text must not be empty.
    void start(const QByteArray &text);

    /// Goes on by one byte. The match there is only found when it \a isWanted. Must not be called
    /// more often than the text has bytes, less one.
    void advance(bool isWanted);

    /// The wanted match: at most `lookAhead` bytes, maybe more than the text still has. A length
    /// that is not above `threshold` may stand for a shorter one.
    int length() const { return m_length; }
    /// How far back the match lies, minus one. Only valid when the length is above `threshold`.
    int distance() const { return m_distance; }

    /// Nodes visited since start() in search of matches: what a text can make long or short. All
    /// else takes the same few steps for every byte.
    qint64 visitedNodes() const { return m_visitedNodes; }

private:
    static constexpr int noNode = windowSize;
    static constexpr int rankedStrings = 8 * windowSize; ///< at a time; fits 16 bits
    static constexpr unsigned wordBits = 64;
    static constexpr unsigned rankWords = rankedStrings / wordBits + 1;

    void layOut(const QByteArray &text);
    void insertNode(bool isWanted);
    void deleteNode(int place);
    void attach(int lower, int higher);
    void replaceNode(int node, int replacement);
    void replaceChild(int parent, int node, int replacement);
    void findMatch(int lower, int higher);
    void findNearest(bool isLowerOpen, bool isHigherOpen);
    /// Of the newest string and another one.
    int distanceTo(int place) const;
    int commonLength(int place) const;
    static int nodeAt(int place) { return place & (windowSize - 1); }
    bool isInTree(int place) const { return m_dad[nodeAt(place)] != noNode; }

    // Ranks of the strings from m_rankedFrom to m_rankedEnd, and which of them are in the trees.
    void rankStrings();
    void lengthenRankedPrefix(int shift);
    unsigned rankAt(int place) const { return m_rank[place - m_rankedFrom]; }
    void addRank(int place);
    void removeRank(int place);
    int lowerNeighbour(unsigned rank) const;
    int higherNeighbour(unsigned rank) const;

    /// The text behind the blanks that precede it and before what is read behind its end. Places
    /// in it count from the first of those blanks.
    QByteArray m_text;
    int m_end = 0;   ///< the first place behind the true text
    int m_place = 0; ///< of the newest string
    int m_jumpAt = 0;
    int m_jump = 0; ///< places left out at m_jumpAt

    int m_length = 0;
    int m_distance = 0;
    qint64 m_visitedNodes = 0;

    // Nodes are places modulo the window's size. Roots of the trees follow: right sons of no node.
    std::array<quint16, windowSize + 1> m_left{};
    std::array<quint16, windowSize + 257> m_right{};
    std::array<quint16, windowSize + 1> m_dad{};

    int m_rankedFrom = 0;
    int m_rankedEnd = 0;
    std::vector<quint16> m_rank;  ///< by place, from m_rankedFrom on; equal strings share one
    std::vector<quint16> m_order; ///< the places in the order of their ranks
    std::vector<quint16> m_nextRank;
    std::vector<quint16> m_nextOrder;
    std::vector<quint16> m_bucketEnd;

    std::vector<quint16> m_stringOfRank;      ///< place, of those in the trees
    std::array<quint64, rankWords> m_ranks{}; ///< one bit a rank: is it in the trees?
    std::array<quint64, rankWords / wordBits + 1> m_rankWords{}; ///< one a word that is not zero
};
