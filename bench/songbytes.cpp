#include "bench/songbytes.h"

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace brisel
{

namespace
{

struct Note {
    int tick;
    int key;
    int velocity;
};

class SongMaker
{
public:
    std::string make(int size)
    {
        const int tracks = 10;
        std::string song("MThd\0\0\0\6\0\1\0\12\0\x60", 14);
        std::string words = lyrics(size / 40);
        song += track(words);
        for (int channel = 1; channel < tracks; ++channel) {
            const auto left =
                static_cast<size_t>((size - static_cast<int>(song.size())) / (tracks - channel));
            song += track(channel % 5 == 4 ? melody(channel, left) : pattern(channel, left));
        }
        return song;
    }

private:
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    static void putNumber(std::string &bytes, int value)
    {
        if (value >= 0x80)
            bytes += static_cast<char>(0x80 | (value >> 7));
        bytes += static_cast<char>(value & 0x7F);
    }

    static std::string track(std::string events)
    {
        events += std::string("\0\xFF\x2F\0", 4);
        std::string head("MTrk");
        for (int shift = 24; shift >= 0; shift -= 8)
            head += static_cast<char>(events.size() >> shift);
        return head + events;
    }

    std::string lyrics(int size)
    {
        static const std::array<const char *, 16> syllables{
            "la ", "a",   "mo", "re ", "not", "te ", "ma",  "re ",
            "can", "to ", "vo", "lo ", "so",  "le ", "tu ", "che "};
        std::string events;
        while (static_cast<int>(events.size()) < size) {
            const std::string syllable = syllables.at(static_cast<size_t>(below(16)));
            putNumber(events, 12 * (1 + below(8)));
            events += "\xFF\x05";
            events += static_cast<char>(syllable.size());
            events += syllable;
        }
        return events;
    }

    /// Drums, bass and chords: a few bars, repeated with small differences.
    std::string pattern(int channel, size_t size)
    {
        std::vector<std::vector<Note>> bars(static_cast<size_t>(3 + below(5)));
        for (auto &bar : bars) {
            for (int step = 0; step < 16; step += 1 + below(2)) {
                for (int voice = below(3); voice >= 0; --voice)
                    bar.push_back({step * 24, 36 + channel * 3 + below(18), 70 + below(40)});
            }
        }
        std::string events;
        putNumber(events, 0);
        events += static_cast<char>(0x90 | channel);
        bool first = true;
        while (events.size() < size) {
            int now = 0;
            for (const Note &note :
                 bars.at(static_cast<size_t>(below(static_cast<int>(bars.size()))))) {
                addNote(events, first, note.tick + below(3) - now, note);
                now = note.tick;
            }
        }
        return events;
    }

    void addNote(std::string &events, bool &first, int wait, const Note &note)
    {
        if (!first)
            putNumber(events, wait > 0 ? wait : 0);
        first = false;
        events += static_cast<char>(note.key);
        events += static_cast<char>(note.velocity + below(6));
        putNumber(events, 10 + below(4));
        events += static_cast<char>(note.key);
        events += '\0';
    }

    /// A melody with bends between the notes.
    std::string melody(int channel, size_t size)
    {
        std::string events;
        int key = 64;
        while (events.size() < size) {
            key = std::min(84, std::max(52, key + below(9) - 4));
            putNumber(events, below(90));
            events += static_cast<char>(0x90 | channel);
            events += static_cast<char>(key);
            events += static_cast<char>(60 + below(60));
            for (int bend = below(12); bend > 0; --bend) {
                putNumber(events, 2 + below(3));
                events += static_cast<char>(0xE0 | channel);
                events += static_cast<char>(below(4) * 32);
                events += static_cast<char>(64 + bend);
            }
            putNumber(events, 20 + below(60));
            events += static_cast<char>(0x80 | channel);
            events += static_cast<char>(key);
            events += static_cast<char>(64);
        }
        return events;
    }

    std::mt19937 m_random{2002};
};

} // namespace

std::string songBytes(int size)
{
    return SongMaker().make(size);
}

} // namespace brisel
