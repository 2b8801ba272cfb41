#include "tests/memories/memorylife.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

/// After any life a memory has a correct set, and playlists that play what they should.
class TestMemories : public QObject
{
    Q_OBJECT

private slots:
    /// Suppresses the many log lines of thousands of runs.
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }
    void staysRight_data();
    void staysRight();
};

/// Each row is one memory; `staysRight:17` runs the row 17 alone.
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
