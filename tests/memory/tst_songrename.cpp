#include "memory/songrename.h"

#include "base/filedescriptor.h"
#include "index/givennames.h"
#include "index/memoryreasons.h"
#include "memory/memoryclaim.h"
#include "tests/index/handmadeset.h"
#include "tests/index/namesfile.h"
#include "tests/index/setreader.h"
#include "tests/scriptedrun.h"
#include "tests/testprogram.h"

#include <QTest>

#include <optional>

#include <sys/file.h>

using namespace brisel;

using namespace Sample;

namespace
{

const QString songsOfSeven = u"playlist/play0007.dat"_qs;
const QString pathsOfSeven = u"playlist/play0007.pts"_qs;

QByteArray withId(const QByteArray &record, const char *idHex)
{
    return hex(idHex) + record.mid(4);
}

} // namespace

/// A song on a memory gets another name, and everything follows.
class TestSongRename : public QObject
{
    Q_OBJECT

    using Outcome = SongRename::Outcome;

private slots:
    void renamesASongWithItsGraphics();
    void letsPlaylistsFollow();
    void letsPlaylistsFollowAnUntitledSong();
    void followsAccents();
    void followsCharactersThatTheCodePageLacks();
    void findsTheFileByThePathOfTheIndex();
    void renamesNothingThatIsUnclear();
    void renamesNothingBelowAnUnknownFolder();
    void keepsTheLinkFromTheFirstName();
    void changesOnlyLetterCase();
    void saysWhatIsWrong_data();
    void saysWhatIsWrong();
    void allowsAPathOf45Characters();
    void leavesNamesThatPlaylistsHave();
    void hasItsOwnNameBack();
    void refusesABusyMemory();
    void refusesAnInvalidName();
    void replacesNoFileThatCameLater();
    void reportsAMissingFile();
    void renamesWithoutAnIndex();

private:
    SongRename::Outcome rename(const SampleMemory &memory, const QString &name, const QString &base)
    {
        m_run.emplace();
        MemoryContents contents;
        (void)contents.read(memory.root(), *m_run);
        MemoryClaim claim(memory.root());
        return SongRename(memory.root(), contents, memory.path(name)).run(*m_run, claim, base);
    }
    static QString problem(const SampleMemory &memory, const QString &name, const QString &base)
    {
        ScriptedRun run;
        MemoryContents contents;
        (void)contents.read(memory.root(), run);
        return SongRename(memory.root(), contents, memory.path(name)).problem(base);
    }
    QString report() const { return m_run->report().text(); }

    std::optional<ScriptedRun> m_run;
};

void TestSongRename::renamesASongWithItsGraphics()
{
    const HandMadeSet memory;
    memory.write(u"BASI/B.CDG"_qs, "graphics");
    QCOMPARE(rename(memory, u"BASI/B.MP3"_qs, u"NEW"_qs), Outcome::Done);
    QCOMPARE(memory.read(u"BASI/NEW.MP3"_qs), mp3Song("Two", "Bruno", "Rock"));
    QCOMPARE(memory.read(u"BASI/NEW.CDG"_qs), QByteArray("graphics"));
    QVERIFY(!memory.has(u"BASI/B.MP3"_qs));
    QVERIFY(!memory.has(u"BASI/B.CDG"_qs));
    QCOMPARE(m_run->report().counted(RunReport::Success::Renamed), 1);
    QVERIFY(m_run->report().isEmpty());
    const SetReader reader(memory);
    QCOMPARE(reader.problem(), QString());
    QCOMPARE(reader.songCount(), 4);
    QCOMPARE(reader.pathOf(8), QByteArray("/BASI/NEW.MP3"));
    QCOMPARE(memory.read(namesFile), namesHead + lineWith("/BASI B.MP3 NEW.MP3"));
}

void TestSongRename::letsPlaylistsFollow()
{
    const HandMadeSet memory;
    memory.addPlaylist(HandMadeSet::one() + HandMadeSet::two() + HandMadeSet::four());
    memory.write(pathsOfSeven,
                 field("/A.MID", 64) + field("/BASI/B.MP3", 64) + field("/BASI/D.MP3", 64));
    QCOMPARE(rename(memory, u"BASI/B.MP3"_qs, u"NEW"_qs), Outcome::Done);
    QCOMPARE(memory.read(songsOfSeven),
             HandMadeSet::one() + withId(HandMadeSet::two(), "00000008") + HandMadeSet::four());
    QCOMPARE(memory.read(u"playlist/playlist.dat"_qs), field("\x07", 32));
    // A rebuild finds the songs of the path file by their earlier names, too.
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(SetReader(memory).playlist(songsOfSeven),
             (QList<QByteArray>{"/A.MID", "/BASI/NEW.MP3", "/BASI/D.MP3"}));
}

/// Its title is its name.
void TestSongRename::letsPlaylistsFollowAnUntitledSong()
{
    const HandMadeSet memory;
    memory.write(u"PLAIN.MID"_qs, "no song at all");
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    const QByteArray entry = songRecord("00000008", "PLAIN.MID", "7800");
    memory.addPlaylist(entry);
    QCOMPARE(rename(memory, u"PLAIN.MID"_qs, u"Voice"_qs), Outcome::Done);
    QCOMPARE(memory.read(songsOfSeven), songRecord("00000009", "VOICE.MID", "7800"));
}

void TestSongRename::followsAccents()
{
    const HandMadeSet memory;
    memory.addPlaylist(HandMadeSet::one());
    QCOMPARE(rename(memory, u"A.MID"_qs, u"Caff\u00E8"_qs), Outcome::Done);
    QCOMPARE(SetReader(memory).playlist(songsOfSeven), QList<QByteArray>{"/Caff\x8A.MID"});
    QCOMPARE(rename(memory, u"Caff\u00E8.MID"_qs, u"TEA"_qs), Outcome::Done);
    QCOMPARE(SetReader(memory).playlist(songsOfSeven), QList<QByteArray>{"/TEA.MID"});
    QCOMPARE(memory.read(namesFile), namesHead + lineWith("/ A.MID TEA.MID"));
}

/// The index has '?' in the path, which is why the user renames the song.
void TestSongRename::followsCharactersThatTheCodePageLacks()
{
    const HandMadeSet memory;
    memory.write(u"\u042F.MID"_qs, midiSong("Ja", "Anna", "Pop"));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    memory.addPlaylist(songRecord("00000008", "JA", "7800"));
    QCOMPARE(SetReader(memory).playlist(songsOfSeven), QList<QByteArray>{"/?.MID"});
    QCOMPARE(rename(memory, u"\u042F.MID"_qs, u"JA"_qs), Outcome::Done);
    QCOMPARE(SetReader(memory).playlist(songsOfSeven), QList<QByteArray>{"/JA.MID"});
    QVERIFY(m_run->report().isEmpty());
}

void TestSongRename::findsTheFileByThePathOfTheIndex()
{
    const HandMadeSet memory;
    memory.write(u"POP/\u042F.MID"_qs, midiSong("Ja", "Anna", "Pop"));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    memory.addPlaylist(songRecord("00000008", "JA", "7800"));
    QCOMPARE(rename(memory, u"POP/?.MID"_qs, u"JA"_qs), Outcome::Done);
    QVERIFY(memory.has(u"POP/JA.MID"_qs));
    QCOMPARE(SetReader(memory).playlist(songsOfSeven), QList<QByteArray>{"/POP/JA.MID"});
    QVERIFY(QFile::rename(memory.path(u"BASI/B.MP3"_qs), memory.path(u"BASI/b.mp3"_qs)));
    QCOMPARE(rename(memory, u"BASI/B.MP3"_qs, u"NEW"_qs), Outcome::Done);
    QVERIFY(memory.has(u"BASI/NEW.mp3"_qs));
}

void TestSongRename::renamesNothingThatIsUnclear()
{
    const HandMadeSet memory;
    memory.write(u"\u042F.MID"_qs, "a song");
    memory.write(u"\u0416.MID"_qs, "another song");
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(rename(memory, u"?.MID"_qs, u"NEW"_qs), Outcome::Refused);
    QVERIFY(report().contains(SongFiles::unclear.text()));
    QVERIFY(memory.has(u"\u042F.MID"_qs));
    QVERIFY(memory.has(u"\u0416.MID"_qs));
}

/// The given names could not lead a playlist there from the path of the index.
void TestSongRename::renamesNothingBelowAnUnknownFolder()
{
    const HandMadeSet memory;
    memory.write(u"\u042F/A.MID"_qs, "a song");
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    for (const QString &path : {u"?/A.MID"_qs, u"\u042F/A.MID"_qs}) {
        QCOMPARE(rename(memory, path, u"NEW"_qs), Outcome::Refused);
        QVERIFY(report().contains(
            u"una cartella del percorso ha un carattere che Brisel non conosce"_qs));
        QVERIFY(memory.has(u"\u042F/A.MID"_qs));
    }
}

void TestSongRename::keepsTheLinkFromTheFirstName()
{
    const HandMadeSet memory;
    memory.write(u"A long name.mid"_qs, midiSong("Long", "Anna", "Pop"));
    QVERIFY(updateNames(memory));
    QCOMPARE(rename(memory, u"Alongn-1.mid"_qs, u"NEW"_qs), Outcome::Done);
    QCOMPARE(place(memory, u"A long name.mid"_qs), u"NEW.mid"_qs);
    QCOMPARE(memory.read(namesFile), namesHead + lineWith("/ A%20long%20name.mid NEW.mid"));
}

void TestSongRename::changesOnlyLetterCase()
{
    const HandMadeSet memory;
    memory.addPlaylist(HandMadeSet::one());
    QCOMPARE(rename(memory, u"A.MID"_qs, u"a"_qs), Outcome::Done);
    const SetReader reader(memory);
    QCOMPARE(reader.problem(), QString());
    QCOMPARE(reader.playlist(songsOfSeven), QList<QByteArray>{"/a.MID"});
    QVERIFY(!memory.has(namesFile));
}

void TestSongRename::saysWhatIsWrong_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char *tag, const QString &base, const QString &problem,
                        const QString &name = u"BASI/B.MP3"_qs) {
        QTest::newRow(tag) << name << base << problem;
    };
    row("good", u"NEW"_qs, {});
    row("other suffix", u"D"_qs, {}, u"BASI/E.MID"_qs);
    row("empty", u""_qs, u"Scrivere un nome"_qs);
    row("long", u"123456789"_qs, u"Il nome può avere al massimo 8 caratteri"_qs);
    row("forbidden", u"A?"_qs, u"In un nome non è permesso il carattere «?»"_qs);
    row("tab", u"A\t"_qs, u"In un nome non è permesso il carattere «U+0009»"_qs);
    row("unknown", u"Я"_qs, u"Brisel non conosce il carattere «Я»"_qs);
    row("blank", u"A "_qs, u"Il nome non può cominciare o finire con uno spazio"_qs);
    row("reserved", u"con"_qs, u"Questo nome è riservato ai sistemi operativi"_qs);
    row("same", u"B"_qs, u"La song ha già questo nome"_qs);
    row("taken", u"d"_qs, u"Nella cartella c'è già un file con questo nome"_qs);
    row("taken by a folder", u"dir"_qs, u"Nella cartella c'è già un file con questo nome"_qs);
    row("graphics taken", u"c"_qs, u"Nella cartella c'è già un file con questo nome"_qs);
    row("no graphics", u"c"_qs, {}, u"BASI/D.MP3"_qs);
    row("missing song", u"GONE"_qs,
        u"Una playlist contiene ancora una song cancellata con questo nome"_qs);
    row("lost song", u"lost"_qs,
        u"Una playlist contiene ancora una song cancellata con questo nome"_qs);
    row("path", u"1234567"_qs, u"Il percorso della song sulla memoria sarebbe troppo lungo"_qs,
        u"12345678901234567890123456789012345/A.KAR"_qs.left(34) + u"/A.KAR"_qs);
}

void TestSongRename::saysWhatIsWrong()
{
    QFETCH(const QString, name);
    QFETCH(const QString, base);
    QFETCH(const QString, problem);
    const HandMadeSet memory;
    memory.write(u"BASI/B.cdg"_qs, "graphics");
    memory.write(u"BASI/C.cdg"_qs, "graphics");
    memory.write(u"BASI/E.MID"_qs, "a song");
    memory.write(u"BASI/GONE.MP3"_qs, mp3Song("Gone", "Anna", "Pop"));
    QDir().mkpath(memory.path(u"BASI/DIR.MP3"_qs));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    memory.remove(u"BASI/GONE.MP3"_qs);
    MemoryContents contents;
    ScriptedRun run;
    QCOMPARE(contents.read(memory.root(), run), MemoryContents::Outcome::Done);
    QByteArray gone;
    for (qsizetype song = 0; song < contents.size(); ++song) {
        if (contents.title(song) == u"GONE")
            gone = contents.record(song);
    }
    memory.addPlaylist(gone + songRecord("00000099", "LOST", "0001"));
    memory.write(pathsOfSeven, QByteArray(64, '\0') + field("/BASI/LOST.MP3", 64));
    QCOMPARE(TestSongRename::problem(memory, name, base), problem);
}

void TestSongRename::allowsAPathOf45Characters()
{
    const HandMadeSet memory;
    const QString folder = QString(31, u'x');
    memory.write(folder + u"/A.KAR"_qs, "a song");
    QCOMPARE(problem(memory, folder + u"/A.KAR"_qs, u"12345678"_qs), QString());
    QCOMPARE(problem(memory, u"y"_qs + folder + u"/A.KAR"_qs, u"12345678"_qs),
             u"Il percorso della song sulla memoria sarebbe troppo lungo"_qs);
}

/// The new song would be played in place of the one that is gone.
void TestSongRename::leavesNamesThatPlaylistsHave()
{
    const HandMadeSet memory;
    memory.addPlaylist(HandMadeSet::two());
    memory.remove(u"BASI/B.MP3"_qs);
    QCOMPARE(rename(memory, u"BASI/D.MP3"_qs, u"B"_qs), Outcome::Refused);
    QVERIFY(memory.has(u"BASI/D.MP3"_qs));
    QVERIFY(report().contains(SongRename::invalidName.text()));
}

void TestSongRename::hasItsOwnNameBack()
{
    const HandMadeSet memory;
    memory.addPlaylist(HandMadeSet::two());
    memory.write(pathsOfSeven, field("/BASI/B.MP3", 64));
    QCOMPARE(rename(memory, u"BASI/B.MP3"_qs, u"NEW"_qs), Outcome::Done);
    QCOMPARE(rename(memory, u"BASI/NEW.MP3"_qs, u"B"_qs), Outcome::Done);
    QCOMPARE(SetReader(memory).playlist(songsOfSeven), QList<QByteArray>{"/BASI/B.MP3"});
    QVERIFY(!memory.has(u".brisel2pc"_qs));
}

void TestSongRename::refusesABusyMemory()
{
    const HandMadeSet memory;
    const FileDescriptor folder = FileDescriptor::openFolder(memory.root());
    QCOMPARE(::flock(folder.get(), LOCK_EX), 0);
    QCOMPARE(rename(memory, u"A.MID"_qs, u"NEW"_qs), Outcome::Refused);
    QVERIFY(memory.has(u"A.MID"_qs));
    QVERIFY(report().contains(MemoryReason::inUse.text()));
}

void TestSongRename::refusesAnInvalidName()
{
    const HandMadeSet memory;
    const auto files = memory.rootFiles();
    for (const QString &base : {u"../A"_qs, u""_qs, u"A"_qs, u"title.id2"_qs, u"123456789"_qs})
        QCOMPARE(rename(memory, u"A.MID"_qs, base), Outcome::Refused);
    QCOMPARE(memory.rootFiles(), files);
    QVERIFY(!memory.has(namesFile));
}

void TestSongRename::replacesNoFileThatCameLater()
{
    const HandMadeSet memory;
    ScriptedRun run;
    MemoryContents contents;
    QCOMPARE(contents.read(memory.root(), run), MemoryContents::Outcome::Done);
    SongRename work(memory.root(), contents, memory.path(u"A.MID"_qs));
    memory.write(u"NEW.MID"_qs, "another song");
    MemoryClaim claim(memory.root());
    QCOMPARE(work.run(run, claim, u"NEW"_qs), Outcome::Refused);
    QCOMPARE(memory.read(u"NEW.MID"_qs), QByteArray("another song"));
    QVERIFY(memory.has(u"A.MID"_qs));
    QVERIFY(run.report().text().contains(SongRename::unchangeable.text()));
}

void TestSongRename::reportsAMissingFile()
{
    const HandMadeSet memory;
    memory.remove(u"A.MID"_qs);
    QCOMPARE(rename(memory, u"A.MID"_qs, u"NEW"_qs), Outcome::Refused);
    QVERIFY(report().contains(u"il file non esiste"_qs));
}

void TestSongRename::renamesWithoutAnIndex()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, midiSong("One", "Anna", "Pop"));
    QCOMPARE(rename(memory, u"A.MID"_qs, u"NEW"_qs), Outcome::Done);
    QCOMPARE(memory.rootFiles().keys(), QStringList{u"NEW.MID"_qs});
}

BRISEL_TEST(QApplication, TestSongRename)

#include "tst_songrename.moc"
