#include "tests/index/indexsamples.h"
#include "tests/scriptedindex.h"

using namespace brisel;

using namespace Sample;

/// Long names, which the player does not know, and the question before they are shortened.
class TestIndexNames : public QObject
{
    Q_OBJECT

private slots:
    void shortensLongNames();
    void cutsNoCharacterInTwo();
    void leavesOutWhatFatDoesNotAllow();
    void countsPast9And99();
    void countsEachPrefixByItself();
    void renamesFoldersButNeverTheRoot();
    void obeysTheAnswers_data();
    void obeysTheAnswers();
    void renamesTheGraphicsFileToo();
    void reportsEachNewName();
    void reportsFailedRename();
    void replacesNothingThatAppearsBeforeTheRename();
};

void TestIndexNames::shortensLongNames()
{
    const SampleMemory memory;
    memory.write(u"A very long name.mid"_qs, anySong);
    memory.write(u"A very lovely one.mid"_qs, anySong);
    memory.write(u"It's a-b.c d.kar"_qs, anySong);
    memory.write(u"12345678.mid"_qs, anySong);
    memory.write(u"- . ' - . -.mid"_qs, anySong);
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(indexedPaths(memory),
             QStringList({u"/-1.mid"_qs, u"/12345678.mid"_qs, u"/Averyl-1.mid"_qs,
                          u"/Averyl-2.mid"_qs, u"/Itsabc-1.kar"_qs}));
    QVERIFY(memory.has(u"Averyl-2.mid"_qs));
    QVERIFY(!memory.has(u"A very long name.mid"_qs));
}

void TestIndexNames::cutsNoCharacterInTwo()
{
    const SampleMemory memory;
    memory.write(u"abcde\U0001F600fgh.mid"_qs, anySong);
    memory.write(u"bcde\U0001F600fghi.mid"_qs, anySong);
    for (int number = 1; number < 10; ++number)
        memory.write(u"cdef\U0001F600-%1.mid"_qs.arg(number), anySong);
    memory.write(u"cdef\U0001F600ghij.mid"_qs, anySong);
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    QVERIFY(index.createIndex(memory.root()));
    QVERIFY(memory.has(u"abcde-1.mid"_qs));
    QVERIFY(memory.has(u"bcde\U0001F600-1.mid"_qs));
    QVERIFY(memory.has(u"cdef-10.mid"_qs));
}

void TestIndexNames::leavesOutWhatFatDoesNotAllow()
{
    const SampleMemory memory;
    memory.write(u"A \"*:<>?\\|b|c?d>e<f.mid"_qs, anySong);
    memory.write(u"B\u0001\n\u001F\u007F\tcd\u0080efgh.mid"_qs, anySong);
    memory.write(u"**???****.mid"_qs, anySong);
    memory.write(u"D: a folder/A.MID"_qs, anySong);
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    QVERIFY(index.createIndex(memory.root()));
    QVERIFY(memory.has(u"Abcdef-1.mid"_qs));
    QVERIFY(memory.has(u"Bcd\u0080ef-1.mid"_qs));
    QVERIFY(memory.has(u"-1.mid"_qs));
    QVERIFY(memory.has(u"Dafold-1/A.MID"_qs));
}

void TestIndexNames::countsPast9And99()
{
    const SampleMemory memory;
    for (int number = 1; number < 10; ++number)
        memory.write(u"abcdef-%1.mid"_qs.arg(number), anySong);
    for (int number = 10; number < 100; ++number)
        memory.write(u"abcde-%1.mid"_qs.arg(number), anySong);
    memory.write(u"abcdefghi.mid"_qs, anySong);
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    QVERIFY(index.createIndex(memory.root()));
    QVERIFY(memory.has(u"abcd-100.mid"_qs));
    for (int number = 101; number < 1000; ++number)
        memory.write(u"abcd-%1.mid"_qs.arg(number), anySong);
    memory.write(u"abcdefghij.mid"_qs, anySong);
    ScriptedIndex full;
    full.setRenameQuestion(always(1));
    const QSignalSpy errors(&full, &Index::errorFromIndex);
    QVERIFY(full.createIndex(memory.root()));
    QVERIFY(memory.has(u"abcdefghij.mid"_qs));
    QCOMPARE(texts(errors), QStringList{u"File non importato, impossibile rinominare: "_qs +
                                        memory.path(u"abcdefghij.mid"_qs)});
}

void TestIndexNames::countsEachPrefixByItself()
{
    const SampleMemory memory;
    for (int number = 1; number < 10; ++number)
        memory.write(u"abcdef-%1.mid"_qs.arg(number), anySong);
    for (const QString &name : {u"abcdefghi.mid"_qs, u"abcdefhij.mid"_qs, u"abcdefhij.kar"_qs,
                                u"abcdegghi.mid"_qs, u"abcdehiii.mid"_qs})
        memory.write(name, anySong);
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    QVERIFY(index.createIndex(memory.root()));
    for (const QString &name : {u"abcde-10.mid"_qs, u"abcde-11.mid"_qs, u"abcdef-1.kar"_qs,
                                u"abcdeg-1.mid"_qs, u"abcdeh-1.mid"_qs})
        QVERIFY2(memory.has(name), qPrintable(name));
}

void TestIndexNames::renamesFoldersButNeverTheRoot()
{
    const SampleMemory memory;
    memory.write(u"A long memory/Summer hits.2009/A.MID"_qs, anySong);
    ScriptedIndex index;
    index.setRenameQuestion(always(0));
    QVERIFY(index.createIndex(memory.path(u"A long memory"_qs)));
    QVERIFY(memory.has(u"A long memory/Summer-1/A.MID"_qs));
    QCOMPARE(memory.read(u"A long memory/index.id2"_qs).mid(4, 16),
             QByteArray("/Summer-1/A.MID\0", 16));
}

void TestIndexNames::obeysTheAnswers_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<int>("asked");
    QTest::addColumn<bool>("renamed");
    QTest::newRow("yes") << 0 << 2 << true;
    QTest::newRow("yes to all") << 1 << 1 << true;
    QTest::newRow("no") << 2 << 2 << false;
    QTest::newRow("no to all") << 3 << 1 << false;
}

void TestIndexNames::obeysTheAnswers()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    memory.write(u"B long name.mid"_qs, anySong);
    QFETCH(int, answer);
    QFETCH(bool, renamed);
    int asked = 0;
    ScriptedIndex index;
    index.setRenameQuestion(always(answer, &asked));
    QVERIFY(index.createIndex(memory.root()));
    QTEST(asked, "asked");
    QCOMPARE(indexedPaths(memory),
             renamed ? QStringList({u"/Alongn-1.mid"_qs, u"/Blongn-1.mid"_qs})
                     : QStringList({u"/A long name.mid"_qs, u"/B long name.mid"_qs}));
}

void TestIndexNames::renamesTheGraphicsFileToo()
{
    const SampleMemory memory;
    memory.write(u"A long name.mp3"_qs, mp3Song("T", "A", "G"));
    memory.write(u"A long name.CdG"_qs, "graphics");
    memory.write(u"Alongn-1.CdG"_qs, "of another song");
    memory.write(u"B long name.mid"_qs, anySong);
    memory.write(u"B long name.cdg"_qs, "left alone");
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    QVERIFY(index.createIndex(memory.root()));
    QVERIFY(memory.has(u"Alongn-2.mp3"_qs));
    QCOMPARE(memory.read(u"Alongn-2.CdG"_qs), QByteArray("graphics"));
    QCOMPARE(memory.read(u"Alongn-1.CdG"_qs), QByteArray("of another song"));
    QCOMPARE(memory.read(u"B long name.cdg"_qs), QByteArray("left alone"));
}

void TestIndexNames::reportsEachNewName()
{
    const SampleMemory memory;
    memory.write(u"A long folder/B long name.mp3"_qs, mp3Song("Title", "Artist", "Genre"));
    memory.write(u"A long folder/B long name.cdg"_qs, "graphics");
    memory.write(u"A long folder/C.MID"_qs, anySong);
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    const QSignalSpy notices(&index, &Index::noticeFromIndex);
    QVERIFY(index.createIndex(memory.root()));
    const QString name = u"Rinominato: %1 -> %2"_qs;
    QCOMPARE(texts(notices),
             QStringList({name.arg(memory.path(u"A long folder"_qs), memory.path(u"Alongf-1"_qs)),
                          name.arg(memory.path(u"Alongf-1/B long name.mp3"_qs),
                                   memory.path(u"Alongf-1/Blongn-1.mp3"_qs))}));
}

void TestIndexNames::reportsFailedRename()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    memory.write(u"B.MID"_qs, anySong);
    ScriptedIndex index;
    index.setRenameQuestion([](const QString &path, const QString &) {
        QFile::remove(path);
        return 0;
    });
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(texts(errors), QStringList{u"File non importato, impossibile rinominare: "_qs +
                                        memory.path(u"A long name.mid"_qs)});
    QCOMPARE(indexedPaths(memory), QStringList{u"/B.MID"_qs});
}

void TestIndexNames::replacesNothingThatAppearsBeforeTheRename()
{
    const SampleMemory memory;
    memory.write(u"A long name.mp3"_qs, anySong);
    memory.write(u"A long name.cdg"_qs, "graphics");
    memory.write(u"B long name.mid"_qs, anySong);
    ScriptedIndex index;
    index.setRenameQuestion([&memory](const QString &path, const QString &) {
        const bool isFirst = path.endsWith(u"mp3"_qs);
        memory.write(isFirst ? u"Alongn-1.cdg"_qs : u"Blongn-1.mid"_qs, "new");
        return 0;
    });
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(!index.createIndex(memory.root()));
    QCOMPARE(texts(errors), QStringList({u"File non importato, impossibile rinominare: "_qs +
                                             memory.path(u"A long name.mp3"_qs),
                                         u"File non importato, impossibile rinominare: "_qs +
                                             memory.path(u"B long name.mid"_qs)}));
    QCOMPARE(memory.read(u"A long name.mp3"_qs), anySong);
    QCOMPARE(memory.read(u"A long name.cdg"_qs), QByteArray("graphics"));
    QCOMPARE(memory.read(u"B long name.mid"_qs), anySong);
    QCOMPARE(memory.read(u"Alongn-1.cdg"_qs), QByteArray("new"));
    QCOMPARE(memory.read(u"Blongn-1.mid"_qs), QByteArray("new"));
}

BRISEL_TEST(QApplication, TestIndexNames)
#include "tst_indexnames.moc"
