#include "songfile/matchfinder.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <initializer_list>
#include <numeric>
#include <utility>

namespace brisel
{

namespace
{

constexpr int wordBytes = 8;

/// The first byte is the highest, so that words compare like strings.
quint64 wordAt(const char *bytes)
{
    return qFromBigEndian<quint64>(bytes);
}

} // namespace

void MatchFinder::start(const QByteArray &text)
{
    layOut(text);
    m_left.fill(noNode);
    m_right.fill(noNode);
    m_dad.fill(noNode);
    m_rankedFrom = 0;
    m_rankedEnd = 0;
    m_visitedNodes = 0;
    for (m_place = lookAhead - 1; m_place >= 0; --m_place)
        insertNode(false);
    m_place = lookAhead;
    insertNode(true);
}

void MatchFinder::layOut(const QByteArray &text)
{
    // The bytes after the end are those that the encoder's ring held there one turn earlier.
    const auto size = static_cast<int>(text.size());
    m_text = QByteArray(lookAhead, ' ') + text;
    m_end = static_cast<int>(m_text.size());
    m_jumpAt = m_end;
    m_jump = 0;
    // The last position of the ring is the last one of the look-ahead at the start.
    constexpr int ringTurn = 2 * lookAhead;
    if (m_end < ringTurn + lookAhead - 1) {
        // Strings that start before the end of the ring's first turn read zeros from the copy of
        // the ring's start, which was never written, and later ones blanks from the start itself:
        // so a second layout of the text follows the first.
        m_text.append(2 * lookAhead, '\0');
        if (m_end > ringTurn) {
            m_jumpAt = ringTurn;
            m_jump = static_cast<int>(m_text.size());
            m_text += QByteArray(lookAhead, ' ') + text + QByteArray(lookAhead, ' ');
        }
    } else {
        for (int i = 0; i < lookAhead; ++i)
            m_text += m_text.size() < windowSize ? ' ' : m_text.at(m_text.size() - windowSize);
    }
    m_end = lookAhead + size + m_jump;
}

void MatchFinder::advance(bool isWanted)
{
    if (m_place + lookAhead >= windowSize)
        deleteNode(m_place + lookAhead - windowSize);
    ++m_place;
    if (m_place == m_jumpAt)
        m_place += m_jump;
    insertNode(isWanted);
}

void MatchFinder::rankStrings()
{
    m_rankedFrom = std::max(0, m_place - windowSize);
    m_rankedEnd = std::min(m_end, m_rankedFrom + rankedStrings);
    // The strings that start inside the last one are needed to rank it. They continue after the
    // end, so their own ranks are not valid and not used.
    const int count = m_rankedEnd - m_rankedFrom + lookAhead - 1;
    m_rank.assign(count + lookAhead, 0);
    m_nextRank.assign(count + lookAhead, 0);
    m_order.resize(count);
    m_nextOrder.resize(count);
    // A song uses about 140 different bytes, so a table of their pairs is small.
    const auto *const bytes = reinterpret_cast<const quint8 *>(m_text.constData()) + m_rankedFrom;
    std::array<int, 256> letters{};
    for (int i = 0; i <= count; ++i)
        letters[bytes[i]] = 1;
    std::exclusive_scan(letters.begin(), letters.end(), letters.begin(), 0);
    const int letterCount = letters.back() + 1;
    m_bucketEnd.assign(std::max(letterCount * letterCount, count), 0);
    for (int i = 0; i < count; ++i) {
        m_rank[i] = static_cast<quint16>(letters[bytes[i]] * letterCount + letters[bytes[i + 1]]);
        ++m_bucketEnd[m_rank[i]];
    }
    quint16 begin = 0;
    for (quint16 &bucket : m_bucketEnd)
        begin += std::exchange(bucket, begin);
    for (int i = 0; i < count; ++i) // a full bucket ends at its m_bucketEnd
        m_order[m_bucketEnd[m_rank[i]]++] = static_cast<quint16>(i);
    // Ranked by 2, 4, 8, 16 and finally 29 bytes.
    for (const int shift : {2, 4, 8, lookAhead - 16})
        lengthenRankedPrefix(shift);

    m_stringOfRank.resize(count);
    m_ranks.fill(0);
    m_rankWords.fill(0);
    for (int place = m_rankedFrom; place < m_place; ++place) {
        if (isInTree(place))
            addRank(place);
    }
}

void MatchFinder::lengthenRankedPrefix(int shift)
{
    // A string's new rank combines its rank by its first bytes and the rank of the string after
    // these. Strings are taken in the order of the second rank, greatest first, those without one
    // at the end, and put into the bucket of the first rank from its end: then they are sorted.
    const auto count = static_cast<int>(m_order.size());
    for (auto behind = m_order.rbegin(); behind != m_order.rend(); ++behind) {
        const int i = *behind - shift;
        if (i >= 0)
            m_nextOrder[--m_bucketEnd[m_rank[i]]] = static_cast<quint16>(i);
    }
    for (int i = count - shift; i < count; ++i)
        m_nextOrder[--m_bucketEnd[m_rank[i]]] = static_cast<quint16>(i);
    // Counts without a branch, which would be unpredictable.
    quint16 rank = 0;
    quint16 end = 0;
    quint32 previous =
        quint32{m_rank[m_nextOrder.front()]} << 16 | m_rank[m_nextOrder.front() + shift];
    for (const int i : m_nextOrder) {
        const quint32 both = quint32{m_rank[i]} << 16 | m_rank[i + shift];
        rank += both != previous ? 1 : 0;
        previous = both;
        m_nextRank[i] = rank;
        m_bucketEnd[rank] = ++end;
    }
    m_rank.swap(m_nextRank);
    m_order.swap(m_nextOrder);
}

void MatchFinder::addRank(int place)
{
    const unsigned rank = rankAt(place);
    m_stringOfRank[rank] = static_cast<quint16>(place - m_rankedFrom);
    const unsigned word = rank / wordBits;
    m_ranks[word] |= quint64{1} << (rank % wordBits);
    m_rankWords[word / wordBits] |= quint64{1} << (word % wordBits);
}

void MatchFinder::removeRank(int place)
{
    const unsigned rank = rankAt(place);
    const unsigned word = rank / wordBits;
    m_ranks[word] &= ~(quint64{1} << (rank % wordBits));
    if (m_ranks[word] == 0)
        m_rankWords[word / wordBits] &= ~(quint64{1} << (word % wordBits));
}

int MatchFinder::lowerNeighbour(unsigned rank) const
{
    unsigned word = rank / wordBits;
    quint64 bits = m_ranks[word] & ((quint64{1} << (rank % wordBits)) - 1);
    if (bits == 0) {
        unsigned group = word / wordBits;
        quint64 words = m_rankWords[group] & ((quint64{1} << (word % wordBits)) - 1);
        while (words == 0) {
            if (group == 0)
                return -1;
            words = m_rankWords[--group];
        }
        word = group * wordBits + std::bit_width(words) - 1;
        bits = m_ranks[word];
    }
    return m_rankedFrom + m_stringOfRank[word * wordBits + std::bit_width(bits) - 1];
}

int MatchFinder::higherNeighbour(unsigned rank) const
{
    // All bits above the given one; no bits for the highest, because 2 << 63 is 0.
    const auto above = [](unsigned bit) { return ~((quint64{2} << bit) - 1); };
    unsigned word = rank / wordBits;
    quint64 bits = m_ranks[word] & above(rank % wordBits);
    if (bits == 0) {
        size_t group = word / wordBits;
        quint64 words = m_rankWords[group] & above(word % wordBits);
        while (words == 0) {
            if (++group == m_rankWords.size())
                return -1;
            words = m_rankWords[group];
        }
        word = static_cast<unsigned>(group) * wordBits + std::countr_zero(words);
        bits = m_ranks[word];
    }
    return m_rankedFrom + m_stringOfRank[word * wordBits + std::countr_zero(bits)];
}

void MatchFinder::insertNode(bool isWanted)
{
    if (m_place >= m_rankedEnd)
        rankStrings();
    const unsigned rank = rankAt(m_place);
    if (((m_ranks[rank / wordBits] >> (rank % wordBits)) & 1) != 0) {
        const int equal = m_rankedFrom + m_stringOfRank[rank];
        m_stringOfRank[rank] = static_cast<quint16>(m_place - m_rankedFrom);
        replaceNode(nodeAt(equal), nodeAt(m_place));
        m_length = lookAhead;
        m_distance = distanceTo(equal);
        return;
    }
    const auto inSameTree = [this](int place) {
        return place >= 0 && m_text.at(place) == m_text.at(m_place) ? place : -1;
    };
    const int lower = inSameTree(lowerNeighbour(rank));
    const int higher = inSameTree(higherNeighbour(rank));
    addRank(m_place);
    attach(lower, higher);
    if (isWanted)
        findMatch(lower, higher);
}

void MatchFinder::attach(int lower, int higher)
{
    const int node = nodeAt(m_place);
    m_left[node] = m_right[node] = noNode;
    const bool isBelowLower = lower >= 0 && m_right[nodeAt(lower)] == noNode;
    int dad = nodeAt(isBelowLower ? lower : higher);
    quint16 *sons = isBelowLower ? m_right.data() : m_left.data();
    if (!isBelowLower && higher < 0) { // the first string of its tree
        dad = windowSize + 1 + static_cast<quint8>(m_text.at(m_place));
        sons = m_right.data();
    }
    sons[dad] = static_cast<quint16>(node);
    m_dad[node] = static_cast<quint16>(dad);
}

void MatchFinder::findMatch(int lower, int higher)
{
    const int lowerLength = lower < 0 ? 0 : commonLength(lower);
    const int higherLength = higher < 0 ? 0 : commonLength(higher);
    m_length = std::max(lowerLength, higherLength);
    if (m_length > threshold)
        findNearest(lowerLength == m_length, higherLength == m_length);
}

void MatchFinder::findNearest(bool isLowerOpen, bool isHigherOpen)
{
    // On the path up, lower strings get lower and higher ones higher: after the first string of a
    // side that matches less, no other of that side matches as much.
    m_distance = windowSize;
    for (int node = nodeAt(m_place); isLowerOpen || isHigherOpen;) {
        const int dad = m_dad[node];
        if (dad > noNode)
            break;
        ++m_visitedNodes;
        bool &isOpen = m_right[dad] == node ? isLowerOpen : isHigherOpen;
        node = dad;
        if (!isOpen)
            continue;
        const int place = m_place - nodeAt(m_place - dad);
        isOpen = commonLength(place) == m_length;
        if (isOpen)
            m_distance = std::min(m_distance, distanceTo(place));
    }
}

int MatchFinder::distanceTo(int place) const
{
    const int left = place < m_jumpAt && m_place >= m_jumpAt ? m_jump : 0;
    return m_place - left - place - 1;
}

int MatchFinder::commonLength(int place) const
{
    const char *const string = m_text.constData() + m_place;
    const char *const other = m_text.constData() + place;
    for (const int offset : {0, wordBytes, 2 * wordBytes, lookAhead - wordBytes}) {
        const quint64 difference = wordAt(string + offset) ^ wordAt(other + offset);
        if (difference != 0)
            return offset + std::countl_zero(difference) / 8;
    }
    return lookAhead;
}

void MatchFinder::replaceNode(int node, int replacement)
{
    m_left[replacement] = m_left[node];
    m_right[replacement] = m_right[node];
    m_dad[m_left[node]] = static_cast<quint16>(replacement);
    m_dad[m_right[node]] = static_cast<quint16>(replacement);
    replaceChild(m_dad[node], node, replacement);
    m_dad[node] = noNode;
}

void MatchFinder::replaceChild(int parent, int node, int replacement)
{
    m_dad[replacement] = static_cast<quint16>(parent);
    quint16 *const sons = m_right[parent] == node ? m_right.data() : m_left.data();
    sons[parent] = static_cast<quint16>(replacement);
}

void MatchFinder::deleteNode(int place)
{
    if (!isInTree(place))
        return; // replaced by an equal, newer string
    removeRank(place);
    const int node = nodeAt(place);
    const bool isRightFree = m_right[node] == noNode;
    if (isRightFree || m_left[node] == noNode) {
        replaceChild(m_dad[node], node, isRightFree ? m_left[node] : m_right[node]);
    } else {
        // The rightmost string of the left branch replaces the deleted one.
        const int heir = nodeAt(lowerNeighbour(rankAt(place)));
        if (m_dad[heir] != node) {
            replaceChild(m_dad[heir], heir, m_left[heir]);
            m_left[heir] = m_left[node];
            m_dad[m_left[node]] = static_cast<quint16>(heir);
        }
        m_right[heir] = m_right[node];
        m_dad[m_right[node]] = static_cast<quint16>(heir);
        replaceChild(m_dad[node], node, heir);
    }
    m_dad[node] = noNode;
}

} // namespace brisel
