#include "db/database.h"
#include "tests/db/localcatalogue.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"

#include <QFile>
#include <QTest>

using namespace brisel;

namespace
{

const QString severalResults =
    QStringLiteral("[getRecordByTitle] WARNING: multiple reusults in query, aborting !!! ");

} // namespace

/// The look-up of a title in the catalogue.
class TestTitleLookup : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void findsSingleTitle();
    void refusesTitleOfTwoRows();
    void fastTitleLookUpEqualsScan();
    void refusesTitleThatCannotBeCounted();
};

void TestTitleLookup::cleanup()
{
    QFile::remove(QStringLiteral("songsdb_debug"));
}

void TestTitleLookup::findsSingleTitle()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("ONE SONG")),
                         catalogueRow(QStringLiteral("B"), QStringLiteral("ANOTHER SONG"))});
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    LogCapture log;
    QVERIFY(database.getRecordByTitle(QStringLiteral("One Song"), record));
    QCOMPARE(record.title, QStringLiteral("ONE SONG"));
    QCOMPARE(record.artist, QStringLiteral("ARTIST OF ONE SONG"));
    QCOMPARE(record.altArtist, QStringLiteral("ALT OF ONE SONG"));
    QVERIFY(database.getRecordByTitle(QStringLiteral("A%"), record));
    QCOMPARE(record.title, QStringLiteral("ANOTHER SONG"));
    QVERIFY(log.messages().isEmpty());
}

void TestTitleLookup::refusesTitleOfTwoRows()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("SAME")),
                         catalogueRow(QStringLiteral("B"), QStringLiteral("SAME"))});
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    LogCapture log;
    QVERIFY(!database.getRecordByTitle(QStringLiteral("SAME"), record));
    QCOMPARE(log.messages(), QStringList{severalResults});
    QVERIFY(record.title.isNull());
}

void TestTitleLookup::fastTitleLookUpEqualsScan()
{
    QList<CatalogueRow> rows;
    const QStringList titles{
        QStringLiteral("ABC"),  QStringLiteral("abc"),     QStringLiteral("A_C"),
        QStringLiteral("50%"),  QStringLiteral("\u00c9T"), QStringLiteral("\u00e9t"),
        QStringLiteral("A B"),  QStringLiteral("12"),      QStringLiteral("ROWID"),
        QStringLiteral("A\"B"), QStringLiteral("TWICE"),   QStringLiteral("Twice"),
        QStringLiteral("ONCE"), QStringLiteral("")};
    for (const QString &title : titles)
        rows.append(catalogueRow(QStringLiteral("F%1").arg(rows.size()), title));
    writeLocalCatalogue(
        rows,
        {QStringLiteral("insert into songs (title,filename) values (NULL,'NULL')"),
         QStringLiteral("insert into songs (title,filename) values (x'5858','BLOB')"),
         QStringLiteral("insert into songs (title,filename) values (77,'NUMBER')"),
         QStringLiteral("insert into songs (title,filename) values ('N'||char(0)||'L','N')")});
    Database database;
    QVERIFY(database.init());
    QStringList asked = titles;
    for (const QString &title : titles)
        asked << title.toLower() << title + u'X' << title + u'%' << u'_' + title.mid(1);
    asked << QStringLiteral("77") << QStringLiteral("xx") << QStringLiteral("n")
          << QStringLiteral("title") << QString(QChar(0xD83D));
    int found = 0;
    for (const QString &title : std::as_const(asked)) {
        QSqlQuery query(QSqlDatabase::database(QStringLiteral("con_songsdb")));
        const bool isOnly =
            query.exec(QStringLiteral("SELECT count(*),min(artist) FROM songs WHERE title like "
                                      "\"%1\"")
                           .arg(title)) &&
            query.next() && query.value(0).toInt() == 1;
        SongsDbRecord record;
        QVERIFY2(database.getRecordByTitle(title, record) == isOnly, qPrintable(title));
        if (isOnly)
            QCOMPARE(record.artist, query.value(1).toString());
        found += isOnly ? 1 : 0;
    }
    QVERIFY(found > 20);
}

void TestTitleLookup::refusesTitleThatCannotBeCounted()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("FIRST")),
                         catalogueRow(QStringLiteral("B"), QStringLiteral("SECOND"))});
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    LogCapture log;
    // The second row exists, but the offset skips the only row of the count, too.
    QVERIFY(!database.getRecordByTitle(QStringLiteral("x\" or 1 limit 1 offset 1 --"), record));
    QCOMPARE(log.messages(),
             QStringList{QStringLiteral(
                 "[getRecordByTitle] WARNING: unable to count reusults, aborting !!! ")});
}

BRISEL_TEST(QCoreApplication, TestTitleLookup)
#include "tst_titlelookup.moc"
