#include "tests/testprogram.h"
#include "tools/cataloguecsv.h"
#include "tools/syntheticcatalogue.h"

#include <QDir>
#include <QProcess>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QtTest>

#include <csignal>
#include <sys/resource.h>

using namespace brisel;

namespace
{

const QByteArray header = "title;artist;genre;author;length;bpm;key;filename;markers;altartist\n";
const QByteArray goodRow =
    "O SOLE MIO;TRADITIONAL;NEAPOLITAN;CAPURRO - DI CAPUA;190;80;G;OSOLEMIO;\"1;Intro;9;Verse;\";"
    "TRADITIONAL\n";

struct Outcome {
    int exitCode = -1;
    QString message;
};

Outcome runTool(const QString &tool, const QStringList &arguments)
{
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardError())};
}

Outcome make(const QByteArray &csv)
{
    QFile file(QStringLiteral("songs.csv"));
    if (!file.open(QIODevice::WriteOnly) || file.write(csv) != csv.size())
        return {};
    file.close();
    return runTool(QStringLiteral(MAKECATALOGUE),
                   {QStringLiteral("songs.csv"), QStringLiteral("out")});
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The first row of the result in the made file, its fields joined by "|", NULL as "(NULL)"; empty
/// if there is no row.
QString firstRow(const QString &statement)
{
    QStringList fields;
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("con_test"));
        database.setDatabaseName(QStringLiteral("out"));
        database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        if (database.open()) {
            QSqlQuery query(database);
            const bool found = query.exec(statement) && query.next();
            const int columns = found ? query.record().count() : 0;
            for (int i = 0; i < columns; ++i)
                fields.append(query.isNull(i) ? QStringLiteral("(NULL)")
                                              : query.value(i).toString());
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("con_test"));
    return fields.join(u'|');
}

} // namespace

class TestMakeCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void writesRowsOfTheSource();
    void writesMissingMarkersAsNull();
    void givesTheSameBytesAgain();
    void readsQuotedFields();
    void acceptsCarriageReturnsAndAMissingLastLineFeed();
    void refusesBadRow_data();
    void refusesBadRow();
    void refusesWrongFirstLine();
    void refusesEmptySource();
    void refusesMissingSource();
    void leavesNoFileWhenTheDiskIsFull();
    void requiresTwoArguments();
    void makesTheShippedCatalogue();
    void syntheticHasTheFullSizeByDefault();
    void syntheticHasTheRequestedSize();
    void syntheticRefusesBadSizes();
    void syntheticRowsLookLikeRealOnes();
};

void TestMakeCatalogue::cleanup()
{
    for (const char *name : {"songs.csv", "out", "out.new", "other"})
        QFile::remove(QString::fromLatin1(name));
}

void TestMakeCatalogue::writesRowsOfTheSource()
{
    const Outcome outcome = make(header + goodRow);
    QCOMPARE(outcome.message, QString());
    QCOMPARE(outcome.exitCode, 0);
    QCOMPARE(
        firstRow(QStringLiteral("select * from songs")),
        QStringLiteral("O SOLE MIO|TRADITIONAL|NEAPOLITAN|CAPURRO - DI CAPUA|190|80|G|OSOLEMIO|"
                       "1;Intro;9;Verse;|TRADITIONAL"));
    QCOMPARE(firstRow(QStringLiteral("select sql from sqlite_master where name='Songs'")),
             QStringLiteral("CREATE TABLE Songs(title varchar, artist varchar, genre varchar, "
                            "author varchar, length integer, bpm integer, key varchar, filename "
                            "varchar primary key, markers varchar, altartist varchar)"));
    QVERIFY(bytesOf(QStringLiteral("out")).startsWith(QByteArray("SQLite format 3\0", 16)));
    QVERIFY(!QFile::exists(QStringLiteral("out.new")));
}

void TestMakeCatalogue::writesMissingMarkersAsNull()
{
    QCOMPARE(make(header + "T;;G;;1;20;;A;;\n").exitCode, 0);
    QCOMPARE(firstRow(QStringLiteral("select * from songs")),
             QStringLiteral("T||G||1|20||A|(NULL)|"));
    QCOMPARE(firstRow(QStringLiteral("select typeof(length),typeof(bpm),typeof(key) from songs")),
             QStringLiteral("integer|integer|text"));
}

void TestMakeCatalogue::givesTheSameBytesAgain()
{
    QCOMPARE(make(header + goodRow).exitCode, 0);
    const QByteArray first = bytesOf(QStringLiteral("out"));
    QVERIFY(!first.isEmpty());
    QTest::qWait(1100); // a time stamp in seconds would differ
    QCOMPARE(make(header + goodRow).exitCode, 0);
    QVERIFY(bytesOf(QStringLiteral("out")) == first);
}

void TestMakeCatalogue::readsQuotedFields()
{
    QCOMPARE(make(header +
                  "\"A;B \"\"C\"\"\";\"\";G;'\xc3\xa8';3600;400;C# -;ABCDEFG8;\"65535;x;\";"
                  "\"z\"\n")
                 .exitCode,
             0);
    QCOMPARE(firstRow(QStringLiteral("select * from songs")),
             QStringLiteral("A;B \"C\"||G|'\u00e8'|3600|400|C# -|ABCDEFG8|65535;x;|z"));
}

void TestMakeCatalogue::acceptsCarriageReturnsAndAMissingLastLineFeed()
{
    QByteArray csv = header + goodRow;
    csv.replace('\n', "\r\n").chop(2);
    QCOMPARE(make(csv).exitCode, 0);
    QVERIFY(firstRow(QStringLiteral("select altartist from songs")) ==
            QStringLiteral("TRADITIONAL"));
}

void TestMakeCatalogue::refusesBadRow_data()
{
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char *bytes, const char *problem) {
        QTest::newRow(bytes) << QByteArray(bytes) << QString::fromLatin1(problem);
    };
    const char *fileName = "filename is not 1 to 8 characters of A to Z and 0 to 9";
    const char *length = "length is no number from 1 to 3600";
    const char *bpm = "bpm is no number from 20 to 400";
    const char *pairs = "markers are not made of bar;text; pairs";
    row("T;A;G;B;100;100;C;F;", "9 fields instead of 10");
    row("T;A;G;B;100;100;C;F;;A;", "11 fields instead of 10");
    row("", "1 fields instead of 10");
    row(" ;A;G;B;100;100;C;F;;A", "title is empty");
    row("T;A;;B;100;100;C;F;;A", "genre is empty");
    row("T;A;G;B;100;100;C;;;A", fileName);
    row("T;A;G;B;100;100;C;ABCDEFGHI;;A", fileName);
    row("T;A;G;B;100;100;C;song;;A", fileName);
    row("T;A;G;B;100;100;C;A_B;;A", fileName);
    row("T;A;G;B;;100;C;F;;A", length);
    row("T;A;G;B;0;100;C;F;;A", length);
    row("T;A;G;B;3601;100;C;F;;A", length);
    row("T;A;G;B;1e2;100;C;F;;A", length);
    row("T;A;G;B; 9;100;C;F;;A", length);
    row("T;A;G;B;100;19;C;F;;A", bpm);
    row("T;A;G;B;100;401;C;F;;A", bpm);
    row("T;A;G;B;100;99999999999;C;F;;A", bpm);
    row("T;A;G;B;100;-100;C;F;;A", bpm);
    row("T;A;G;B;100;100;H;F;;A", "key is no key name");
    row("T;A;G;B;100;100;A-;F;;A", "key is no key name");
    row("T;A;G;B;100;100;c;F;;A", "key is no key name");
    row("T;A;G;B;100;100; -;F;;A", "key is no key name");
    row("T;A;G;B;100;100;C;OSOLEMIO;;A", "filename OSOLEMIO stands twice");
    row("T;A;G;B;100;100;C;F;\"1;x\";A", pairs);
    row("T;A;G;B;100;100;C;F;\"1;\";A", pairs);
    row("T;A;G;B;100;100;C;F;x;A", pairs);
    row("T;A;G;B;100;100;C;F;\"x;y;\";A", "the bar of a marker is no number from 0 to 65535");
    row("T;A;G;B;100;100;C;F;\"65536;y;\";A", "the bar of a marker is no number from 0 to 65535");
    row("T;A;G;B;100;100;C;F;\"9;a;9;b;\";A", "the bars of the markers do not rise");
    row("T;A;G;B;100;100;C;F;\"9;a;2;b;\";A", "the bars of the markers do not rise");
    row("T;A;G;B;100;100;C;F;\"9; ;\";A", "the text of a marker is not 1 to 125 characters long");
    row("T;A;G;B;100;100;C;F;\"9;a;;A", "a quoted field has no closing quote");
    row("\"", "a quoted field has no closing quote");
    row("T;A;G;B;100;100;C;F;\"9;a;\"x;A", "text after the closing quote of a field");
    row("T\"x;A;G;B;100;100;C;F;;A", "a quote inside a field that is not quoted");
    row("\xe2\x82\xac;A;G;B;100;100;C;F;;A", "a character that is not printable Latin-1");
    row("T\t;A;G;B;100;100;C;F;;A", "a character that is not printable Latin-1");
    row("\xe8;A;G;B;100;100;C;F;;A", "not UTF-8");
}

void TestMakeCatalogue::refusesBadRow()
{
    QFETCH(QByteArray, row);
    QFETCH(QString, problem);
    QFile old(QStringLiteral("out"));
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("an older catalogue");
    old.close();
    const Outcome outcome = make(header + goodRow + row + "\n");
    QCOMPARE(outcome.message, QStringLiteral("songs.csv:3: %1\n").arg(problem));
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY(!QFile::exists(QStringLiteral("out")));
    QVERIFY(!QFile::exists(QStringLiteral("out.new")));
}

void TestMakeCatalogue::refusesWrongFirstLine()
{
    const Outcome outcome = make(goodRow);
    QCOMPARE(outcome.exitCode, 1);
    QCOMPARE(
        outcome.message,
        QStringLiteral("songs.csv:1: the first line is not %1").arg(QString::fromLatin1(header)));
}

void TestMakeCatalogue::refusesEmptySource()
{
    const Outcome outcome = make("");
    QCOMPARE(outcome.exitCode, 1);
    QCOMPARE(outcome.message, QStringLiteral("songs.csv:1: the file is empty\n"));
}

void TestMakeCatalogue::refusesMissingSource()
{
    const Outcome outcome = runTool(QStringLiteral(MAKECATALOGUE),
                                    {QStringLiteral("missing.csv"), QStringLiteral("out")});
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY(outcome.message.startsWith(QStringLiteral("missing.csv: ")));
    QVERIFY(!QFile::exists(QStringLiteral("out")));
}

void TestMakeCatalogue::leavesNoFileWhenTheDiskIsFull()
{
    QProcess process;
    process.setChildProcessModifier([] {
        const rlimit limit = {8192, 8192};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::signal(SIGXFSZ, SIG_IGN);
    });
    process.start(QStringLiteral(MAKESYNTHETIC), {QStringLiteral("out"), QStringLiteral("5000")});
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.exitCode(), 1);
    QVERIFY(!process.readAllStandardError().isEmpty());
    QVERIFY(!QFile::exists(QStringLiteral("out")));
    QVERIFY(!QFile::exists(QStringLiteral("out.new")));
}

void TestMakeCatalogue::requiresTwoArguments()
{
    QCOMPARE(runTool(QStringLiteral(MAKECATALOGUE), {}).exitCode, 1);
    QCOMPARE(runTool(QStringLiteral(MAKECATALOGUE), {QStringLiteral("songs.csv")}).message,
             QStringLiteral("usage: makecatalogue <songs.csv> <output>\n"));
}

void TestMakeCatalogue::makesTheShippedCatalogue()
{
    const Outcome outcome = runTool(QStringLiteral(MAKECATALOGUE),
                                    {QStringLiteral(SHIPPED_CATALOGUE), QStringLiteral("out")});
    QCOMPARE(outcome.message, QString());
    QVERIFY(firstRow(QStringLiteral("select count(*) from songs")).toInt() >= 200);
    QCOMPARE(firstRow(QStringLiteral("pragma integrity_check")), QStringLiteral("ok"));
}

void TestMakeCatalogue::syntheticHasTheFullSizeByDefault()
{
    QCOMPARE(runTool(QStringLiteral(MAKESYNTHETIC), {QStringLiteral("out")}).exitCode, 0);
    QCOMPARE(runTool(QStringLiteral(MAKESYNTHETIC), {QStringLiteral("other")}).exitCode, 0);
    QCOMPARE(firstRow(QStringLiteral("select count(*) from songs")), QStringLiteral("8642"));
    QVERIFY(bytesOf(QStringLiteral("out")) == bytesOf(QStringLiteral("other")));
}

void TestMakeCatalogue::syntheticHasTheRequestedSize()
{
    for (const char *size : {"0", "1", "17"}) {
        const QString count = QString::fromLatin1(size);
        QCOMPARE(runTool(QStringLiteral(MAKESYNTHETIC), {QStringLiteral("out"), count}).exitCode,
                 0);
        QCOMPARE(firstRow(QStringLiteral("select count(*) from songs")), count);
    }
}

void TestMakeCatalogue::syntheticRefusesBadSizes()
{
    for (const char *size : {"-1", "x", "", "1000001"}) {
        const Outcome outcome = runTool(QStringLiteral(MAKESYNTHETIC),
                                        {QStringLiteral("out"), QString::fromLatin1(size)});
        QCOMPARE(outcome.exitCode, 1);
        QCOMPARE(outcome.message, QStringLiteral("rows: a number from 0 to 1000000\n"));
    }
    QCOMPARE(runTool(QStringLiteral(MAKESYNTHETIC), {}).exitCode, 1);
    QVERIFY(!QFile::exists(QStringLiteral("out")));
}

void TestMakeCatalogue::syntheticRowsLookLikeRealOnes()
{
    const QList<CatalogueRow> rows = syntheticCatalogue();
    QSet<QString> names;
    QSet<QString> titles;
    QSet<QString> genres;
    qsizetype withMarkers = 0;
    for (const CatalogueRow &row : rows) {
        names.insert(row.fileName);
        titles.insert(row.title);
        genres.insert(row.genre);
        withMarkers += row.markers.isEmpty() ? 0 : 1;
        QVERIFY(row.fileName.size() <= 8 && row.fileName == row.fileName.toUpper());
    }
    QCOMPARE(rows.size(), 8642);
    QCOMPARE(names.size(), rows.size());
    QCOMPARE(rows.size() - titles.size(), 345);
    QCOMPARE(genres.size(), 20);
    QCOMPARE(withMarkers, 4321);
}

BRISEL_TEST(QCoreApplication, TestMakeCatalogue)
#include "tst_makecatalogue.moc"
