#include "library/dialogs/progresslabel.h"
#include "library/dialogs/timeleft.h"
#include "library/dialogs/windowrun.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QMainWindow>
#include <QProgressDialog>

using namespace brisel;

/// The time left of a run, with a clock that the test sets.
class TestTimeLeft : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_now = 1000; }
    void staysSilentForFiveSeconds();
    void saysNothingWithoutSteps();
    void roundsToWhatOneReads_data();
    void roundsToWhatOneReads();
    void staysCalmWhenThePaceVaries();
    void followsALastingChangeOfPace();
    void isNeverNegative();
    void leavesOutPauses();
    void startsAnewForEachStage();
    void standsBelowTheLabelOfTheDialog();

private:
    TimeLeft timeLeft()
    {
        return TimeLeft([this] { return m_now; });
    }
    /// The text after \a seconds of a stage, of which \a done of \a steps are done.
    QString textAfter(int seconds, int done, int steps)
    {
        TimeLeft left = timeLeft();
        left.begin();
        m_now += seconds * 1000;
        return left.text(done, steps);
    }

    qint64 m_now = 0;
};

void TestTimeLeft::staysSilentForFiveSeconds()
{
    TimeLeft left = timeLeft();
    left.begin();
    m_now += 4999;
    QCOMPARE(left.text(1, 100), QString());
    m_now += 1;
    QCOMPARE(left.text(1, 100), u"ancora circa 8 minuti"_qs);
}

void TestTimeLeft::saysNothingWithoutSteps()
{
    QCOMPARE(textAfter(60, 0, 0), QString());
    QCOMPARE(textAfter(60, 0, 10), QString());
    QCOMPARE(textAfter(60, 5, 0), QString());
    QCOMPARE(textAfter(60, 10, 10), QString());
}

void TestTimeLeft::roundsToWhatOneReads_data()
{
    QTest::addColumn<int>("steps"); // of one second each, ten of which are done
    QTest::addColumn<QString>("text");
    QTest::newRow("1 s") << 11 << u"ancora pochi secondi"_qs;
    QTest::newRow("9 s") << 19 << u"ancora pochi secondi"_qs;
    QTest::newRow("10 s") << 20 << u"ancora circa 10 secondi"_qs;
    QTest::newRow("59 s") << 69 << u"ancora circa 50 secondi"_qs;
    QTest::newRow("89 s") << 99 << u"ancora circa 80 secondi"_qs;
    QTest::newRow("90 s") << 100 << u"ancora circa 2 minuti"_qs;
    QTest::newRow("149 s") << 159 << u"ancora circa 2 minuti"_qs;
    QTest::newRow("89 min") << 10 + 89 * 60 << u"ancora circa 89 minuti"_qs;
    QTest::newRow("90 min") << 10 + 90 * 60 << u"ancora circa 2 ore"_qs;
    QTest::newRow("24 days") << 2147483647 << u"ancora circa 596523 ore"_qs;
}

void TestTimeLeft::roundsToWhatOneReads()
{
    QFETCH(const int, steps);
    QFETCH(const QString, text);
    QCOMPARE(textAfter(10, 10, steps), text);
}

/// Steps of 0.5 and 1.5 seconds in turn.
void TestTimeLeft::staysCalmWhenThePaceVaries()
{
    TimeLeft left = timeLeft();
    left.begin();
    QStringList shown;
    for (int step = 1; step <= 300; ++step) {
        m_now += step % 2 == 0 ? 1500 : 500;
        const QString text = left.text(step, 300);
        if (!text.isEmpty() && (shown.isEmpty() || shown.constLast() != text))
            shown.append(text);
    }
    QCOMPARE(shown, (QStringList{u"ancora circa 5 minuti"_qs, u"ancora circa 4 minuti"_qs,
                                 u"ancora circa 3 minuti"_qs, u"ancora circa 2 minuti"_qs,
                                 u"ancora circa 80 secondi"_qs, u"ancora circa 70 secondi"_qs,
                                 u"ancora circa 60 secondi"_qs, u"ancora circa 50 secondi"_qs,
                                 u"ancora circa 40 secondi"_qs, u"ancora circa 30 secondi"_qs,
                                 u"ancora circa 20 secondi"_qs, u"ancora circa 10 secondi"_qs,
                                 u"ancora pochi secondi"_qs}));
}

void TestTimeLeft::followsALastingChangeOfPace()
{
    TimeLeft left = timeLeft();
    left.begin();
    for (int step = 1; step <= 10; ++step) {
        m_now += 1000;
        static_cast<void>(left.text(step, 1000));
    }
    QString text;
    for (int step = 11; step <= 500; ++step) { // each ten times as fast
        m_now += 100;
        text = left.text(step, 1000);
    }
    QCOMPARE(text, u"ancora circa 60 secondi"_qs);
}

void TestTimeLeft::isNeverNegative()
{
    TimeLeft left = timeLeft();
    left.begin();
    m_now += 10000;
    QCOMPARE(left.text(90, 100), u"ancora pochi secondi"_qs);
    m_now += 100000; // one slow step
    QVERIFY(left.text(91, 100).startsWith(u"ancora "));
    m_now += 999;
    QVERIFY(left.text(92, 100).startsWith(u"ancora "));
    QVERIFY(!left.text(92, 100).contains(u'-'));
}

void TestTimeLeft::leavesOutPauses()
{
    TimeLeft left = timeLeft();
    left.begin();
    m_now += 10000;
    left.pause();
    m_now += 3600000;
    QCOMPARE(left.worked(), 10000);
    left.resume();
    left.resume();
    QCOMPARE(left.worked(), 10000);
    QCOMPARE(left.text(10, 30), u"ancora circa 20 secondi"_qs);
}

void TestTimeLeft::startsAnewForEachStage()
{
    TimeLeft left = timeLeft();
    left.begin();
    m_now += 10000;
    QVERIFY(!left.text(1, 100).isEmpty());
    left.begin();
    QCOMPARE(left.text(1, 100), QString());
}

void TestTimeLeft::standsBelowTheLabelOfTheDialog()
{
    QMainWindow window;
    window.show();
    WindowRun run(&window, RunReport::Operation::Import);
    run.setClock([this] { return m_now; });
    run.begin({u"T"_qs, u"Label"_qs, 100});
    const auto *label = window.findChild<ProgressLabel *>();
    const auto *second = label->findChild<QLabel *>(u"timeLeftLabel"_qs);
    QCOMPARE(second->text(), QString());
    const QSize before = window.findChild<QProgressDialog *>()->size();
    m_now += 60000;
    run.setStep(50);
    QCOMPARE(label->text(), u"50 di 100"_qs);
    QCOMPARE(second->text(), u"ancora circa 60 secondi"_qs);
    QVERIFY(second->isVisible());
    QVERIFY(label->rect().contains(second->geometry()));
    QCOMPARE(window.findChild<QProgressDialog *>()->size(), before);
    run.setSteps(0);
    run.setStep(51);
    QCOMPARE(second->text(), QString());
}

BRISEL_TEST(QApplication, TestTimeLeft)
#include "tst_timeleft.moc"
