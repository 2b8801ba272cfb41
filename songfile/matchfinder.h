#pragma once

#include <QByteArray>

#include <array>
#include <vector>

namespace brisel
{

/// Finds the same matches of a text as the search trees of the format's encoder: an unbalanced tree
/// for each first byte has the strings of the last 4067 positions, and the match is the nearest
/// among the longest on a new string's path from the root. See docs/formats/codec.md, "Choosing
/// matches".
///
/// The trees are the same, but a string's place is not found by a walk from the root, because some
/// texts make the trees as deep as the window. The parent of a new string is its neighbour in the
/// sorted window, so the strings are ranked, a few thousand at a time, and the neighbours are found
/// in a set of ranks. Only if a match is needed, the path is followed, upwards, as long as the
/// strings on it match.
class MatchFinder
{
public:
    static constexpr int windowSize = 4096; ///< a power of 2; distances are 12 bits
    static constexpr int lookAhead = 29;    ///< bytes; also the longest match
    static constexpr int threshold = 2;     ///< only longer matches are used

    /// Starts at the first byte of \a text, with the strings of the blanks before it in the trees,
    /// and finds the match there. \a text must not be empty.
    void start(const QByteArray &text);

    /// Moves to the next byte. The match there is found only if it \a isWanted. May be called at
    /// most once less than the text has bytes.
    void advance(bool isWanted);

    /// The length of the match: at most `lookAhead` bytes, perhaps more than the rest of the text.
    /// If it is not above `threshold`, the real one may be shorter.
    int length() const { return m_length; }
    /// The distance back to the match, minus one. Valid only if the length is above `threshold`.
    int distance() const { return m_distance; }

    /// The nodes visited since start() in search of matches, which depends on the text. Everything
    /// else takes a constant number of steps for each byte.
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
    /// The distance between the newest string and the one at \a place.
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

    /// The initial blanks, the text, and the bytes that are read after its end. Places count from
    /// the first blank.
    QByteArray m_text;
    int m_end = 0;   ///< the first place after the text itself
    int m_place = 0; ///< of the newest string
    int m_jumpAt = 0;
    int m_jump = 0; ///< places skipped at m_jumpAt

    int m_length = 0;
    int m_distance = 0;
    qint64 m_visitedNodes = 0;

    // Nodes are places modulo the window's size. The roots of the trees follow, as right sons.
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

    std::vector<quint16> m_stringOfRank;      ///< place, for strings in the trees
    std::array<quint64, rankWords> m_ranks{}; ///< one bit for each rank: is it in the trees?
    std::array<quint64, rankWords / wordBits + 1> m_rankWords{}; ///< a bit for each word not 0
};

} // namespace brisel
