#include "tests/memories/memorylife.h"
#include "tests/testprogram.h"

#include <QTest>

/// After any life a memory has a set that is right, and playlists that play what they should.
class TestMemories : public QObject
{
    Q_OBJECT

private slots:
    /// Thousands of runs log thousands of lines that nobody reads.
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }
    void staysRight_data();
    void staysRight();
};

/// A row is a memory of its own: one alone is run by its name, `staysRight:17`.
void TestMemories::staysRight_data()
{
#ifdef BRISEL_SANITIZE
    constexpr int memories = 60;
#else
    constexpr int memories = 1000;
#endif
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= memories; ++seed)
        QTest::addRow("%d", seed) << seed;
}

void TestMemories::staysRight()
{
    QFETCH(int, seed);
    const QString problem = MemoryLife(static_cast<unsigned>(seed)).live();
    QVERIFY2(problem.isEmpty(), qPrintable(u"seed %1:\n  "_qs.arg(seed) + problem));
}

BRISEL_TEST(QCoreApplication, TestMemories)
#include "tst_memories.moc"
