#include "index/songhead.h"
#include "base/songtext.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "index/indexrecords.h"
#include "index/songinfoindex.h"

static void check(const QByteArray &prefix, const QString &path)
{
    SongInfoIndex song;
    song.absolutePath = path;
    const bool parsed = SongHead::parse(prefix, song);
    REQUIRE(parsed == (prefix.size() >= 5));
    // 58 characters are read, and upper-casing makes two of some.
    for (const QString &text : {song.title, song.artist, song.genre})
        REQUIRE(!text.isEmpty() && text.size() <= 2 * 58 && !text.contains(QChar::Null));
    REQUIRE(song.type <= SongInfoIndex::Zb5);
    REQUIRE(song.flag <= 1);
    REQUIRE(song.reserved == 0);

    const QByteArray bytes = SongRecord(song).bytes();
    REQUIRE(bytes.size() == IndexRecord::size);
    REQUIRE(!GroupHeader::isAt(bytes, 0));
    SongRecord record;
    REQUIRE(SongRecord::read(bytes, 0, record));
    REQUIRE(record.title == songBytes(song.title).left(58));
    REQUIRE(record.bpm == song.bpm && record.type == song.type && record.flag == song.flag);
}

void checkSongHead(const QByteArray &input)
{
    const QByteArray prefix = input.left(SongHead::prefixSize);
    check(prefix, QStringLiteral("/memory/SONG.MID"));
    check(prefix, QStringLiteral("/memory/SONG.mp3"));
}
