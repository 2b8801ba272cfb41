#include "player/songtimeline.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "player/karaoke.h"

#include <algorithm>

namespace brisel
{

namespace
{

constexpr int longestLine = 120; ///< characters

void requireTimesInOrder(const SongTimeline &timeline)
{
    constexpr int parts = 16;
    const qint64 end = timeline.lastTick();
    qint64 last = 0;
    for (int part = 0; part <= parts; ++part) {
        const qint64 tick = end * part / parts;
        const qint64 ms = timeline.msAt(tick);
        REQUIRE(ms >= last && ms <= timeline.duration());
        REQUIRE(timeline.tickAt(ms) <= std::max(tick, timeline.tickAt(0)));
        REQUIRE(timeline.msAt(timeline.tickAt(ms)) <= ms);
        last = ms;
    }
    REQUIRE(timeline.tickAt(-1) >= 0 && timeline.tickAt(last + 1) <= end);
    constexpr qint64 lastBar = 65535;
    last = 0;
    for (qint64 bar = 0; bar <= lastBar; bar = bar * 2 + 1) {
        const qint64 ms = timeline.msOfBar(bar);
        REQUIRE(ms >= last);
        last = ms;
    }
}

} // namespace

void checkSongTimeline(const QByteArray &input)
{
    const auto timeline = SongTimeline::read(input);
    if (!timeline.has_value())
        return;
    REQUIRE(timeline->lastTick() >= 0 && timeline->lastTick() <= SongTimeline::maxTicks);
    requireTimesInOrder(*timeline);
    qint64 last = 0;
    for (const TimedText &line : karaokeLines(*timeline)) {
        REQUIRE(line.ms >= last && !line.text.isEmpty() && line.text.size() <= longestLine);
        last = line.ms;
    }
}

} // namespace brisel
