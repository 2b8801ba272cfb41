#include "index/givennames.h"
#include "tests/index/namesfile.h"
#include "tests/scriptedindex.h"

using namespace brisel;

using namespace Sample;

namespace
{

void move(const SampleMemory &memory, const QString &from, const QString &to)
{
    QDir().mkpath(memory.path(to).section(u'/', 0, -2));
    if (!QFile::rename(memory.path(from), memory.path(to)))
        qFatal("can't move %s", qPrintable(from));
}

} // namespace

/// The long names that a memory's songs had before they were shortened.
class TestGivenNames : public QObject
{
    Q_OBJECT

private slots:
    void remembersEachName();
    void keepsThemOverRuns();
    void findsTheFileOfALongName();
    void ignoresLetterCase();
    void mistakesNoNameThatTheCodePageLacks();
    void prefersWhatStandsUnderTheLongName();
    void takesTheNewestOfTwoNames();
    void forgetsWhoHadANameBefore();
    void followsPaths();
    void followsSongsMovedByHand();
    void followsAFolderRenamedByHand();
    void guessesNothingWhereSeveralCouldBeMeant();
    void forgetsDeletedSongs();
    void forgetsNothingInAClosedFolder();
    void followsASongMovedIntoAClosedFolder();
    void writesNothingWhereNothingChanged();
};

void TestGivenNames::remembersEachName()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    memory.write(u"Summer hits.2009/It's a song.mp3"_qs, mp3Song("Title", "Artist", "Genre"));
    memory.write(u"Summer hits.2009/It's a song.cdg"_qs, "graphics");
    QVERIFY(updateNames(memory));
    QCOMPARE(memory.read(namesFile), QByteArray("brisel2pc names 1\n"
                                                "2a0c6b3c / A%20long%20name.mid Alongn-1.mid\n"
                                                "5305ba3b / Summer%20hits.2009 Summer-1\n"
                                                "a701f47a /Summer-1 It%27s%20a%20song.mp3 "
                                                "Itsaso-1.mp3\n"));
    QCOMPARE(QDir(memory.path(u".brisel2pc"_qs)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{u"names"_qs});
}

void TestGivenNames::keepsThemOverRuns()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    const QByteArray names = memory.read(namesFile);
    memory.write(u"B.MID"_qs, anySong);
    QVERIFY(updateNames(memory));
    QCOMPARE(memory.read(namesFile), names);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(namesFile), names);
    memory.write(u".brisel2pc/title.id2"_qs, "of a run that was cut");
    QVERIFY(updateNames(memory));
    QCOMPARE(memory.read(namesFile), names);
    QVERIFY(!memory.has(u".brisel2pc/title.id2"_qs));
}

void TestGivenNames::findsTheFileOfALongName()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    memory.write(u"A long namesake.mid"_qs, anySong);
    memory.write(u"POP/A long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    QCOMPARE(place(memory, u"A long name.mid"_qs), u"Alongn-1.mid"_qs);
    QCOMPARE(place(memory, u"A long namesake.mid"_qs), u"Alongn-2.mid"_qs);
    QCOMPARE(place(memory, u"POP/A long name.mid"_qs), u"POP/Alongn-1.mid"_qs);
    QCOMPARE(place(memory, u"A long name.kar"_qs), u"A long name.kar"_qs);
    QCOMPARE(place(memory, u"none/A long name.mid"_qs), u"none/A long name.mid"_qs);
    GivenNames names;
    names.setRoot(memory.root());
    QVERIFY(names.load());
    QVERIFY(names.isKnown(memory.path(u"ALONGN-2.MID"_qs)));
    QVERIFY(!names.isKnown(memory.path(u"Alongn-3.mid"_qs)));
    QVERIFY(!names.isKnown(memory.path(u"none/Alongn-1.mid"_qs)));
}

void TestGivenNames::ignoresLetterCase()
{
    const SampleMemory memory;
    memory.write(u"\u00C9t\u00E9 long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    QCOMPARE(place(memory, u"\u00C9t\u00E9 long name.mid"_qs), u"\u00C9t\u00E9lon-1.mid"_qs);
    QCOMPARE(place(memory, u"\u00E9t\u00C9 LONG NAME.MID"_qs), u"\u00C9t\u00E9lon-1.mid"_qs);
    QCOMPARE(place(memory, u"Ete long name.mid"_qs), u"Ete long name.mid"_qs);
}

void TestGivenNames::mistakesNoNameThatTheCodePageLacks()
{
    const SampleMemory memory;
    memory.write(u"\u042F\u042F\u042F\u042F\u042F\u042F\u042F\u042F\u042F.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    const QString other = u"\u0416\u0416\u0416\u0416\u0416\u0416\u0416\u0416\u0416.mid"_qs;
    QCOMPARE(place(memory, other), other);
    QCOMPARE(place(memory, u"\u044F\u042F\u042F\u042F\u042F\u042F\u042F\u042F\u042F.mid"_qs),
             u"\u042F\u042F\u042F\u042F\u042F\u042F-1.mid"_qs);
}

void TestGivenNames::prefersWhatStandsUnderTheLongName()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    memory.write(u"A long name.mid"_qs, anySong);
    QCOMPARE(place(memory, u"A long name.mid"_qs), u"A long name.mid"_qs);
    memory.remove(u"A long name.mid"_qs);
    memory.remove(u"Alongn-1.mid"_qs);
    QCOMPARE(place(memory, u"A long name.mid"_qs), u"A long name.mid"_qs);
}

/// The memory got another song of that name while the first one was in place.
void TestGivenNames::takesTheNewestOfTwoNames()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    memory.write(u"A long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    QVERIFY(memory.has(u"Alongn-1.mid"_qs));
    QCOMPARE(place(memory, u"A long name.mid"_qs), u"Alongn-2.mid"_qs);
}

void TestGivenNames::forgetsWhoHadANameBefore()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    memory.remove(u"Alongn-1.mid"_qs);
    memory.write(u"A long night.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    QCOMPARE(place(memory, u"A long night.mid"_qs), u"Alongn-1.mid"_qs);
    QCOMPARE(place(memory, u"A long name.mid"_qs), u"A long name.mid"_qs);
    QCOMPARE(memory.read(namesFile), namesHead + lineWith("/ A%20long%20night.mid Alongn-1.mid"));
}

void TestGivenNames::followsPaths()
{
    const SampleMemory memory;
    memory.write(u"Long folder/Deep folder/A long name.mid"_qs, anySong);
    memory.write(u"Long folder/B.MID"_qs, anySong);
    QVERIFY(updateNames(memory));
    GivenNames names;
    names.setRoot(memory.root());
    QCOMPARE(names.follow(u"/Long folder/B.MID"_qs), u"/Long folder/B.MID"_qs);
    QVERIFY(names.load());
    QCOMPARE(names.follow(u"/Long folder/B.MID"_qs), u"/Longfo-1/B.MID"_qs);
    QCOMPARE(names.follow(u"/LONG FOLDER/Deep folder/A long name.mid"_qs),
             u"/Longfo-1/Deepfo-1/Alongn-1.mid"_qs);
    QCOMPARE(names.follow(u"/Longfo-1/Deep folder/B.MID"_qs), u"/Longfo-1/Deepfo-1/B.MID"_qs);
    QCOMPARE(names.follow(u"/Other/A long name.mid"_qs), u"/Other/A long name.mid"_qs);
}

void TestGivenNames::followsSongsMovedByHand()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    move(memory, u"Alongn-1.mid"_qs, u"POP/ALONGN-1.MID"_qs);
    QVERIFY(updateNames(memory));
    QCOMPARE(place(memory, u"POP/A long name.mid"_qs), u"POP/ALONGN-1.MID"_qs);
    QCOMPARE(place(memory, u"A long name.mid"_qs), u"A long name.mid"_qs);
    QCOMPARE(memory.read(namesFile), namesHead + lineWith("/POP A%20long%20name.mid ALONGN-1.MID"));
}

void TestGivenNames::followsAFolderRenamedByHand()
{
    const SampleMemory memory;
    memory.write(u"POP/A long name.mid"_qs, anySong);
    memory.write(u"POP/B long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    QVERIFY(QDir(memory.root()).rename(u"POP"_qs, u"ROCK"_qs));
    QVERIFY(updateNames(memory));
    QCOMPARE(place(memory, u"ROCK/A long name.mid"_qs), u"ROCK/Alongn-1.mid"_qs);
    QCOMPARE(place(memory, u"ROCK/B long name.mid"_qs), u"ROCK/Blongn-1.mid"_qs);
}

void TestGivenNames::guessesNothingWhereSeveralCouldBeMeant()
{
    const SampleMemory memory;
    for (const QString &name :
         {u"1/A long name.mid"_qs, u"2/A long name.mid"_qs, u"3/B lone name.mid"_qs})
        memory.write(name, anySong);
    QVERIFY(updateNames(memory));
    move(memory, u"1/Alongn-1.mid"_qs, u"4/Alongn-1.mid"_qs);
    move(memory, u"2/Alongn-1.mid"_qs, u"5/Alongn-1.mid"_qs);
    memory.write(u"4/Blonen-1.mid"_qs, anySong);
    move(memory, u"3/Blonen-1.mid"_qs, u"5/Blonen-1.mid"_qs);
    QVERIFY(updateNames(memory));
    QCOMPARE(memory.read(namesFile), QByteArray("<missing>"));
}

void TestGivenNames::forgetsDeletedSongs()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    memory.write(u"B long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    memory.remove(u"Alongn-1.mid"_qs);
    QVERIFY(updateNames(memory));
    QCOMPARE(memory.read(namesFile), namesHead + lineWith("/ B%20long%20name.mid Blongn-1.mid"));
    memory.remove(u"Blongn-1.mid"_qs);
    memory.write(u"C.MID"_qs, anySong);
    QVERIFY(updateNames(memory));
    QVERIFY(!memory.has(u".brisel2pc"_qs));
}

/// Not even root can look up a name that is too long.
void TestGivenNames::forgetsNothingInAClosedFolder()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    QVERIFY(QFile::link(memory.path(u"POP"_qs), memory.path(u"POP"_qs)));
    const QByteArray names = namesHead + lineWith("/POP A%20long%20name.mid Alongn-1.mid");
    memory.write(namesFile, names);
    QVERIFY(updateNames(memory));
    QCOMPARE(memory.read(namesFile), names);
}

void TestGivenNames::followsASongMovedIntoAClosedFolder()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    QVERIFY(QFile::link(memory.path(u"POP"_qs), memory.path(u"POP"_qs)));
    const QByteArray names = namesHead + lineWith("/ A%20long%20name.mid Alongn-1.mid");
    memory.write(namesFile, names);
    QVERIFY(updateNames(memory));
    QCOMPARE(memory.read(namesFile), names);
    memory.remove(u"POP"_qs);
    memory.write(u"POP/Alongn-1.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    QCOMPARE(place(memory, u"POP/A long name.mid"_qs), u"POP/Alongn-1.mid"_qs);
}

void TestGivenNames::writesNothingWhereNothingChanged()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    const auto inode = [&memory] { return fileState(memory.path(namesFile)); };
    const FileState before = inode();
    memory.write(u"B.MID"_qs, anySong);
    QVERIFY(updateNames(memory));
    QCOMPARE(memory.read(namesFile), namesHead + lineWith("/ A%20long%20name.mid Alongn-1.mid"));
    QVERIFY(inode() == before);
}

BRISEL_TEST(QApplication, TestGivenNames)
#include "tst_givennames.moc"
