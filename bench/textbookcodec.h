#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace brisel
{

/// The codec as in textbooks: one bit at a time, strings compared byte by byte in one binary search
/// tree for each first byte, tables of int. It is the peer of LzHuff and, with a look-ahead of 60,
/// makes -lh1- streams. Its streams have no length header.
template <int lookAhead>
class TextbookCodec
{
public:
    std::string encode(const std::string &text)
    {
        begin(text);
        encodeText();
        return m_out;
    }

    std::string decode(const std::string &stream, size_t size)
    {
        begin(stream);
        decodeText(size);
        return m_out;
    }

private:
    static constexpr int ringSize = 4096;
    static constexpr int threshold = 2;
    static constexpr int noNode = ringSize;
    static constexpr int symbols = 256 - threshold + lookAhead;
    static constexpr int nodes = 2 * symbols - 1;
    static constexpr int root = nodes - 1;
    static constexpr unsigned maxFrequency = 0x8000;

    struct PositionCode {
        std::array<int, 64> length{};
        std::array<unsigned, 64> code{};
        std::array<int, 256> decoded{};
    };

    static PositionCode makePositionCode()
    {
        PositionCode table;
        unsigned next = 0;
        int upper = 0;
        int length = 3;
        for (const int group : {1, 3, 8, 12, 24, 16}) {
            for (const int end = upper + group; upper < end; ++upper) {
                table.length[upper] = length;
                table.code[upper] = next << 8;
                for (unsigned last = next + (256U >> length); next < last; ++next)
                    table.decoded[next] = upper;
            }
            ++length;
        }
        return table;
    }

    void begin(const std::string &in)
    {
        m_in = in;
        m_next = 0;
        m_out.clear();
        m_buffer = 0;
        m_bits = 0;
        startHuff();
    }

    int nextByte() { return m_next < m_in.size() ? static_cast<uint8_t>(m_in[m_next++]) : -1; }

    // The adaptive tree.
    void startHuff()
    {
        for (int i = 0; i < symbols; ++i) {
            m_frequency[i] = 1;
            m_son[i] = i + nodes;
            m_parent[i + nodes] = i;
        }
        for (int i = 0, j = symbols; j <= root; i += 2, ++j) {
            m_frequency[j] = m_frequency[i] + m_frequency[i + 1];
            m_son[j] = i;
            m_parent[i] = m_parent[i + 1] = j;
        }
        m_frequency[nodes] = 0xFFFF;
        m_parent[root] = 0;
    }

    void reconst()
    {
        int leaves = 0;
        for (int i = 0; i < nodes; ++i) {
            if (m_son[i] >= nodes) {
                m_frequency[leaves] = (m_frequency[i] + 1) / 2;
                m_son[leaves++] = m_son[i];
            }
        }
        for (int i = 0, j = symbols; j < nodes; i += 2, ++j) {
            const unsigned sum = m_frequency[i] + m_frequency[i + 1];
            int k = j;
            for (; sum < m_frequency[k - 1]; --k) {
                m_frequency[k] = m_frequency[k - 1];
                m_son[k] = m_son[k - 1];
            }
            m_frequency[k] = sum;
            m_son[k] = i;
        }
        for (int i = 0; i < nodes; ++i) {
            m_parent[m_son[i]] = i;
            if (m_son[i] < nodes)
                m_parent[m_son[i] + 1] = i;
        }
    }

    void update(int symbol)
    {
        if (m_frequency[root] == maxFrequency)
            reconst();
        int node = m_parent[symbol + nodes];
        do {
            const unsigned count = ++m_frequency[node];
            int last = node + 1;
            if (count > m_frequency[last]) {
                while (count > m_frequency[++last]) {
                }
                --last;
                m_frequency[node] = m_frequency[last];
                m_frequency[last] = count;
                const int son = m_son[node];
                m_parent[son] = last;
                if (son < nodes)
                    m_parent[son + 1] = last;
                const int other = m_son[last];
                m_son[last] = son;
                m_parent[other] = node;
                if (other < nodes)
                    m_parent[other + 1] = node;
                m_son[node] = other;
                node = last;
            }
            node = m_parent[node];
        } while (node != 0);
    }

    // Reading: a buffer has the next 16 bits and is filled byte by byte.
    void fill()
    {
        while (m_bits <= 8) {
            const int byte = nextByte();
            m_buffer |= static_cast<unsigned>(byte < 0 ? 0 : byte) << (8 - m_bits);
            m_bits += 8;
        }
    }

    int getBit()
    {
        fill();
        const int bit = (m_buffer >> 15) & 1;
        m_buffer = (m_buffer << 1) & 0xFFFF;
        --m_bits;
        return bit;
    }

    int getByte()
    {
        fill();
        const int byte = (m_buffer >> 8) & 0xFF;
        m_buffer = (m_buffer << 8) & 0xFFFF;
        m_bits -= 8;
        return byte;
    }

    int decodeChar()
    {
        int node = m_son[root];
        while (node < nodes)
            node = m_son[node + getBit()];
        update(node - nodes);
        return node - nodes;
    }

    int decodePosition()
    {
        unsigned bits = getByte();
        const int upper = m_position.decoded[bits];
        for (int left = m_position.length[upper] - 2; left > 0; --left)
            bits = (bits << 1) + getBit();
        return (upper << 6) | static_cast<int>(bits & 0x3F);
    }

    void decodeText(size_t size)
    {
        m_ring.fill(' ');
        int place = ringSize - lookAhead;
        while (m_out.size() < size) {
            const int symbol = decodeChar();
            if (symbol < 256) {
                m_out += static_cast<char>(symbol);
                m_ring[place] = static_cast<uint8_t>(symbol);
                place = (place + 1) & (ringSize - 1);
                continue;
            }
            const int from = (place - decodePosition() - 1) & (ringSize - 1);
            for (int i = 0; i < symbol - 255 + threshold && m_out.size() < size; ++i) {
                const uint8_t byte = m_ring[(from + i) & (ringSize - 1)];
                m_out += static_cast<char>(byte);
                m_ring[place] = byte;
                place = (place + 1) & (ringSize - 1);
            }
        }
    }

    // Writing.
    void putcode(int length, unsigned code)
    {
        m_buffer |= code >> m_bits;
        m_bits += length;
        if (m_bits < 8)
            return;
        m_out += static_cast<char>(m_buffer >> 8);
        m_bits -= 8;
        if (m_bits >= 8) {
            m_out += static_cast<char>(m_buffer & 0xFF);
            m_bits -= 8;
            m_buffer = (code << (length - m_bits)) & 0xFFFF;
        } else {
            m_buffer = (m_buffer << 8) & 0xFFFF;
        }
    }

    void encodeChar(int symbol)
    {
        unsigned code = 0;
        int length = 0;
        int node = m_parent[symbol + nodes];
        do {
            code >>= 1;
            if ((node & 1) != 0)
                code += 0x8000;
            ++length;
            node = m_parent[node];
        } while (node != root);
        putcode(length, code);
        update(symbol);
    }

    void encodePosition(int position)
    {
        putcode(m_position.length[position >> 6], m_position.code[position >> 6]);
        putcode(6, static_cast<unsigned>(position & 0x3F) << 10);
    }

    void encodeText()
    {
        m_left.fill(noNode);
        m_right.fill(noNode);
        m_dad.fill(noNode);
        m_ring.fill(0);
        int oldest = 0;
        int place = ringSize - lookAhead;
        std::fill_n(m_ring.begin(), place, uint8_t{' '});
        int available = 0;
        for (int byte = 0; available < lookAhead && (byte = nextByte()) >= 0; ++available)
            m_ring[place + available] = static_cast<uint8_t>(byte);
        if (available == 0)
            return;
        for (int i = 1; i <= lookAhead; ++i)
            insertNode(place - i);
        insertNode(place);
        while (available > 0) {
            if (m_matchLength > available)
                m_matchLength = available;
            if (m_matchLength <= threshold) {
                m_matchLength = 1;
                encodeChar(m_ring[place]);
            } else {
                encodeChar(255 - threshold + m_matchLength);
                encodePosition(m_matchPosition);
            }
            for (int left = m_matchLength; left > 0; --left) {
                deleteNode(oldest);
                const int byte = nextByte();
                if (byte >= 0) {
                    m_ring[oldest] = static_cast<uint8_t>(byte);
                    if (oldest < lookAhead - 1)
                        m_ring[oldest + ringSize] = static_cast<uint8_t>(byte);
                } else {
                    --available;
                }
                oldest = (oldest + 1) & (ringSize - 1);
                place = (place + 1) & (ringSize - 1);
                if (available > 0)
                    insertNode(place);
            }
        }
        if (m_bits > 0)
            m_out += static_cast<char>(m_buffer >> 8);
    }

    // The match finder.
    void insertNode(int place)
    {
        int difference = 1;
        int node = ringSize + 1 + m_ring[place];
        m_left[place] = m_right[place] = noNode;
        m_matchLength = 0;
        for (;;) {
            int &next = difference >= 0 ? m_right[node] : m_left[node];
            if (next == noNode) {
                next = place;
                m_dad[place] = node;
                return;
            }
            node = next;
            int length = 1;
            for (; length < lookAhead; ++length) {
                difference = m_ring[place + length] - m_ring[node + length];
                if (difference != 0)
                    break;
            }
            if (length <= threshold)
                continue;
            const int position = ((place - node) & (ringSize - 1)) - 1;
            if (length > m_matchLength) {
                m_matchPosition = position;
                m_matchLength = length;
                if (length >= lookAhead)
                    break;
            }
            if (length == m_matchLength && position < m_matchPosition)
                m_matchPosition = position;
        }
        m_dad[place] = m_dad[node];
        m_left[place] = m_left[node];
        m_right[place] = m_right[node];
        m_dad[m_left[node]] = place;
        m_dad[m_right[node]] = place;
        if (m_right[m_dad[node]] == node)
            m_right[m_dad[node]] = place;
        else
            m_left[m_dad[node]] = place;
        m_dad[node] = noNode;
    }

    void deleteNode(int node)
    {
        if (m_dad[node] == noNode)
            return;
        int heir = m_left[node];
        if (m_right[node] == noNode) {
            heir = m_left[node];
        } else if (m_left[node] == noNode) {
            heir = m_right[node];
        } else if (m_right[heir] != noNode) {
            do {
                heir = m_right[heir];
            } while (m_right[heir] != noNode);
            m_right[m_dad[heir]] = m_left[heir];
            m_dad[m_left[heir]] = m_dad[heir];
            m_left[heir] = m_left[node];
            m_dad[m_left[node]] = heir;
            m_right[heir] = m_right[node];
            m_dad[m_right[node]] = heir;
        } else {
            m_right[heir] = m_right[node];
            m_dad[m_right[node]] = heir;
        }
        m_dad[heir] = m_dad[node];
        if (m_right[m_dad[node]] == node)
            m_right[m_dad[node]] = heir;
        else
            m_left[m_dad[node]] = heir;
        m_dad[node] = noNode;
    }

    const PositionCode m_position = makePositionCode();
    std::string m_in;
    size_t m_next = 0;
    std::string m_out;
    unsigned m_buffer = 0;
    int m_bits = 0;
    std::array<unsigned, nodes + 1> m_frequency{};
    std::array<int, nodes + symbols> m_parent{};
    std::array<int, nodes> m_son{};
    std::array<uint8_t, ringSize + lookAhead> m_ring{};
    std::array<int, ringSize + 1> m_left{};
    std::array<int, ringSize + 257> m_right{};
    std::array<int, ringSize + 1> m_dad{};
    int m_matchPosition = 0;
    int m_matchLength = 0;
};

} // namespace brisel
