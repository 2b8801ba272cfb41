#include "songfile/metasong.h"
#include "fuzz/fuzzing.h"
#include "fuzz/keptsongs.h"
#include "fuzz/targets.h"
#include "songfile/lzhuff.h"
#include "songfile/mp3header.h"

#include <QDir>

#include <tuple>

namespace brisel
{

namespace
{

/// With this name the content of a file decides its format.
const QString songName = QStringLiteral("song.mp3");

SongInfo infoOf(const MetaSong &song)
{
    SongInfo info;
    song.getSongInfo(info);
    return info;
}

bool isSame(const QList<Marker> &a, const QList<Marker> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Marker &first, const Marker &second) {
                          return first.bar == second.bar && first.text == second.text;
                      });
}

bool isSame(const SongInfo &a, const SongInfo &b)
{
    const auto texts = [](const SongInfo &info) {
        return std::tie(info.title, info.artist, info.genre, info.author, info.key, info.format,
                        info.zbxLongName);
    };
    const auto numbers = [](const SongInfo &info) {
        return std::tie(info.length, info.userBpm, info.isKordia, info.zbxFlags);
    };
    return texts(a) == texts(b) && numbers(a) == numbers(b) && isSame(a.markers, b.markers);
}

SongInfo scriptedInfo(Script &script)
{
    SongInfo info;
    info.title = script.text();
    info.artist = script.text();
    info.altArtist = script.text();
    info.genre = script.text();
    info.author = script.text();
    info.length = script.number();
    info.userBpm = script.number();
    const QStringList keys = MetaSong::getKeysList();
    const quint8 key = script.byte();
    info.key = key < keys.size() ? keys.at(key) : script.text();
    info.isKordia = script.byte() % 2 == 0;
    for (int left = script.byte() % 8; left > 0; --left)
        info.markers.append({script.text(), script.number()});
    return info;
}

/// True for a song that is never written, because no reader accepts so much MIDI data or so large a
/// tag.
bool isTooLargeToSave(const SongInfo &info, const QByteArray &input)
{
    constexpr qsizetype mostAdded = 8192; ///< bytes of the largest record from scriptedInfo()
    if (info.format == QStringLiteral("MP3"))
        return Mp3Header::getId3TagSize(input) + mostAdded > Mp3Header::maxFileStart;
    if (!info.format.startsWith(QStringLiteral("ZB")))
        return false;
    QByteArray midi;
    const bool isExpanded =
        LzHuff().expand(input.mid(info.format == QStringLiteral("ZB5") ? 1024 : 512), midi);
    return isExpanded && midi.size() + mostAdded > LzHuff::maxTextSize;
}

/// Changes the song at \a path, saves it, and requires that the file has the values in memory.
void changeAndSave(const QString &path, const SongInfo &wanted, bool manual)
{
    const QByteArray before = fileBytes(path);
    MetaSong song;
    REQUIRE(song.importFile(path));
    song.setSongInfo(wanted, manual);
    const SongInfo changed = infoOf(song);
    if (!song.saveToFile(path)) {
        REQUIRE(fileBytes(path) == before);
        REQUIRE(isTooLargeToSave(changed, before));
        return;
    }
    requireAllElseKept(before, fileBytes(path));
    REQUIRE(QDir(scratchFolder()).entryList(QDir::Files | QDir::Hidden) == QStringList{songName});

    MetaSong again;
    REQUIRE(again.importFile(path));
    REQUIRE(isSame(infoOf(again), changed));

    // Saved again without a change it is the same file.
    const QByteArray saved = fileBytes(path);
    REQUIRE(again.saveToFile(path) && fileBytes(path) == saved);
    REQUIRE(song.saveToFile(path) && fileBytes(path) == saved);
}

} // namespace

void checkMetaSong(const QByteArray &input)
{
    const QString path = scratchFolder() + u'/' + songName;
    putFile(path, input);
    MetaSong song;
    if (!song.importFile(path)) {
        REQUIRE(!song.saveToFile(path));
        REQUIRE(fileBytes(path) == input);
        return;
    }
    REQUIRE(isSame(infoOf(song), infoOf(MetaSong(song))));
    Script script(input);
    const bool manual = script.byte() % 2 == 0;
    changeAndSave(path, scriptedInfo(script), manual);
    changeAndSave(path, scriptedInfo(script), !manual);
}

} // namespace brisel
