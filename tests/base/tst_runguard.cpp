#include "base/runguard.h"
#include "tests/testprogram.h"

#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

#include <optional>

using namespace brisel;

class TestRunGuard : public QObject
{
    Q_OBJECT

private slots:
    void isActiveWhileAnyLives();
    void eatsAQuitAndRemembersIt();
    void sendsTheQuitAgainAfterTheRun();
    void forgetsARequestOfAnEarlierRun();
    void ignoresARequestWithoutARun();
    void letsOtherEventsPass();
};

void TestRunGuard::isActiveWhileAnyLives()
{
    QVERIFY(!RunGuard::isActive());
    {
        const RunGuard outer;
        QVERIFY(RunGuard::isActive());
        {
            const RunGuard inner;
        }
        QVERIFY(RunGuard::isActive());
    }
    QVERIFY(!RunGuard::isActive());
}

void TestRunGuard::eatsAQuitAndRemembersIt()
{
    QEventLoop loop;
    bool wasQuit = false;
    bool wasNoted = false;
    std::optional<RunGuard> guard(std::in_place);
    QTimer::singleShot(0, [&] {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
        wasQuit = !loop.isRunning();
        wasNoted = RunGuard::endRequested();
        loop.exit(7);
    });
    QCOMPARE(loop.exec(), 7);
    QVERIFY(!wasQuit);
    QVERIFY(wasNoted);
}

void TestRunGuard::sendsTheQuitAgainAfterTheRun()
{
    int result = -1;
    QTimer::singleShot(0, [] {
        {
            const RunGuard outer;
            {
                const RunGuard inner;
                RunGuard::requestEnd();
            }
            QVERIFY(RunGuard::endRequested());
        }
        QVERIFY(!RunGuard::endRequested());
    });
    QTimer::singleShot(10000, [] { QCoreApplication::exit(99); });
    result = QCoreApplication::exec();
    QCOMPARE(result, 0);
}

void TestRunGuard::forgetsARequestOfAnEarlierRun()
{
    {
        const RunGuard guard;
        RunGuard::requestEnd();
    }
    QCoreApplication::removePostedEvents(qApp, QEvent::Quit);
    const RunGuard guard;
    QVERIFY(!RunGuard::endRequested());
}

void TestRunGuard::ignoresARequestWithoutARun()
{
    RunGuard::requestEnd();
    QVERIFY(!RunGuard::endRequested());
}

void TestRunGuard::letsOtherEventsPass()
{
    const RunGuard guard;
    QObject other;
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(&other, &quit);
    QVERIFY(!RunGuard::endRequested());
    bool fired = false;
    QTimer::singleShot(0, [&fired] { fired = true; });
    QTRY_VERIFY(fired);
}

BRISEL_TEST(QCoreApplication, TestRunGuard)
#include "tst_runguard.moc"
