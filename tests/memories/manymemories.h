#pragma once

#include <QTest>

namespace brisel
{

/// Tests of whole lives of memories: each row is one memory, and `<test>:17` runs the row 17 alone.
namespace ManyMemories
{

/// Suppresses the many log lines of thousands of runs.
inline void suppressLog()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
}

inline void addRows()
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

/// Lives the life of the row.
template <typename Life>
void live()
{
    QFETCH(int, seed);
    const QString problem = Life(static_cast<unsigned>(seed)).live();
    QVERIFY2(problem.isEmpty(), qPrintable(u"seed %1:\n  "_qs.arg(seed) + problem));
}

} // namespace ManyMemories

} // namespace brisel
