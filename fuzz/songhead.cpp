#include "index/songhead.h"
#include "base/songtext.h"
#include "fuzz/fuzzing.h"
#include "fuzz/id3parser.h"
#include "fuzz/targets.h"
#include "index/indexrecords.h"
#include "index/songinfoindex.h"

namespace brisel
{

namespace
{

constexpr qsizetype indexedWidth = 58; ///< characters

/// The index's text for the frame \a id of \a tag; nothing if any text is allowed.
std::optional<QString> expectedText(const Id3Parser::Tag &tag, const QByteArray &id,
                                    const QString &missing)
{
    constexpr qsizetype window = 512;
    const QByteArray name = tag.name(id);
    const qsizetype index = tag.indexOf(name);
    if (index < 0 || tag.frames.at(index).start + name.size() > window)
        return missing;
    const std::optional<QString> text = tag.text(tag.frames.at(index));
    if (!text)
        return std::nullopt;
    const QString shown = trimmedSongText(text->left(indexedWidth));
    return shown.isEmpty() ? missing : trimmedSongText(stringToUpper(shown));
}

/// Requires that the index of an MP3 has the texts of its tag, unless they are ambiguous.
void checkTag(const QByteArray &file, const SongInfoIndex &song)
{
    constexpr qsizetype maxFrames = 1000;
    constexpr qsizetype emptyTag = 10; // a tag of this size is searched, with the bytes after it
    const std::optional<Id3Parser::Tag> tag = Id3Parser::parse(file, maxFrames);
    if (!tag || tag->size == emptyTag)
        return;
    const QString unknown = QStringLiteral("<UNKNOWN>");
    const auto agrees = [&tag](const QByteArray &id, const QString &text, const QString &missing) {
        return text == expectedText(*tag, id, missing).value_or(text);
    };
    REQUIRE(agrees("TIT2", song.title, QStringLiteral("SONG.MP3")));
    REQUIRE(agrees("TPE1", song.artist, unknown));
    REQUIRE(agrees("TCON", song.genre, unknown));
}

SongInfoIndex check(const QByteArray &prefix, const QString &path)
{
    SongInfoIndex song;
    song.absolutePath = path;
    const bool parsed = SongHead::parse(prefix, song);
    REQUIRE(parsed == (prefix.size() >= 5));
    // 58 characters are read, and some become two in upper case.
    for (const QString &text : {song.title, song.artist, song.genre})
        REQUIRE(!text.isEmpty() && text.size() <= 2 * indexedWidth && !text.contains(QChar::Null));
    REQUIRE(song.type <= SongInfoIndex::Zb5);
    REQUIRE(song.flag <= 1);
    REQUIRE(song.reserved == 0);

    const QByteArray bytes = SongRecord(song).bytes();
    REQUIRE(bytes.size() == IndexRecord::size);
    REQUIRE(!GroupHeader::isAt(bytes, 0));
    SongRecord record;
    REQUIRE(SongRecord::read(bytes, 0, record));
    REQUIRE(record.title == songBytes(song.title).left(indexedWidth));
    REQUIRE(record.bpm == song.bpm && record.type == song.type && record.flag == song.flag);
    return song;
}

} // namespace

void checkSongHead(const QByteArray &input)
{
    const QByteArray prefix = input.left(SongHead::prefixSize);
    check(prefix, QStringLiteral("/memory/SONG.MID"));
    checkTag(input, check(prefix, QStringLiteral("/memory/SONG.mp3")));
}

} // namespace brisel
