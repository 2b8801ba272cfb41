#include "tests/index/namesfile.h"

#include <QTemporaryDir>

#include <sys/stat.h>

using namespace brisel;

using namespace Sample;

/// The given names of a memory when other programs have written their file.
class TestDamagedNames : public QObject
{
    Q_OBJECT

private slots:
    void skipsDamagedLines_data();
    void skipsDamagedLines();
    void continuesAfterATruncatedLine();
    void refusesHostileLines_data();
    void refusesHostileLines();
    void remembersNoMoreThanAMemoryHolds();
    void followsNoLinkInPlaceOfTheFolder();
    void runsWithoutTheFile_data();
    void runsWithoutTheFile();
};

void TestDamagedNames::skipsDamagedLines_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    const QByteArray first = lineWith("/ First%20song.mid Firsts-1.mid");
    const QByteArray second = lineWith("/ Second%20song.mid Second-1.mid");
    const QString long1 = u"First song.mid"_qs;
    const QString long2 = u"Second song.mid"_qs;
    const QString short1 = u"Firsts-1.mid"_qs;
    const QString short2 = u"Second-1.mid"_qs;
    QTest::newRow("whole") << namesHead + first + second << short1 << short2;
    QTest::newRow("bit") << namesHead + QByteArray(first).replace("Firsts", "Girsts") + second
                         << long1 << short2;
    QTest::newRow("bit of the long name")
        << namesHead + QByteArray(first).replace("song", "sonf") + second << long1 << short2;
    QTest::newRow("truncated") << namesHead + first + second.chopped(5) << short1 << long2;
    QTest::newRow("no namesHead") << first + second << short1 << short2;
    QTest::newRow("namesHead truncated") << namesHead.mid(9) + first + second << short1 << short2;
    QTest::newRow("garbage") << QByteArray(70000, 'x') + '\n' + first + "\0\xFF\n \n\n    \n" +
                                    second
                             << short1 << short2;
    QTest::newRow("empty") << QByteArray() << long1 << long2;
}

void TestDamagedNames::skipsDamagedLines()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QString, first);
    QFETCH(const QString, second);
    const SampleMemory memory;
    memory.write(u"Firsts-1.mid"_qs, anySong);
    memory.write(u"Second-1.mid"_qs, anySong);
    memory.write(namesFile, content);
    QCOMPARE(place(memory, u"First song.mid"_qs), first);
    QCOMPARE(place(memory, u"Second song.mid"_qs), second);
    QVERIFY(updateNames(memory));
    QCOMPARE(place(memory, u"First song.mid"_qs), first);
    QCOMPARE(place(memory, u"Second song.mid"_qs), second);
    QByteArray lines = namesHead;
    if (first == u"Firsts-1.mid"_qs)
        lines += lineWith("/ First%20song.mid Firsts-1.mid");
    if (second == u"Second-1.mid"_qs)
        lines += lineWith("/ Second%20song.mid Second-1.mid");
    QCOMPARE(memory.read(namesFile), lines == namesHead ? "<missing>" : lines);
}

void TestDamagedNames::continuesAfterATruncatedLine()
{
    const SampleMemory memory;
    memory.write(u"Firsts-1.mid"_qs, anySong);
    const QByteArray first = lineWith("/ First%20song.mid Firsts-1.mid");
    memory.write(namesFile, namesHead + first + first.chopped(4));
    GivenNames names;
    names.setRoot(memory.root());
    QVERIFY(names.load());
    QVERIFY(names.add(u"POP"_qs, u"Second song.mid"_qs, u"Second-1.mid"_qs));
    const QByteArray second = lineWith("/POP Second%20song.mid Second-1.mid");
    QCOMPARE(memory.read(namesFile), namesHead + first + first.chopped(4) + '\n' + second);
    memory.write(u"POP/Second-1.mid"_qs, anySong);
    QCOMPARE(place(memory, u"POP/Second song.mid"_qs), u"POP/Second-1.mid"_qs);
}

void TestDamagedNames::refusesHostileLines_data()
{
    QTest::addColumn<QByteArray>("fields");
    QTest::newRow("folder outside") << QByteArray("/../CARD A%20long%20name.mid Alongn-1.mid");
    QTest::newRow("folder itself") << QByteArray("/. A%20long%20name.mid Alongn-1.mid");
    QTest::newRow("folder without /") << QByteArray("CARD A%20long%20name.mid Alongn-1.mid");
    QTest::newRow("folder twice /") << QByteArray("// A%20long%20name.mid Alongn-1.mid");
    QTest::newRow("folder empty") << QByteArray(" A%20long%20name.mid Alongn-1.mid");
    QTest::newRow("path as name") << QByteArray("/ A%20long%20name.mid ../CARD/Alongn-1.mid");
    QTest::newRow("encoded path") << QByteArray("/ A%20long%20name.mid ..%2FCARD%2FAlongn-1.mid");
    QTest::newRow("zero byte") << QByteArray("/ A%20long%20name.mid%00 Alongn-1.mid");
    QTest::newRow("another file") << QByteArray("/ A%20long%20name.mid index.id2");
    QTest::newRow("another song") << QByteArray("/ A%20long%20name.mid Azzurro-1.mid");
    QTest::newRow("another suffix") << QByteArray("/ A%20long%20name.mid Alongn-1.mp3");
    QTest::newRow("suffix in capitals") << QByteArray("/ A%20long%20name.mid Azzurr-1.MID");
    QTest::newRow("no song") << QByteArray("/ A%20long%20name.txt Azzurr-1.txt");
    QTest::newRow("number 0 of a folder") << QByteArray("/ A%20long%20name Alongn-0");
    QTest::newRow("number 01 of a folder") << QByteArray("/ A%20long%20name Along-01");
    QTest::newRow("number of a folder too long") << QByteArray("/ A%20long%20name Alo-1000");
    QTest::newRow("folder with another name") << QByteArray("/ A%20long%20name Azzurro");
    QTest::newRow("plus") << QByteArray("/ A%20long%20name.mid Alongn-%2B1.mid");
    QTest::newRow("short") << QByteArray("/ Along.mid Alongest1.mid");
    QTest::newRow("the same") << QByteArray("/ Alongn-1.mid ALONGN-1.mid");
    QTest::newRow("only a suffix") << QByteArray("/ Along.mid .mid");
    QTest::newRow("question mark") << QByteArray("/ Along.mid %3F.mid");
    QTest::newRow("not in the code page") << QByteArray("/ Along.mid %D0%AF.mid");
    QTest::newRow("point") << QByteArray("/ Along.mid A.B.mid");
    QTest::newRow("blank at the end") << QByteArray("/ Along.mid A%20.mid");
    QTest::newRow("device") << QByteArray("/ Along.mid com1.mid");
    QTest::newRow("encoded otherwise") << QByteArray("/ A%20long%20name.mid %41longn-1.mid");
    QTest::newRow("invalid UTF-8") << QByteArray("/ A%20long%20name.mid%FF Alongn-1.mid");
    QTest::newRow("field too many") << QByteArray("/ A%20long%20name.mid Alongn-1.mid x");
    QTest::newRow("name too long") << "/ A%20long%20name" + QByteArray(256, 'x') +
                                          ".mid "
                                          "Alongn-1.mid";
}

void TestDamagedNames::refusesHostileLines()
{
    QFETCH(const QByteArray, fields);
    const SampleMemory memory;
    memory.write(u"Alongn-1.mid"_qs, anySong);
    memory.write(namesFile, namesHead + lineWith(fields));
    QVERIFY(updateNames(memory));
    QCOMPARE(memory.read(namesFile), QByteArray("<missing>"));
    QVERIFY(!memory.has(u".brisel2pc"_qs));
    QVERIFY(memory.has(u"Alongn-1.mid"_qs));
}

void TestDamagedNames::remembersNoMoreThanAMemoryHolds()
{
    const SampleMemory memory;
    QByteArray content = namesHead;
    for (int i = 0; i <= GivenNames::maxNames; ++i)
        content += lineWith('/' + QByteArray::number(i / 1000) + '/' +
                            QByteArray::number(i % 1000) + " A%20long%20name.mid Alongn-1.mid");
    memory.write(namesFile, content);
    memory.write(u"65/534/Alongn-1.mid"_qs, anySong);
    memory.write(u"65/535/Alongn-1.mid"_qs, anySong);
    QCOMPARE(place(memory, u"65/534/A long name.mid"_qs), u"65/534/Alongn-1.mid"_qs);
    QCOMPARE(place(memory, u"65/535/A long name.mid"_qs), u"65/535/A long name.mid"_qs);
    QVERIFY(updateNames(memory));
    QCOMPARE(memory.read(namesFile),
             namesHead + lineWith("/65/534 A%20long%20name.mid Alongn-1.mid"));
}

void TestDamagedNames::followsNoLinkInPlaceOfTheFolder()
{
    const SampleMemory home;
    const QByteArray known = namesHead + lineWith("/ First%20song.mid Firsts-1.mid");
    home.write(u"names"_qs, known);
    const SampleMemory memory;
    memory.write(u"Firsts-1.mid"_qs, anySong);
    QVERIFY(QFile::link(home.root(), memory.path(u".brisel2pc"_qs)));
    QCOMPARE(place(memory, u"First song.mid"_qs), u"First song.mid"_qs);
    GivenNames names;
    names.setRoot(memory.root());
    (void)names.load();
    QVERIFY(!names.add(QString(), u"Second song.mid"_qs, u"Second-1.mid"_qs));
    QCOMPARE(home.read(u"names"_qs), known);
}

void TestDamagedNames::runsWithoutTheFile_data()
{
    QTest::addColumn<QString>("thing");
    for (const QString &thing : {u"folder"_qs, u"FIFO"_qs, u"link"_qs, u"hard link"_qs})
        QTest::newRow(qPrintable(thing)) << thing;
}

void TestDamagedNames::runsWithoutTheFile()
{
    QFETCH(const QString, thing);
    const SampleMemory memory;
    const QTemporaryDir home;
    const QByteArray path = QFile::encodeName(memory.path(namesFile));
    const QByteArray secret = QFile::encodeName(home.filePath(u"secret"_qs));
    {
        QFile file(home.filePath(u"secret"_qs));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("secret") == 6);
    }
    memory.write(u"A long name.mid"_qs, anySong);
    QVERIFY(QDir().mkpath(memory.path(u".brisel2pc"_qs)));
    if (thing == u"folder"_qs)
        memory.write(namesFile + u"/inside"_qs, "kept");
    else if (thing == u"FIFO"_qs)
        QCOMPARE(::mkfifo(path.constData(), 0600), 0);
    else if (thing == u"link"_qs)
        QCOMPARE(::symlink(secret.constData(), path.constData()), 0);
    else
        QCOMPARE(::link(secret.constData(), path.constData()), 0);
    QVERIFY(updateNames(memory));
    QCOMPARE(indexedPaths(memory), QStringList{u"/Alongn-1.mid"_qs});
    QFile file(home.filePath(u"secret"_qs));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("secret"));
    if (thing == u"folder"_qs)
        QCOMPARE(memory.read(namesFile + u"/inside"_qs), QByteArray("kept"));
    else
        QCOMPARE(place(memory, u"A long name.mid"_qs), u"Alongn-1.mid"_qs);
}

BRISEL_TEST(QApplication, TestDamagedNames)
#include "tst_damagednames.moc"
