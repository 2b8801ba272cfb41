#include "tests/songfile/songsavingtest.h"

using namespace brisel;

using namespace Samples;
using namespace Qt::StringLiterals;

namespace
{

const QByteArray note = Samples::bytes("\x00\x90\x3C\x40\x60\x80\x3C\x40");

/// Opens the song under \a name and changes nothing but the author.
MetaSong withNewAuthor(const QString &name)
{
    MetaSong song;
    if (!song.importFile(name))
        qFatal("refused: %s", qPrintable(name));
    SongInfo info;
    song.getSongInfo(info);
    info.author = u"Author"_s;
    song.setSongInfo(info, true);
    return song;
}

SongInfo infoIn(const QString &name)
{
    MetaSong song;
    SongInfo info;
    if (song.importFile(name))
        song.getSongInfo(info);
    return info;
}

void setModified(const QString &name, const struct timespec &time)
{
    const struct timespec times[] = {time, time};
    QCOMPARE(::utimensat(AT_FDCWD, QFile::encodeName(name).constData(), times, 0), 0);
}

struct timespec modifiedOf(const QString &name)
{
    struct stat entry {
    };
    if (::stat(QFile::encodeName(name).constData(), &entry) != 0)
        qFatal("no such file");
    return entry.st_mtim;
}

} // namespace

/// Songs that another program changes between import and save.
class TestSongChanged : public SongSavingTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void keepsTheAudioAfterALargerTag();
    void keepsTheAudioAfterASmallerTag();
    void keepsAudioThatWasAppended();
    void makesTheSameChangeAgain_data();
    void makesTheSameChangeAgain();
    void makesASynchronisationAgain();
    void noticesAChangeThatKeepsSizeAndTime();
    void treatsAnEqualFileAsTheSame();
    void takesChangedMusicWithItsNames();
    void refusesAnotherSong_data();
    void refusesAnotherSong();
    void refusesAnotherFormat();
    void refusesAFileThatIsGone();
    void savesAgainAfterItsOwnSave();
    void takesTheAudioOfTheFileThatIsSavedTo();
};

void TestSongChanged::keepsTheAudioAfterALargerTag()
{
    const QByteArray audio = Samples::audio(300 * 417);
    writeSong(u"a.mp3"_s, tag(frame("TIT2", "Old")) + audio);
    MetaSong song = withNewAuthor(u"a.mp3"_s);
    const QByteArray picture = frame("APIC", QByteArray(50000, 'p'));
    writeSong(u"a.mp3"_s, tag(frame("TIT2", "Old") + picture) + audio);
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QVERIFY(Samples::read(u"a.mp3"_s) ==
            tag(frame("MEDT", QByteArray(3, '\0')) + frame("TCOM", "Author") +
                frame("TIT2", "Old") + picture) +
                audio);
}

void TestSongChanged::keepsTheAudioAfterASmallerTag()
{
    const QByteArray audio = Samples::audio(300 * 417);
    writeSong(u"a.mp3"_s,
              tag(frame("TIT2", "Old") + frame("APIC", QByteArray(50000, 'p'))) + audio);
    MetaSong song = withNewAuthor(u"a.mp3"_s);
    writeSong(u"a.mp3"_s, tag(frame("TIT2", "Old")) + audio);
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QVERIFY(Samples::read(u"a.mp3"_s) == tag(frame("MEDT", QByteArray(3, '\0')) +
                                             frame("TCOM", "Author") + frame("TIT2", "Old")) +
                                             audio);
}

void TestSongChanged::keepsAudioThatWasAppended()
{
    writeSong(u"a.mp3"_s, tag(frame("TIT2", "Old")) + Samples::audio(5000));
    MetaSong song = withNewAuthor(u"a.mp3"_s);
    writeSong(u"a.mp3"_s, tag(frame("TIT2", "Old")) + Samples::audio(5000) + "TAG");
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QVERIFY(Samples::read(u"a.mp3"_s).endsWith(Samples::audio(5000) + "TAG"));
}

void TestSongChanged::makesTheSameChangeAgain_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("read");
    QTest::addColumn<QByteArray>("present");
    const QByteArray audio = Samples::audio(9000);
    QTest::newRow("MP3") << u"a.mp3"_s << QByteArray(tag(frame("TIT2", "Old")) + audio)
                         << QByteArray(tag(frame("TIT2", "Theirs")) + audio);
    QTest::newRow("MP3 that had no tag")
        << u"a.mp3"_s << audio << QByteArray(tag(frame("TIT2", "Theirs")) + audio);
    QTest::newRow("MIDI") << u"a.mid"_s << midi(metaEvent(3, "Old"))
                          << midi(metaEvent(3, "Theirs"));
    QTest::newRow("container")
        << u"a.zb3"_s << Samples::container(Samples::containerHeader("_ZB3", 512), midi())
        << Samples::container(Samples::containerHeader("_ZB3", 512).replace(122, 6, "Theirs"),
                              midi());
}

void TestSongChanged::makesTheSameChangeAgain()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, read);
    QFETCH(const QByteArray, present);
    writeSong(name, read);
    MetaSong song = withNewAuthor(name);
    writeSong(name, present);
    QVERIFY(song.saveToFile(name));
    QCOMPARE(infoIn(name).author, u"Author"_s);
    QCOMPARE(infoIn(name).title, u"Theirs"_s); // a field that was not edited keeps their value
    QCOMPARE(song.trouble(), MetaSong::Trouble::None);
    // The saved bytes are the same as when their file is opened and changed.
    const QByteArray saved = Samples::read(name);
    writeSong(name, present);
    QVERIFY(withNewAuthor(name).saveToFile(name));
    QVERIFY(Samples::read(name) == saved);
}

void TestSongChanged::makesASynchronisationAgain()
{
    writeSong(u"a.mid"_s, midi(metaEvent(3, "Song")));
    MetaSong song;
    QVERIFY(song.importFile(u"a.mid"_s));
    SongInfo info;
    song.getSongInfo(info);
    info.genre = u"Genre"_s;
    info.artist = u"Artist"_s;
    song.setSongInfo(info, false);
    const QByteArray theirs = midi(metaEvent(3, "Song") + Samples::kordiaEvent(1, "Their genre"));
    writeSong(u"a.mid"_s, theirs);
    QVERIFY(song.saveToFile(u"a.mid"_s));
    QCOMPARE(infoIn(u"a.mid"_s).genre, u"Their genre"_s);
    QCOMPARE(infoIn(u"a.mid"_s).artist, u"Artist"_s);
}

void TestSongChanged::noticesAChangeThatKeepsSizeAndTime()
{
    // Memories store times in steps of two seconds.
    for (const QString &name : {u"a.mid"_s, u"a.mp3"_s}) {
        writeSong(name, oldSong(name));
        const struct timespec time = modifiedOf(name);
        MetaSong song = withNewAuthor(name);
        writeSong(name, oldSong(name).replace("Old", "Two"));
        setModified(name, time);
        QVERIFY(song.saveToFile(name));
        QCOMPARE(infoIn(name).title, u"Two"_s);
        QCOMPARE(infoIn(name).author, u"Author"_s);
    }
}

void TestSongChanged::treatsAnEqualFileAsTheSame()
{
    for (const QString &name : {u"a.mid"_s, u"a.mp3"_s, u"a.zb3"_s}) {
        writeSong(name, oldSong(name));
        MetaSong song = withNewAuthor(name);
        writeSong(u"copy"_s, oldSong(name));
        QVERIFY(QFile::remove(name) && QFile::rename(u"copy"_s, name));
        QVERIFY(song.saveToFile(name));
        QCOMPARE(infoIn(name).author, u"Author"_s);
    }
}

void TestSongChanged::takesChangedMusicWithItsNames()
{
    writeSong(u"a.mid"_s, midi(metaEvent(3, "Song") + Samples::kordiaEvent(2, "Artist") + note));
    MetaSong song = withNewAuthor(u"a.mid"_s);
    writeSong(u"a.mid"_s,
              midi(metaEvent(3, "Song") + Samples::kordiaEvent(2, "Artist") + note + note));
    QVERIFY(song.saveToFile(u"a.mid"_s));
    QVERIFY(Samples::read(u"a.mid"_s).contains(note + note));
    QCOMPARE(infoIn(u"a.mid"_s).author, u"Author"_s);
}

void TestSongChanged::refusesAnotherSong_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("other");
    QTest::newRow("MIDI") << u"a.mid"_s << midi(metaEvent(3, "Other") + note);
    QTest::newRow("container")
        << u"a.zb3"_s
        << Samples::container(Samples::containerHeader("_ZB3", 512).replace(122, 5, "Other"),
                              midi(note));
    QTest::newRow("MP3") << u"a.mp3"_s
                         << QByteArray(tag(frame("TIT2", "Other")) +
                                       QByteArray(Samples::audio(9000)).replace(40, 4, "else"));
    QTest::newRow("MP3 of the same size")
        << u"a.mp3"_s
        << QByteArray(tag(frame("TIT2", "Other")) +
                      QByteArray(Samples::audio(250000)).replace(40, 4, "else"));
    QTest::newRow("MP3 without a tag")
        << u"a.mp3"_s << QByteArray(Samples::audio(9000)).replace(40, 4, "else");
    QTest::newRow("too little audio to know it") << u"a.mp3"_s << Samples::audio(20);
    QTest::newRow("no song") << u"a.mid"_s << QByteArray("no song at all");
}

void TestSongChanged::refusesAnotherSong()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, other);
    writeSong(name, oldSong(name));
    MetaSong song = withNewAuthor(name);
    writeSong(name, other);
    m_log->clear();
    QVERIFY(!song.saveToFile(name));
    QCOMPARE(song.trouble(), MetaSong::Trouble::ChangedMeanwhile);
    QVERIFY(Samples::read(name) == other);
    QCOMPARE(entries(), QStringList{name});
    const QString message = other.size() < 30 && name.endsWith(u"mp3"_s)
                                ? u"[MetaSong::saveToFile] Impossible to seek file. "_s
                                : u"[MetaSong::saveToFile] The file was changed meanwhile. "
                                  "Aborting! "_s;
    QVERIFY(m_log->messages().contains(message));
}

void TestSongChanged::refusesAnotherFormat()
{
    writeSong(u"a.mid"_s, oldSong(u"a.mid"_s));
    MetaSong song = withNewAuthor(u"a.mid"_s);
    const QByteArray other = midi(metaEvent(3, "Old"), 1);
    writeSong(u"a.mid"_s, other);
    QVERIFY(!song.saveToFile(u"a.mid"_s));
    QCOMPARE(Samples::read(u"a.mid"_s), other);
}

void TestSongChanged::refusesAFileThatIsGone()
{
    for (const QString &name : {u"a.mid"_s, u"a.mp3"_s, u"a.zb3"_s}) {
        writeSong(name, oldSong(name));
        MetaSong song = withNewAuthor(name);
        QVERIFY(QFile::remove(name));
        QVERIFY(!song.saveToFile(name));
        QVERIFY(entries().isEmpty());
    }
}

void TestSongChanged::savesAgainAfterItsOwnSave()
{
    for (const QString &name : {u"a.mid"_s, u"a.mp3"_s, u"a.zb3"_s}) {
        writeSong(name, oldSong(name));
        MetaSong song = withNewAuthor(name);
        QVERIFY(song.saveToFile(name));
        SongInfo info = infoIn(name);
        info.genre = u"Genre"_s;
        song.setSongInfo(info, true);
        QVERIFY(song.saveToFile(name));
        QCOMPARE(infoIn(name).genre, u"Genre"_s);
        QCOMPARE(infoIn(name).author, u"Author"_s);
        QCOMPARE(song.trouble(), MetaSong::Trouble::None);
    }
}

void TestSongChanged::takesTheAudioOfTheFileThatIsSavedTo()
{
    writeSong(u"a.mp3"_s, tag(frame("TIT2", "Old")) + Samples::audio(500));
    const QByteArray audio = Samples::audio(900);
    writeSong(u"b.mp3"_s, tag(frame("TIT2", "A title of another length")) + audio);
    MetaSong song = withNewAuthor(u"a.mp3"_s);
    QVERIFY(song.saveToFile(u"b.mp3"_s));
    QCOMPARE(Samples::read(u"b.mp3"_s), tag(frame("MEDT", QByteArray(3, '\0')) +
                                            frame("TCOM", "Author") + frame("TIT2", "Old")) +
                                            audio);
}

BRISEL_TEST(QCoreApplication, TestSongChanged)
#include "tst_songchanged.moc"
