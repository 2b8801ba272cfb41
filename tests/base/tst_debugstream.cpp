#include "base/debugstream.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"

#include <QtTest>

using namespace brisel;

class TestDebugStream : public QObject
{
    Q_OBJECT

private slots:
    void endsEveryItemWithABlank();
    void keepsTextRawBetweenQuotes();
    void writesEmptyMessageAsOneBlank();
    void keepsLineBreaksInsideOneLine();
    void passesLoggingRulesOfTheUser();
    void buildsNothingWhileTheLogIsOff();
};

void TestDebugStream::endsEveryItemWithABlank()
{
    LogCapture log;
    debug() << "Song Index: " << 7 << true << -1 << 3000000000U;
    QCOMPARE(log.messages(), QStringList{QStringLiteral("Song Index:  7 true -1 3000000000 ")});
}

void TestDebugStream::keepsTextRawBetweenQuotes()
{
    LogCapture log;
    debug() << "Found file:" << QStringLiteral("/a \"b\"\\ \u00e9\t");
    QCOMPARE(log.messages(), QStringList{QStringLiteral("Found file: \"/a \"b\"\\ \u00e9\t\" ")});
}

void TestDebugStream::writesEmptyMessageAsOneBlank()
{
    LogCapture log;
    debug() << "";
    QCOMPARE(log.messages(), QStringList{QStringLiteral(" ")});
}

void TestDebugStream::keepsLineBreaksInsideOneLine()
{
    LogCapture log;
    debug() << QStringLiteral("a\r\n[01-01-2025 00:00:00]D| forged");
    QCOMPARE(log.messages(),
             QStringList{QStringLiteral("\"a\\r\\n[01-01-2025 00:00:00]D| forged\" ")});
}

void TestDebugStream::passesLoggingRulesOfTheUser()
{
    LogCapture log;
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    debug() << "still here";
    QLoggingCategory::setFilterRules(QString());
    QCOMPARE(log.messages(), QStringList{QStringLiteral("still here ")});
}

void TestDebugStream::buildsNothingWhileTheLogIsOff()
{
    const LogCapture log;
    DebugStream::setHeard(false);
    {
        DebugStream stream;
        stream << "Song Index: " << 7 << true << 3U << QStringLiteral("/a\n") << qint64(9);
        QVERIFY(stream.message().isNull());
    }
    DebugStream::setHeard(true);
    QVERIFY(log.messages().isEmpty());
    DebugStream stream;
    stream << "heard" << 7;
    QCOMPARE(stream.message(), QStringLiteral("heard 7 "));
}

BRISEL_TEST(QCoreApplication, TestDebugStream)
#include "tst_debugstream.moc"
