#include "tests/lives/songlife.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;

/// After any life each song holds what it should, and each change of it can be taken back.
class TestSongLives : public QObject
{
    Q_OBJECT

private slots:
    /// Suppresses the many log lines.
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }
    void staysRight_data();
    void staysRight();
    void cleanupTestCase();

private:
    int m_lives = 0;
    int m_restored = 0;
};

/// Each row is one life; `staysRight:17` runs the row 17 alone.
void TestSongLives::staysRight_data()
{
#ifdef BRISEL_SANITIZE
    constexpr int lives = 40;
#else
    constexpr int lives = 400;
#endif
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= lives; ++seed)
        QTest::addRow("%d", seed) << seed;
}

void TestSongLives::staysRight()
{
    QFETCH(const int, seed);
    SongLife life(static_cast<unsigned>(seed));
    const QString problem = life.live();
    QVERIFY2(problem.isEmpty(), qPrintable(u"seed %1:\n  "_s.arg(seed) + problem));
    ++m_lives;
    m_restored += life.restored();
}

/// The lives must restore songs, or they show nothing.
void TestSongLives::cleanupTestCase()
{
    std::printf("%d lives, %d songs restored\n", m_lives, m_restored);
    QVERIFY(m_lives < 40 || m_restored > m_lives);
}

BRISEL_TEST(QCoreApplication, TestSongLives)
#include "tst_songlives.moc"
