#include "db/database.h"
#include "tests/db/localcatalogue.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"
#include "tools/syntheticcatalogue.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QtTest>

using namespace brisel;

namespace
{

const QString multipleResults =
    QStringLiteral("[getRecordByTitle] WARNING: multiple reusults in query, aborting !!! ");

/// The plain look-up by file name: one SQL text with the name in double quotes.
QString titleByScan(const QString &fileName)
{
    QSqlQuery query(QSqlDatabase::database(QStringLiteral("con_songsdb")));
    if (!query.exec(QStringLiteral("SELECT title,artist,genre,author,length,bpm,key,markers,"
                                   "altartist FROM songs WHERE filename like \"%1\"")
                        .arg(fileName)) ||
        !query.next())
        return QStringLiteral("(none)");
    return query.value(0).toString();
}

QString titleOf(Database &database, const QString &fileName)
{
    SongsDbRecord record;
    return database.getRecordByFilename(fileName, record) ? record.title : QStringLiteral("(none)");
}

QByteArray hashOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return "unreadable";
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

QStringList hostileTexts()
{
    return {
        QStringLiteral("\"; drop table songs; --"),
        QStringLiteral("\"; delete from songs where \"1"),
        QStringLiteral("x\"; attach database 'evil.db' as evil; create table evil.a (b); --"),
        QStringLiteral("x\" or (select writefile('evil.txt','x')) or \""),
        QStringLiteral("x\" or load_extension(\"evil.so\") or \""),
        QStringLiteral("x\" union select 1,2,3,4,5,6,7,8,9 order by \"1"),
        QStringLiteral("x\"; pragma writable_schema=1; --"),
        QStringLiteral("x\"; vacuum into 'evil.db'; --"),
        QStringLiteral("x\"; commit; begin exclusive; --"),
        QStringLiteral("'; drop table songs; --"),
        QStringLiteral("\"\"\"\"\"\"\""),
        QStringLiteral("\""),
        QStringLiteral("\\\""),
        QString(255, u'A'),
        QString(255, u'"'),
        QString(255, u'%'),
        QString(100000, u'%'),
        QString(2000000, u'x'),
        QStringLiteral("A\0\"; drop table songs; --").replace(u'0', QChar::Null),
        QString(QChar::Null),
        QString(QChar(0xD800)),
        QStringLiteral("\n\r\t"),
        QStringLiteral("%1%2%3"),
    };
}

} // namespace

class TestCatalogueLookup : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void findsLowerCaseNames();
    void ignoresCaseOfAsciiLettersOnly();
    void underscoreMatchesAnyCharacter();
    void percentMatchesAnyRun();
    void leavesRecordAloneWhenNothingIsFound();
    void findsFirstOfNamesThatDifferInCase();
    void readsColumnNameAsColumn();
    void breaksAtDoubleQuote();
    void findsParenthesesBetweenDoubledQuotes();
    void allowsAConditionOnTheRow();
    void refusesSubSelects();
    void fastLookUpEqualsScan();
    void fastLookUpEqualsScanOfFullCatalogue();
    void asksACatalogueThatHasAnIndexOfNames();
    void hostileTextsChangeNothing();
};

void TestCatalogueLookup::cleanup()
{
    QFile::remove(QStringLiteral("songsdb_debug"));
}

void TestCatalogueLookup::findsLowerCaseNames()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("MYSONG01"), QStringLiteral("MY SONG"))});
    Database database;
    QVERIFY(database.init());
    QCOMPARE(titleOf(database, QStringLiteral("mysong01")), QStringLiteral("MY SONG"));
    SongsDbRecord record;
    QVERIFY(database.getRecordByTitle(QStringLiteral("my song"), record));
}

void TestCatalogueLookup::ignoresCaseOfAsciiLettersOnly()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("CITT\u00c0"), QStringLiteral("CITT\u00c0"))});
    Database database;
    QVERIFY(database.init());
    QCOMPARE(titleOf(database, QStringLiteral("citt\u00c0")), QStringLiteral("CITT\u00c0"));
    QCOMPARE(titleOf(database, QStringLiteral("citt\u00e0")), QStringLiteral("(none)"));
}

void TestCatalogueLookup::underscoreMatchesAnyCharacter()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("ZZSONG"), QStringLiteral("FIRST")),
                         catalogueRow(QStringLiteral("AASONG"), QStringLiteral("SECOND")),
                         catalogueRow(QStringLiteral("__SONG"), QStringLiteral("THIRD"))});
    Database database;
    QVERIFY(database.init());
    QCOMPARE(titleOf(database, QStringLiteral("__SONG")), QStringLiteral("FIRST"));
    QCOMPARE(titleOf(database, QStringLiteral("A_song")), QStringLiteral("SECOND"));
    QCOMPARE(titleOf(database, QStringLiteral("_SONG")), QStringLiteral("(none)"));
}

void TestCatalogueLookup::percentMatchesAnyRun()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("ZZSONG"), QStringLiteral("FIRST")),
                         catalogueRow(QStringLiteral("AASONG"), QStringLiteral("SECOND"))});
    Database database;
    QVERIFY(database.init());
    QCOMPARE(titleOf(database, QStringLiteral("%song")), QStringLiteral("FIRST"));
    QCOMPARE(titleOf(database, QStringLiteral("a%")), QStringLiteral("SECOND"));
    QCOMPARE(titleOf(database, QStringLiteral("%")), QStringLiteral("FIRST"));
}

void TestCatalogueLookup::leavesRecordAloneWhenNothingIsFound()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("A"))});
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    record.title = QStringLiteral("OLD");
    LogCapture log;
    QVERIFY(!database.getRecordByFilename(QStringLiteral("B"), record));
    QVERIFY(!database.getRecordByFilename(QStringLiteral(""), record));
    QVERIFY(!database.getRecordByFilename(QString(), record));
    QVERIFY(!database.getRecordByTitle(QStringLiteral("B"), record));
    QVERIFY(!database.getRecordByTitle(QString(), record));
    QCOMPARE(record.title, QStringLiteral("OLD"));
    QVERIFY(log.messages().isEmpty());
}

void TestCatalogueLookup::findsFirstOfNamesThatDifferInCase()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("song"), QStringLiteral("FIRST")),
                         catalogueRow(QStringLiteral("SONG"), QStringLiteral("SECOND"))});
    Database database;
    QVERIFY(database.init());
    QCOMPARE(titleOf(database, QStringLiteral("SONG")), QStringLiteral("FIRST"));
}

void TestCatalogueLookup::readsColumnNameAsColumn()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("TITLE"), QStringLiteral("NAMED TITLE")),
                         catalogueRow(QStringLiteral("SAME"), QStringLiteral("same"))});
    Database database;
    QVERIFY(database.init());
    // The name is read as the column "title": finds the row whose file name is like its title.
    QCOMPARE(titleOf(database, QStringLiteral("TITLE")), QStringLiteral("same"));
    QCOMPARE(titleOf(database, QStringLiteral("Filename")), QStringLiteral("NAMED TITLE"));
    SongsDbRecord record;
    LogCapture log;
    QVERIFY(!database.getRecordByTitle(QStringLiteral("title"), record));
    QCOMPARE(log.messages(), QStringList{multipleResults});
    QVERIFY(database.getRecordByTitle(QStringLiteral("filename"), record));
    QCOMPARE(record.title, QStringLiteral("same"));
}

void TestCatalogueLookup::breaksAtDoubleQuote()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("SAY \"A\" AGAIN"))});
    Database database;
    QVERIFY(database.init());
    LogCapture log;
    SongsDbRecord record;
    QVERIFY(!database.getRecordByFilename(QStringLiteral("A\""), record));
    QVERIFY(!database.getRecordByTitle(QStringLiteral("SAY \"A\" AGAIN"), record));
    // Two quotes mean one, as in any quoted SQL text.
    QVERIFY(database.getRecordByTitle(QStringLiteral("SAY \"\"A\"\" AGAIN"), record));
    QVERIFY(log.messages().isEmpty());
}

void TestCatalogueLookup::findsParenthesesBetweenDoubledQuotes()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("\"SELECT\" (LIVE)"))});
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByTitle(QStringLiteral("\"\"Select\"\" (live)"), record));
    QCOMPARE(record.title, QStringLiteral("\"SELECT\" (LIVE)"));
    QVERIFY(!database.getRecordByTitle(QStringLiteral("\"Select\" (live)"), record));
}

void TestCatalogueLookup::allowsAConditionOnTheRow()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("FIRST")),
                         catalogueRow(QStringLiteral("B"), QStringLiteral("SECOND"))});
    Database database;
    QVERIFY(database.init());
    QCOMPARE(titleOf(database, QStringLiteral("x\" or \"1")), QStringLiteral("FIRST"));
    QCOMPARE(titleOf(database, QStringLiteral("x\" or title=\"SECOND")), QStringLiteral("SECOND"));
}

void TestCatalogueLookup::refusesSubSelects()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("FIRST"))});
    Database database;
    QVERIFY(database.init());
    // Each of these would run forever.
    const QString endless = QStringLiteral("x\" or (with recursive t(a) as (values(1) union all "
                                           "SELECT a+1 from t) SELECT count(*) from t) or \"");
    SongsDbRecord record;
    QVERIFY(!database.getRecordByFilename(endless, record));
    QVERIFY(!database.getRecordByTitle(endless, record));
    const QString product =
        QStringLiteral("x\" union Select 1,2,3,4,5,6,7,8,9 from songs a,songs b where \"1");
    QVERIFY(!database.getRecordByFilename(product, record));
    QVERIFY(!database.getRecordByTitle(product, record));
}

void TestCatalogueLookup::fastLookUpEqualsScan()
{
    QList<CatalogueRow> rows;
    const QStringList names{QStringLiteral("ABC"),           QStringLiteral("abc"),
                            QStringLiteral("A_C"),           QStringLiteral("A%"),
                            QStringLiteral("\u00c9T\u00c9"), QStringLiteral("\u00e9t\u00e9"),
                            QStringLiteral("A B"),           QStringLiteral("12"),
                            QStringLiteral("ROWID"),         QStringLiteral("k"),
                            QStringLiteral("\u212a"),        QStringLiteral("[A]"),
                            QStringLiteral("A'B"),           QStringLiteral("A\"B"),
                            QStringLiteral("A\\B"),          QStringLiteral("")};
    for (const QString &name : names)
        rows.append(catalogueRow(name, QStringLiteral("T%1").arg(rows.size())));
    writeLocalCatalogue(
        rows,
        {QStringLiteral("insert into songs (title,filename) values ('NULL',NULL)"),
         QStringLiteral("insert into songs (title,filename) values ('BLOB',x'5858')"),
         QStringLiteral("insert into songs (title,filename) values ('LATIN',x'58e958')"),
         QStringLiteral("insert into songs (title,filename) values ('NUL','NU'||char(0)||'L')"),
         QStringLiteral("insert into songs (title,filename) values ('NUMBER',77)"),
         QStringLiteral("delete from songs where title='T1'"),
         QStringLiteral("insert into songs (rowid,title,filename) values (-5,'MINUS','a b')")});
    Database database;
    QVERIFY(database.init());

    QStringList asked = names;
    for (const QString &name : names)
        asked << name.toLower() << name.toUpper() << name + u'X' << name + u'_' << name + u'%'
              << u'_' + name << QStringLiteral(" ") + name;
    for (const char *name :
         {"xx",     "XX",     "nu",      "NUL",   "77",          "x\u00e9x",     "true",
          "false",  "null",   "NULL",    "title", "TITLE",       "Artist",       "genre",
          "author", "length", "bpm",     "key",   "filename",    "markers",      "altartist",
          "rowid",  "OID",    "_rowid_", "songs", "songs.title", "current_date", "__",
          "_%_",    "a__",    "X_X",     "*",     "?",           "[AB]*",        "--",
          "/*",     ";",      "''",      "\"\"",  "x\" or \"1",  "\u212a",       "K"})
        asked << QString::fromUtf8(name);
    asked << QStringLiteral("x\ufffdx") << QString(QChar(0xD83D))
          << QString::fromUtf8("\U0001F3B5");

    int found = 0;
    for (const QString &name : std::as_const(asked)) {
        const QString expected = titleByScan(name);
        QVERIFY2(titleOf(database, name) == expected,
                 qPrintable(QStringLiteral("%1: %2 instead of %3")
                                .arg(name, titleOf(database, name), expected)));
        found += expected == QStringLiteral("(none)") ? 0 : 1;
    }
    QVERIFY(found > 50);
}

void TestCatalogueLookup::fastLookUpEqualsScanOfFullCatalogue()
{
    const QList<CatalogueRow> rows = syntheticCatalogue();
    writeLocalCatalogue(rows);
    Database database;
    QVERIFY(database.init());
    for (qsizetype i = 0; i < rows.size(); i += 97) {
        const QString name = rows.at(i).fileName;
        QCOMPARE(titleOf(database, name.toLower()), titleByScan(name));
        const QStringList patterns{QString(name).replace(4, 1, u'_'),
                                   u'_' + name.mid(1),
                                   name.chopped(1) + u'_',
                                   name.left(3) + u'%',
                                   u'%' + name.right(3),
                                   u'%' + name.mid(2, 3) + u'%',
                                   QString(name.size(), u'_'),
                                   QString(name).replace(4, 1, u'\u00e0'),
                                   name + QStringLiteral("_x")};
        for (const QString &pattern : patterns)
            QCOMPARE(titleOf(database, pattern), titleByScan(pattern));
    }
    QElapsedTimer timer;
    timer.start();
    SongsDbRecord record;
    for (const CatalogueRow &row : rows)
        QVERIFY(database.getRecordByFilename(row.fileName, record));
    qInfo("%lld us for %lld look-ups by file name", timer.nsecsElapsed() / 1000,
          static_cast<long long>(rows.size()));
}

void TestCatalogueLookup::asksACatalogueThatHasAnIndexOfNames()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("ABD"), QStringLiteral("FIRST")),
                         catalogueRow(QStringLiteral("ABC"), QStringLiteral("SECOND"))},
                        {QStringLiteral("create index n on songs (filename collate nocase)")});
    Database database;
    QVERIFY(database.init());
    for (const char *name : {"ab%", "ab_", "_b%", "abc", "abd", "ABE"})
        QCOMPARE(titleOf(database, QLatin1String(name)), titleByScan(QLatin1String(name)));
    // In the order of the index.
    QCOMPARE(titleOf(database, QStringLiteral("ab%")), QStringLiteral("SECOND"));
}

void TestCatalogueLookup::hostileTextsChangeNothing()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("FIRST")),
                         catalogueRow(QStringLiteral("B"), QStringLiteral("SECOND"))});
    const QByteArray before = hashOf(QStringLiteral("songsdb_debug"));
    const QStringList files = QDir().entryList(QDir::AllEntries | QDir::Hidden);
    Database database;
    QVERIFY(database.init());
    for (const QString &text : hostileTexts()) {
        SongsDbRecord record;
        const QString shown = text.left(60);
        QVERIFY2(!database.getRecordByFilename(text, record) || text.count(u'%') == text.size(),
                 qPrintable(shown));
        QVERIFY2(!database.getRecordByTitle(text, record), qPrintable(shown));
        QVERIFY2(hashOf(QStringLiteral("songsdb_debug")) == before, qPrintable(shown));
        QVERIFY2(QDir().entryList(QDir::AllEntries | QDir::Hidden) == files, qPrintable(shown));
    }
    QSqlQuery query(QSqlDatabase::database(QStringLiteral("con_songsdb")));
    QVERIFY(query.exec(QStringLiteral("pragma database_list")));
    QVERIFY(query.next() && !query.next());
    QCOMPARE(titleOf(database, QStringLiteral("A")), QStringLiteral("FIRST"));
}

BRISEL_TEST(QCoreApplication, TestCatalogueLookup)
#include "tst_cataloguelookup.moc"
