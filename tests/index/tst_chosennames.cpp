#include "index/chosennames.h"
#include "index/memoryrenames.h"
#include "tests/index/namesfile.h"

using namespace brisel;

using namespace Sample;
using ChosenNames::Problem;

/// The names that the user chooses for the songs of a memory, and how the memory keeps them.
class TestChosenNames : public QObject
{
    Q_OBJECT

private slots:
    void findsWhatIsWrong_data();
    void findsWhatIsWrong();
    void namesTheWrongCharacter();
    void keepsTheSuffix();
    void followsASongToItsChosenName();
    void followsSeveralNames();
    void keepsTheFirstAndTheLastName();
    void followsLetterCase();
    void forgetsASongThatHasItsFirstNameAgain();
    void ignoresANameThatWasNotGiven();
    void endsWhereNamesLeadInACircle();
    void followsAtMostSixteenNames();
    void forgetsAChosenNameMovedByHand();

private:
    /// Renames a song as the user would, with a line in the file of the names.
    static void rename(const SampleMemory &memory, const QString &from, const QString &to)
    {
        GivenNames names;
        names.setRoot(memory.root());
        (void)names.load();
        MemoryRenames renames;
        renames.setRoot(memory.root(), names);
        QVERIFY(renames.rename(memory.root(), {{from, to}}));
        QVERIFY(renames.flush());
    }
    static QString followed(const SampleMemory &memory, const QString &path)
    {
        GivenNames names;
        names.setRoot(memory.root());
        (void)names.load();
        return names.follow(path);
    }
};

void TestChosenNames::findsWhatIsWrong_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<int>("problem");
    const auto row = [](const char *name, const QString &base, Problem problem) {
        QTest::newRow(name) << base << int(problem);
    };
    row("good", u"VOLARE"_qs, Problem::None);
    row("eight", u"12345678"_qs, Problem::None);
    row("accents", u"È già"_qs, Problem::None);
    row("signs", u"A-B's+_~"_qs, Problem::None);
    row("empty", u""_qs, Problem::Empty);
    row("nine", u"123456789"_qs, Problem::TooLong);
    row("question mark", u"VOL?"_qs, Problem::Forbidden);
    row("slash", u"A/B"_qs, Problem::Forbidden);
    row("point", u"A.B"_qs, Problem::Forbidden);
    row("tab", u"A\tB"_qs, Problem::Forbidden);
    row("delete", u"A\u007FB"_qs, Problem::Forbidden);
    row("colon", u"A:"_qs, Problem::Forbidden);
    row("cyrillic", u"Я"_qs, Problem::NotInPlayer);
    row("euro", u"5 €"_qs, Problem::NotInPlayer);
    row("clef", u"\U0001D11E"_qs, Problem::NotInPlayer);
    row("cyrillic first", u"Я?"_qs, Problem::NotInPlayer);
    row("combined", u"E\u0301"_qs, Problem::NotInPlayer);
    row("blank first", u" A"_qs, Problem::Edge);
    row("blank last", u"A "_qs, Problem::Edge);
    row("device", u"nul"_qs, Problem::Reserved);
    row("port", u"Com9"_qs, Problem::Reserved);
    row("printer port", u"LPT1"_qs, Problem::Reserved);
    row("no port", u"COM0"_qs, Problem::None);
    row("longer than a device", u"CONGA"_qs, Problem::None);
}

void TestChosenNames::findsWhatIsWrong()
{
    QFETCH(const QString, base);
    QFETCH(const int, problem);
    QCOMPARE(int(ChosenNames::problemOf(base)), problem);
    QCOMPARE(ChosenNames::isAllowed(base + u".mid"_qs), problem == int(Problem::None));
}

void TestChosenNames::namesTheWrongCharacter()
{
    QCOMPARE(ChosenNames::wrongCharacter(u"VOLARE"_qs), QString());
    QCOMPARE(ChosenNames::wrongCharacter(u"A:?"_qs), u":"_qs);
    QCOMPARE(ChosenNames::wrongCharacter(u"caffè Я"_qs), u"Я"_qs);
    QCOMPARE(ChosenNames::wrongCharacter(u"a\U0001D11E"_qs), u"\U0001D11E"_qs);
}

void TestChosenNames::keepsTheSuffix()
{
    QVERIFY(ChosenNames::canChoose(u"A long name.mid"_qs, u"SHORT.mid"_qs));
    QVERIFY(!ChosenNames::canChoose(u"A long name.mid"_qs, u"SHORT.MID"_qs));
    QVERIFY(!ChosenNames::canChoose(u"A long name.mid"_qs, u"SHORT.kar"_qs));
    QVERIFY(!ChosenNames::canChoose(u"A long name"_qs, u"SHORT"_qs));
    QVERIFY(!ChosenNames::canChoose(u"index.id2"_qs, u"other.id2"_qs));
    QVERIFY(!ChosenNames::canChoose(u"song.mid"_qs, u"SONG.mid"_qs));
}

void TestChosenNames::followsASongToItsChosenName()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    rename(memory, u"A long name.mid"_qs, u"VOLARE.mid"_qs);
    QCOMPARE(memory.read(namesFile), namesHead + lineWith("/ A%20long%20name.mid VOLARE.mid"));
    QCOMPARE(place(memory, u"A long name.mid"_qs), u"VOLARE.mid"_qs);
    QCOMPARE(followed(memory, u"/A long name.mid"_qs), u"/VOLARE.mid"_qs);
}

/// Until the next run is finished, playlists name a song by any of its earlier names.
void TestChosenNames::followsSeveralNames()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    rename(memory, u"Alongn-1.mid"_qs, u"ONE.mid"_qs);
    rename(memory, u"ONE.mid"_qs, u"TWO.mid"_qs);
    for (const QString &name : {u"A long name.mid"_qs, u"Alongn-1.mid"_qs, u"ONE.mid"_qs})
        QCOMPARE(followed(memory, u'/' + name), u"/TWO.mid"_qs);
    QCOMPARE(place(memory, u"A long name.mid"_qs), u"TWO.mid"_qs);
}

void TestChosenNames::keepsTheFirstAndTheLastName()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    rename(memory, u"Alongn-1.mid"_qs, u"ONE.mid"_qs);
    rename(memory, u"ONE.mid"_qs, u"TWO.mid"_qs);
    QVERIFY(updateNames(memory));
    QCOMPARE(memory.read(namesFile), namesHead + lineWith("/ A%20long%20name.mid TWO.mid"));
    // The short name is free, and may become that of another song.
    memory.write(u"A long night.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    QCOMPARE(place(memory, u"A long night.mid"_qs), u"Alongn-1.mid"_qs);
    QCOMPARE(place(memory, u"A long name.mid"_qs), u"TWO.mid"_qs);
}

void TestChosenNames::followsLetterCase()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    rename(memory, u"Alongn-1.mid"_qs, u"ALONGN-1.mid"_qs);
    QVERIFY(updateNames(memory));
    QCOMPARE(memory.read(namesFile), namesHead + lineWith("/ A%20long%20name.mid ALONGN-1.mid"));
    QCOMPARE(place(memory, u"A long name.mid"_qs), u"ALONGN-1.mid"_qs);
    // The line keeps its own file if there is one.
    memory.write(u"alongn-1.mid"_qs, anySong);
    QVERIFY(updateNames(memory));
    QCOMPARE(place(memory, u"A long name.mid"_qs), u"ALONGN-1.mid"_qs);
}

void TestChosenNames::forgetsASongThatHasItsFirstNameAgain()
{
    const SampleMemory memory;
    memory.write(u"ONE.mid"_qs, anySong);
    rename(memory, u"ONE.mid"_qs, u"TWO.mid"_qs);
    rename(memory, u"TWO.mid"_qs, u"ONE.mid"_qs);
    QCOMPARE(followed(memory, u"/TWO.mid"_qs), u"/ONE.mid"_qs);
    QCOMPARE(followed(memory, u"/ONE.mid"_qs), u"/ONE.mid"_qs);
    QVERIFY(updateNames(memory));
    QVERIFY(!memory.has(namesFile));
}

/// The line is written before the name is changed, and that may have failed.
void TestChosenNames::ignoresANameThatWasNotGiven()
{
    const SampleMemory memory;
    memory.write(u"Alongn-1.mid"_qs, anySong);
    const QByteArray first = lineWith("/ A%20long%20name.mid Alongn-1.mid");
    memory.write(namesFile, namesHead + first + lineWith("/ Alongn-1.mid ONE.mid"));
    QCOMPARE(place(memory, u"A long name.mid"_qs), u"Alongn-1.mid"_qs);
    QVERIFY(updateNames(memory));
    QCOMPARE(memory.read(namesFile), namesHead + first);
}

void TestChosenNames::endsWhereNamesLeadInACircle()
{
    const SampleMemory memory;
    memory.write(u"OTHER.mid"_qs, anySong);
    memory.write(namesFile, namesHead + lineWith("/ ONE.mid TWO.mid") +
                                lineWith("/ TWO.mid THREE.mid") + lineWith("/ THREE.mid ONE.mid"));
    QCOMPARE(followed(memory, u"/ONE.mid"_qs), u"/ONE.mid"_qs);
    QVERIFY(updateNames(memory));
    QVERIFY(!memory.has(namesFile));
}

void TestChosenNames::followsAtMostSixteenNames()
{
    for (const int names : {16, 17}) {
        const SampleMemory memory;
        QByteArray lines = namesHead;
        for (int name = 0; name < names; ++name)
            lines += lineWith("/ S" + QByteArray::number(name) + ".mid S" +
                              QByteArray::number(name + 1) + ".mid");
        memory.write(u"S%1.mid"_qs.arg(names), anySong);
        memory.write(namesFile, lines);
        QCOMPARE(followed(memory, u"/S0.mid"_qs), names == 16 ? u"/S16.mid"_qs : u"/S0.mid"_qs);
    }
}

void TestChosenNames::forgetsAChosenNameMovedByHand()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    rename(memory, u"A long name.mid"_qs, u"VOLARE.mid"_qs);
    QVERIFY(updateNames(memory));
    QVERIFY(QDir(memory.root()).mkdir(u"POP"_qs));
    QVERIFY(QFile::rename(memory.path(u"VOLARE.mid"_qs), memory.path(u"POP/VOLARE.mid"_qs)));
    QVERIFY(updateNames(memory));
    QVERIFY(!memory.has(namesFile));
}

BRISEL_TEST(QApplication, TestChosenNames)
#include "tst_chosennames.moc"
