#include "base/csvreader.h"

#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

class TestCsvReader : public QObject
{
    Q_OBJECT

private slots:
    void readsRecords_data();
    void readsRecords();
    void skipsInvalidRecords_data();
    void skipsInvalidRecords();
    void readsManyUnclosedLines();
    void quotes();

private:
    /// The fields of each record, joined by "|"; "?" for an invalid one.
    static QStringList records(const QByteArray &content)
    {
        CsvReader reader(content);
        QStringList read;
        while (reader.hasNext())
            read.append(reader.next().value_or(QStringList(QStringLiteral("?"))).join(u'|'));
        return read;
    }
};

void TestCsvReader::readsRecords_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const QByteArray &content, const QStringList &expected) {
        QTest::newRow(name) << content << expected;
    };
    row("empty", "", {});
    row("mark alone", "\xEF\xBB\xBF", {});
    row("plain", "a,b\r\nc,d\r\n", {u"a|b"_qs, u"c|d"_qs});
    row("no end", "a,b\r\nc,d", {u"a|b"_qs, u"c|d"_qs});
    row("line feeds", "a,b\nc,d\n", {u"a|b"_qs, u"c|d"_qs});
    row("marked",
        "\xEF\xBB\xBF"
        "a,b\r\n",
        {u"a|b"_qs});
    row("quoted", "\"a\",\"b\"\r\n", {u"a|b"_qs});
    row("comma", "\"a,b\",c\r\n", {u"a,b|c"_qs});
    row("mark in quotes", "\"a\"\"b\"\r\n", {u"a\"b"_qs});
    row("break in quotes", "\"a\r\nb\",c\r\n", {u"a\r\nb|c"_qs});
    row("empty fields", ",\"\",\r\n", {u"||"_qs});
    row("empty line", "\r\na\r\n", {QString(), u"a"_qs});
    row("accents", "\xC3\xA8\r\n", {u"è"_qs});
    row("carriage return", "a\rb,c\r\r\n", {u"a\rb|c\r"_qs});
}

void TestCsvReader::readsRecords()
{
    QFETCH(QByteArray, content);
    QTEST(records(content), "expected");
}

void TestCsvReader::skipsInvalidRecords_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("mark within") << QByteArray("a\"b\r\n");
    QTest::newRow("text behind the mark") << QByteArray("\"a\"b\r\n");
    QTest::newRow("latin-1") << QByteArray("\xE8\r\n");
    QTest::newRow("too many fields") << QByteArray(100, ',') + "\r\n";
}

void TestCsvReader::skipsInvalidRecords()
{
    QFETCH(QByteArray, line);
    QCOMPARE(records("a\r\n" + line + "b\r\n"), QStringList({u"a"_qs, u"?"_qs, u"b"_qs}));
    QCOMPARE(records("\"" + line), QStringList(u"?"_qs)); // never closed
}

/// Each line is looked at once, not with all that follow it.
void TestCsvReader::readsManyUnclosedLines()
{
    constexpr int count = 200000;
    const QByteArray content = QByteArray("\"\"x\n").repeated(count);
    QCOMPARE(records(content).size(), count);
}

void TestCsvReader::quotes()
{
    QCOMPARE(CsvReader::quoted(u"a \"b\", è"_qs), QByteArray("\"a \"\"b\"\", \xC3\xA8\""));
}

BRISEL_TEST(QCoreApplication, TestCsvReader)
#include "tst_csvreader.moc"
