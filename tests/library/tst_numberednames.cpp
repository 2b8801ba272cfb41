#include "library/numberednames.h"

#include "tests/testprogram.h"

#include <QFile>
#include <QSet>
#include <QTest>

using namespace brisel;

class TestNumberedNames : public QObject
{
    Q_OBJECT

private slots:
    void numbersEqualNames_data();
    void numbersEqualNames();
    void leavesReservedNamesOut();
    void staysWithinTheLongestName();
    void numbersEverySongOfOneName();
    void numbersLongNamesOfOneStart();
};

void TestNumberedNames::numbersEqualNames_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const QStringList &files, const QStringList &expected) {
        QTest::newRow(name) << files << expected;
    };
    row("none", {}, {});
    row("different", {u"/a/x.mid"_qs, u"/b/y.mid"_qs}, {u"x.mid"_qs, u"y.mid"_qs});
    row("other suffix", {u"/a/x.mid"_qs, u"/b/x.kar"_qs}, {u"x.mid"_qs, u"x.kar"_qs});
    row("equal", {u"/a/SONG.MID"_qs, u"/b/SONG.MID"_qs, u"/c/SONG.MID"_qs},
        {u"SONG.MID"_qs, u"SONG (2).MID"_qs, u"SONG (3).MID"_qs});
    row("letter case", {u"/a/SONG.MID"_qs, u"/b/song.mid"_qs},
        {u"SONG.MID"_qs, u"song (2).mid"_qs});
    row("accents", {u"/a/\u00e8.mid"_qs, u"/b/e\u0300.mid"_qs, u"/c/\u00c8.mid"_qs},
        {u"\u00e8.mid"_qs, u"e\u0300 (2).mid"_qs, u"\u00c8 (3).mid"_qs});
    row("a number that comes later", {u"/a/A.mid"_qs, u"/b/A.mid"_qs, u"/c/a (2).MID"_qs},
        {u"A.mid"_qs, u"A (3).mid"_qs, u"a (2).MID"_qs});
    row("a number that came before", {u"/c/A (2).mid"_qs, u"/a/A.mid"_qs, u"/b/A.mid"_qs},
        {u"A (2).mid"_qs, u"A.mid"_qs, u"A (3).mid"_qs});
    row("equal numbers", {u"/a/A (2).mid"_qs, u"/b/A (2).mid"_qs},
        {u"A (2).mid"_qs, u"A (2) (2).mid"_qs});
    row("graphics", {u"/a/x.mp3"_qs, u"/b/x.mp3"_qs}, {u"x.mp3"_qs, u"x (2).mp3"_qs});
    row("equal graphics", {u"/a/x.mp3.mp3"_qs, u"/b/x.cdg.mp3"_qs},
        {u"x.mp3.mp3"_qs, u"x.cdg (2).mp3"_qs});
    row("reserved", {u"/a/Contenuto.CSV"_qs}, {u"Contenuto (2).CSV"_qs});
    row("no suffix", {u"/a/x"_qs, u"/b/x"_qs}, {u"x"_qs, u"x (2)"_qs});
}

void TestNumberedNames::numbersEqualNames()
{
    QFETCH(QStringList, files);
    QTEST(numberedNames(files, {u"contenuto.csv"_qs}), "expected");
}

/// Those that a folder already has.
void TestNumberedNames::leavesReservedNamesOut()
{
    const QStringList reserved{u"x.cdg"_qs, u"SONG.MID"_qs, u"song (2).mid"_qs, u"y (2).cdg"_qs};
    QCOMPARE(numberedNames({u"/a/x.mp3"_qs, u"/a/song.mid"_qs, u"/a/x.mid"_qs, u"/a/y.mp3"_qs,
                            u"/b/y.mp3"_qs},
                           reserved),
             (QStringList{u"x (2).mp3"_qs, u"song (3).mid"_qs, u"x.mid"_qs, u"y.mp3"_qs,
                          u"y (3).mp3"_qs}));
}

/// A file system allows 255 bytes, and no half character.
void TestNumberedNames::staysWithinTheLongestName()
{
    const QString note = QStringLiteral("\U0001D11E"); // four bytes
    for (const QString &start : {QString(), u"a"_qs, u"ab"_qs, u"abc"_qs}) {
        QString name = start;
        while (QFile::encodeName(name + note + u".mid"_qs).size() <= 255)
            name += note;
        const QStringList names =
            numberedNames({u"/a/"_qs + name + u".mid"_qs, u"/b/"_qs + name + u".mid"_qs}, {});
        QCOMPARE(names.first(), name + u".mid"_qs);
        QVERIFY(names.last().endsWith(u" (2).mid"_qs));
        QVERIFY(names.last().isValidUtf16());
        QVERIFY(QFile::encodeName(names.last()).size() <= 255);
    }
}

void TestNumberedNames::numbersEverySongOfOneName()
{
    constexpr int count = 65535;
    QStringList files;
    for (int i = 0; i < count; ++i)
        files.append(u"/%1/A.mid"_qs.arg(i));
    const QStringList names = numberedNames(files, {u"contenuto.csv"_qs});
    QCOMPARE(QSet<QString>(names.cbegin(), names.cend()).size(), count);
    QCOMPARE(names.last(), u"A (65535).mid"_qs);
}

/// Their numbers are counted together, because they are cut to one name.
void TestNumberedNames::numbersLongNamesOfOneStart()
{
    constexpr int count = 10000;
    const QString start(243, u'a');
    QStringList files;
    for (int i = 0; i < count; ++i) {
        const QString name = start + u"%1.mid"_qs.arg(i, 5, 10, QChar(u'0'));
        files.append({u"/a/"_qs + name, u"/b/"_qs + name});
    }
    const QStringList names = numberedNames(files, {u"contenuto.csv"_qs});
    QCOMPARE(QSet<QString>(names.cbegin(), names.cend()).size(), 2 * count);
    QVERIFY(names.last().endsWith(u"a (10001).mid"_qs));
}

BRISEL_TEST(QCoreApplication, TestNumberedNames)
#include "tst_numberednames.moc"
