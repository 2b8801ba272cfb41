#include "db/filenameindex.h"
#include "tests/testprogram.h"
#include "tools/syntheticcatalogue.h"

#include <QRandomGenerator>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

#include <optional>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

/// Names in an SQLite table, searched with SQLite's own LIKE.
class Scan
{
public:
    Scan() : m_database(QSqlDatabase::addDatabase(u"QSQLITE"_s, u"con_scan"_s))
    {
        m_database.setDatabaseName(u":memory:"_s);
        m_isOpen = m_database.open() &&
                   QSqlQuery(m_database).exec(u"create table songs (filename varchar)"_s);
    }
    ~Scan()
    {
        m_database.close();
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(u"con_scan"_s);
    }
    Scan(const Scan &) = delete;
    Scan &operator=(const Scan &) = delete;

    bool add(const QString &name)
    {
        QSqlQuery query(m_database);
        query.prepare(u"insert into songs values (?)"_s);
        query.addBindValue(name);
        return m_isOpen && query.exec();
    }

    std::optional<qint64> firstRow(const QString &pattern) const
    {
        QSqlQuery query(m_database);
        query.prepare(u"select rowid from songs where filename like ?"_s);
        query.addBindValue(pattern);
        return query.exec() && query.next() ? std::optional(query.value(0).toLongLong())
                                            : std::nullopt;
    }

private:
    QSqlDatabase m_database;
    bool m_isOpen = false;
};

QString randomText(QRandomGenerator &random, const QString &letters, int longest)
{
    QString text(u""_s);
    for (int left = random.bounded(longest + 1); left > 0; --left)
        text += letters.at(random.bounded(static_cast<int>(letters.size())));
    return text;
}

FileNameIndex fullIndex(QStringList &names)
{
    FileNameIndex index;
    for (const CatalogueRow &row : syntheticCatalogue()) {
        names << row.fileName;
        index.add(row.fileName, names.size());
    }
    return index;
}

} // namespace

class TestFileNameIndex : public QObject
{
    Q_OBJECT

private slots:
    void findsWhatLikeFinds_data();
    void findsWhatLikeFinds();
    void findsPartsOfNames();
    void findsNamesAddedLater();
    void findsNothingInAnEmptyIndex();
    void leavesSpecialPatternsToSqlite();
    void comparesFewNames_data();
    void comparesFewNames();
    void comparesFewNamesWithParts();
};

void TestFileNameIndex::findsWhatLikeFinds_data()
{
    QTest::addColumn<QString>("letters");
    QTest::addColumn<QString>("patternLetters");
    QTest::newRow("few letters") << u"aAbB"_s << u"aB_%"_s;
    QTest::newRow("letters in both cases") << u"abcxyzABCXYZ@[`{ "_s << u"axzAXZ@[`{_%"_s;
    QTest::newRow("accents") << u"eE\u00e9\u00c9k\u212a\u0130"_s << u"eE\u00e9\u00c9kK\u212ai_%"_s;
    QTest::newRow("names with wildcards") << u"aA_%"_s << u"a_%"_s;
    QTest::newRow("signs") << u"a*?\\[]'-."_s << u"A*?\\[]'-._%"_s;
}

void TestFileNameIndex::findsWhatLikeFinds()
{
    QFETCH(const QString, letters);
    QFETCH(const QString, patternLetters);
    QRandomGenerator random(11);
    Scan scan;
    FileNameIndex index;
    for (int row = 1; row <= 400; ++row) {
        const QString name = randomText(random, letters, 7);
        QVERIFY(scan.add(name));
        index.add(name, row);
    }
    int found = 0;
    for (int i = 0; i < 3000; ++i) {
        const QString pattern = randomText(random, patternLetters, 14);
        QVERIFY(index.canAnswer(pattern));
        const std::optional<qint64> row = scan.firstRow(pattern);
        QVERIFY2(index.firstRow(pattern) == row, qPrintable(pattern));
        found += row ? 1 : 0;
    }
    QVERIFY(found > 100 && found < 2900);
}

void TestFileNameIndex::findsPartsOfNames()
{
    QRandomGenerator random(12);
    Scan scan;
    FileNameIndex index;
    QStringList names;
    for (int row = 1; row <= 500; ++row) {
        names << randomText(random, u"abcdEFG1234_"_s, 12);
        QVERIFY(scan.add(names.last()));
        index.add(names.last(), row);
    }
    int found = 0;
    for (int i = 0; i < 4000; ++i) {
        QString part = names.at(random.bounded(static_cast<int>(names.size())));
        for (int places = random.bounded(3); places > 0 && !part.isEmpty(); --places) {
            const QString wildcard = randomText(random, u"_%gX"_s, 1);
            part.replace(random.bounded(static_cast<int>(part.size())), 1, wildcard);
        }
        part = part.mid(random.bounded(5));
        part.chop(random.bounded(5));
        const QString pattern =
            randomText(random, u"%"_s, 1) + part + randomText(random, u"%_"_s, 1);
        const std::optional<qint64> row = scan.firstRow(pattern);
        QVERIFY2(index.firstRow(pattern) == row, qPrintable(pattern));
        found += row ? 1 : 0;
    }
    QVERIFY(found > 1000 && found < 3000);
}

void TestFileNameIndex::findsNamesAddedLater()
{
    FileNameIndex index;
    index.add(u"first"_s, 1);
    QVERIFY(!index.firstRow(u"%other%"_s));
    index.add(u"another"_s, 2);
    QCOMPARE(index.firstRow(u"%other%"_s), std::optional<qint64>(2));
}

void TestFileNameIndex::findsNothingInAnEmptyIndex()
{
    FileNameIndex index;
    for (const QString &pattern : {u""_s, u"a"_s, u"_"_s, u"%"_s})
        QVERIFY(index.canAnswer(pattern) && !index.firstRow(pattern));
}

void TestFileNameIndex::leavesSpecialPatternsToSqlite()
{
    FileNameIndex index;
    index.add(u"A"_s, 1);
    QVERIFY(index.canAnswer(u"_"_s) && index.canAnswer(QString(1000, u'%')));
    QVERIFY(!index.canAnswer(QString(1001, u'%')));
    QVERIFY(!index.canAnswer(QString(QChar::Null)));
    QVERIFY(!index.canAnswer(QString::fromUcs4(U"\U0001F3B5")));
    QVERIFY(!index.canAnswer(QString(QChar(0xD800))));
    QVERIFY(!index.canAnswer(u"\ufffd"_s));
    // "_" matches one character, which has two units here.
    index.add(QString::fromUcs4(U"\U0001F3B5"), 2);
    QVERIFY(!index.canAnswer(u"_"_s) && !index.canAnswer(u"%"_s));
    QVERIFY(index.canAnswer(u"A"_s));
    QCOMPARE(index.firstRow(u"a"_s), std::optional<qint64>(1));
}

void TestFileNameIndex::comparesFewNames_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("wildcard");
    for (const int from : {0, 2, 4, 7}) {
        QTest::addRow("_ at %d", from) << from << u"_"_s;
        QTest::addRow("%% at %d", from) << from << u"%"_s;
    }
}

void TestFileNameIndex::comparesFewNames()
{
    QFETCH(const int, from);
    QFETCH(const QString, wildcard);
    QStringList names;
    FileNameIndex index = fullIndex(names);
    for (const QString &name : std::as_const(names)) {
        QVERIFY(index.firstRow(name));
        QVERIFY(index.firstRow(QString(name).replace(from, 1, wildcard)));
    }
    // A scan would compare 4,321 names for each.
    QVERIFY2(index.comparedNames() < 100 * names.size(),
             QByteArray::number(index.comparedNames()).constData());
}

void TestFileNameIndex::comparesFewNamesWithParts()
{
    QStringList names;
    FileNameIndex index = fullIndex(names);
    for (const QString &name : std::as_const(names)) {
        QVERIFY(index.firstRow(u'%' + name.mid(2, 4) + u'%'));
        QVERIFY(!index.firstRow(u'%' + name.mid(2, 4) + u"X%"_s));
        QVERIFY(index.firstRow(u'%' + name.mid(0, 2) + u'%' + name.mid(5) + u'%'));
        QVERIFY(!index.firstRow(u"%Q%"_s + name.mid(4) + u'%'));
    }
    QVERIFY2(index.comparedNames() < 50 * names.size(),
             QByteArray::number(index.comparedNames()).constData());
    // A pattern with more characters than any name is not compared with any.
    const qint64 compared = index.comparedNames();
    QVERIFY(!index.firstRow(u"%1"_s.repeated(499) + u'%'));
    QCOMPARE(index.comparedNames(), compared);
}

BRISEL_TEST(QCoreApplication, TestFileNameIndex)
#include "tst_filenameindex.moc"
