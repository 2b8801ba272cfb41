#include "tests/songfile/lzhuffmodel.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace brisel
{

namespace
{

constexpr int ring = 4096;
constexpr int longest = 29;

struct HuffmanNode {
    long count = 1;
    int symbol = -1;
    HuffmanNode *parent = nullptr;
    HuffmanNode *zero = nullptr;
    HuffmanNode *one = nullptr;
};

/// All nodes in one row of ascending counts; neighbours 0-1, 2-3, ... are brothers.
class HuffmanModel
{
public:
    HuffmanModel()
    {
        for (int symbol = 0; symbol < 283; ++symbol) {
            m_row.push_back(newNode());
            m_row.back()->symbol = symbol;
        }
        for (size_t pair = 0; m_row.size() < 565; pair += 2)
            m_row.push_back(join(pair));
    }

    std::string code(int symbol) const
    {
        std::string bits;
        for (const HuffmanNode *node = leaf(symbol); node->parent != nullptr; node = node->parent)
            bits.insert(bits.begin(), node == node->parent->one ? '1' : '0');
        return bits;
    }

    template <typename NextBit>
    int symbol(NextBit nextBit) const
    {
        const HuffmanNode *node = m_row.back();
        while (node->symbol < 0)
            node = nextBit() ? node->one : node->zero;
        return node->symbol;
    }

    void count(int symbol)
    {
        if (m_row.back()->count == 32768)
            halve();
        for (HuffmanNode *node = leaf(symbol); node != nullptr; node = node->parent) {
            ++node->count;
            size_t place = 0;
            while (m_row.at(place) != node)
                ++place;
            size_t last = place;
            while (last + 1 < m_row.size() && m_row.at(last + 1)->count < node->count)
                ++last;
            exchange(place, last);
        }
    }

private:
    HuffmanNode *newNode()
    {
        m_nodes.push_back(std::make_unique<HuffmanNode>());
        return m_nodes.back().get();
    }

    HuffmanNode *join(size_t pair)
    {
        HuffmanNode *node = newNode();
        node->zero = m_row.at(pair);
        node->one = m_row.at(pair + 1);
        node->count = node->zero->count + node->one->count;
        node->zero->parent = node->one->parent = node;
        return node;
    }

    HuffmanNode *leaf(int symbol) const
    {
        for (HuffmanNode *node : m_row) {
            if (node->symbol == symbol)
                return node;
        }
        return nullptr;
    }

    void exchange(size_t first, size_t second)
    {
        HuffmanNode *a = m_row.at(first);
        HuffmanNode *b = m_row.at(second);
        HuffmanNode *&aPlace = a->parent == nullptr   ? m_top
                               : a->parent->zero == a ? a->parent->zero
                                                      : a->parent->one;
        HuffmanNode *&bPlace = b->parent == nullptr   ? m_top
                               : b->parent->zero == b ? b->parent->zero
                                                      : b->parent->one;
        std::swap(aPlace, bPlace);
        std::swap(a->parent, b->parent);
        std::swap(m_row.at(first), m_row.at(second));
    }

    void halve()
    {
        std::vector<HuffmanNode *> leaves;
        for (HuffmanNode *node : m_row) {
            if (node->symbol >= 0) {
                node->count = (node->count + 1) / 2;
                node->parent = nullptr;
                leaves.push_back(node);
            }
        }
        m_row = leaves;
        for (size_t pair = 0; m_row.size() < 565; pair += 2) {
            HuffmanNode *node = join(pair);
            size_t place = m_row.size();
            while (m_row.at(place - 1)->count > node->count)
                --place;
            m_row.insert(m_row.begin() + static_cast<long>(place), node);
        }
    }

    std::vector<std::unique_ptr<HuffmanNode>> m_nodes;
    std::vector<HuffmanNode *> m_row;
    HuffmanNode *m_top = nullptr;
};

struct StringNode {
    int start = 0;
    std::unique_ptr<StringNode> less;
    std::unique_ptr<StringNode> more;
};

/// The strings of the window by their position in the whole text, which starts with blanks.
class WindowModel
{
public:
    WindowModel(std::string text, int end) : m_text(std::move(text)), m_end(end), m_trees(256) {}

    int distance = 0;
    int length = 0;

    void insert(int start)
    {
        length = 0;
        std::unique_ptr<StringNode> *slot = &tree(start);
        while (*slot != nullptr) {
            const int other = (*slot)->start;
            const int common = commonLength(start, other);
            const int back = start - other;
            if (common > 2 && (common > length || (common == length && back < distance))) {
                length = common;
                distance = back;
            }
            if (common == longest) {
                (*slot)->start = start;
                return;
            }
            slot = at(start, common) < at(other, common) ? &(*slot)->less : &(*slot)->more;
        }
        *slot = std::make_unique<StringNode>();
        (*slot)->start = start;
    }

    void remove(int start)
    {
        std::unique_ptr<StringNode> *slot = &tree(start);
        while (*slot != nullptr && (*slot)->start != start) {
            const int common = commonLength(start, (*slot)->start);
            if (common == longest)
                return; // replaced by an equal, newer string
            slot = at(start, common) < at((*slot)->start, common) ? &(*slot)->less : &(*slot)->more;
        }
        if (*slot == nullptr)
            return;
        std::unique_ptr<StringNode> gone = std::move(*slot);
        if (gone->more == nullptr) {
            *slot = std::move(gone->less);
        } else if (gone->less == nullptr) {
            *slot = std::move(gone->more);
        } else {
            std::unique_ptr<StringNode> *heir = &gone->less;
            while ((*heir)->more != nullptr)
                heir = &(*heir)->more;
            std::unique_ptr<StringNode> taken = std::move(*heir);
            *heir = std::move(taken->less);
            taken->less = std::move(gone->less);
            taken->more = std::move(gone->more);
            *slot = std::move(taken);
        }
    }

private:
    unsigned char at(int start, int offset) const
    {
        // A string that wraps around the end of the ring is read from a copy of the ring's start,
        // and the initial blanks were never copied.
        const int place = start + offset;
        const bool isCopy = start % ring + offset >= ring;
        if (place >= m_end && isCopy && place < 2 * ring)
            return 0;
        return static_cast<unsigned char>(m_text.at(place));
    }
    std::unique_ptr<StringNode> &tree(int start) { return m_trees.at(at(start, 0)); }

    int commonLength(int a, int b) const
    {
        int common = 0;
        while (common < longest && at(a, common) == at(b, common))
            ++common;
        return common;
    }

    std::string m_text;
    int m_end; ///< of the text itself: older content of the ring follows
    std::vector<std::unique_ptr<StringNode>> m_trees;
};

std::string number(int value, int bits)
{
    std::string text;
    for (int bit = bits - 1; bit >= 0; --bit)
        text += ((value >> bit) & 1) != 0 ? '1' : '0';
    return text;
}

/// How many positions have codes of 3, 4, ... 8 bits; the codes count upwards.
std::string positionCode(int upper)
{
    int code = 0;
    int bits = 3;
    int passed = 0;
    for (const int group : {1, 3, 8, 12, 24, 16}) {
        if (upper < passed + group)
            return number(code + upper - passed, bits);
        passed += group;
        code = (code + group) * 2;
        ++bits;
    }
    return {};
}

} // namespace

QByteArray modelCompress(const QByteArray &text)
{
    const int size = static_cast<int>(text.size());
    const int first = ring - longest;
    // The bytes after the end are what the ring held there one turn earlier: zeros if the text
    // is shorter than the ring.
    std::string whole(first, ' ');
    whole += text.toStdString();
    for (int i = 0; i < 2 * longest; ++i) {
        const int place = static_cast<int>(whole.size());
        whole += place < ring ? '\0' : whole.at(place - ring);
    }
    HuffmanModel huffman;
    WindowModel window(whole, first + size);
    std::string bits;
    if (size > 0) {
        for (int back = 1; back <= longest; ++back)
            window.insert(first - back);
        window.insert(first);
    }
    for (int done = 0; done < size;) {
        const int length = std::min(window.length, size - done);
        const int step = length <= 2 ? 1 : length;
        const int symbol = length <= 2 ? static_cast<unsigned char>(text.at(done)) : 253 + length;
        bits += huffman.code(symbol);
        huffman.count(symbol);
        if (length > 2)
            bits +=
                positionCode((window.distance - 1) / 64) + number((window.distance - 1) % 64, 6);
        for (int i = 0; i < step; ++i) {
            ++done;
            if (first + done + longest - 1 - ring >= 0)
                window.remove(first + done + longest - 1 - ring);
            if (done < size)
                window.insert(first + done);
        }
    }
    QByteArray stream;
    for (int shift = 0; shift < 32; shift += 8)
        stream.append(static_cast<char>(size >> shift));
    bits.resize((bits.size() + 7) / 8 * 8, '0');
    for (size_t bit = 0; bit < bits.size(); bit += 8)
        stream.append(static_cast<char>(std::stoi(bits.substr(bit, 8), nullptr, 2)));
    return stream;
}

QByteArray modelExpand(const QByteArray &stream)
{
    qsizetype size = 0;
    for (int i = 0; i < 4; ++i)
        size |= static_cast<qsizetype>(static_cast<unsigned char>(stream.at(i))) << (8 * i);
    qsizetype passed = 32;
    const auto nextBit = [&] {
        const qsizetype byte = passed / 8;
        const qsizetype bit = 7 - passed++ % 8;
        return byte < stream.size() && ((stream.at(byte) >> bit) & 1) != 0;
    };
    HuffmanModel huffman;
    QByteArray text(ring, ' ');
    while (text.size() < ring + size) {
        const int symbol = huffman.symbol(nextBit);
        huffman.count(symbol);
        if (symbol < 256) {
            text.append(static_cast<char>(symbol));
            continue;
        }
        std::string bits;
        int upper = 0;
        while (bits != positionCode(upper)) {
            bits += nextBit() ? '1' : '0';
            for (upper = 0; upper < 63 && bits != positionCode(upper);)
                ++upper;
        }
        int distance = upper;
        for (int i = 0; i < 6; ++i)
            distance = distance * 2 + (nextBit() ? 1 : 0);
        for (int i = 0; i < symbol - 253; ++i)
            text.append(text.at(text.size() - distance - 1));
    }
    return text.mid(ring, size);
}

} // namespace brisel
