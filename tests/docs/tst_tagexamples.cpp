#include "tests/docs/examples.h"
#include "tests/docs/tagexamples.h"
#include "tests/songfile/songs.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

using namespace brisel;

using namespace Examples;

namespace
{

const QByteArray songAudio = Samples::audio(300);

/// The tag of a song with \a tag after \a change was applied to its record and it was saved by
/// hand.
template <typename Change>
QByteArray changedTag(const QByteArray &tag, Change change)
{
    MetaSong song = Samples::opened(u"tag.mp3"_qs, tag + songAudio);
    SongInfo info = Samples::infoOf(song);
    change(info);
    song.setSongInfo(info, true);
    if (!song.saveToFile(u"tag.mp3"_qs))
        qFatal("not saved");
    const QByteArray saved = fileContent(u"tag.mp3"_qs);
    return saved.endsWith(songAudio) ? saved.chopped(songAudio.size()) : saved;
}

} // namespace

void TestTagExamples::id3Tag()
{
    const QByteArray tag = bytes(u"id3Tag"_qs);
    const QByteArray audio = Samples::audio(300);

    MetaSong written = Samples::opened(u"new.mp3"_qs, audio);
    SongInfo info;
    info.title = u"La"_qs;
    written.setSongInfo(info, true);
    QVERIFY(written.saveToFile(u"new.mp3"_qs));
    QCOMPARE(difference(fileContent(u"new.mp3"_qs), tag + audio), QString());

    Mp3Header read;
    QVERIFY(read.loadHeader(tag + audio));
    QCOMPARE(read.getAudioDataStartPos(), static_cast<unsigned>(tag.size()));
    QCOMPARE(read.title(), u"La"_qs);
    QVERIFY(read.hasBriselEditParam());
}

void TestTagExamples::id3Padded()
{
    Mp3Header read;
    QVERIFY(read.loadHeader(bytes(u"id3Padded"_qs) + songAudio));
    QCOMPARE(read.title(), u"\u03A9"_qs);
    QCOMPARE(read.artist(), QString());
    QCOMPARE(read.stream(), bytes(u"id3Padded"_qs));
}

void TestTagExamples::id3PaddedChanged()
{
    const QByteArray before = bytes(u"id3Padded"_qs);
    const QByteArray told = bytes(u"id3PaddedChanged"_qs);
    const QByteArray tag = changedTag(before, [](SongInfo &info) { info.artist = u"Io"_qs; });
    QCOMPARE(difference(tag, told), QString());
    QCOMPARE(told.size(), before.size());
}

void TestTagExamples::id3Version22()
{
    const QByteArray before = Samples::bytes("ID3\2\0\0\0\0\0\x09TT2\0\0\3\0La");
    const QByteArray told = bytes(u"id3Version22"_qs);
    const QByteArray tag = changedTag(before, [](SongInfo &info) { info.userBpm = 97; });
    QCOMPARE(difference(tag, told), QString());
    Mp3Header read;
    QVERIFY(read.loadHeader(told));
    QCOMPARE(read.title(), u"La"_qs);
    QCOMPARE(read.userBpm(), 97);
}

BRISEL_TEST(QCoreApplication, TestTagExamples)
