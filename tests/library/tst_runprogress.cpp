#include "base/runguard.h"
#include "library/dialogs/runprogress.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

class TestRunProgress : public QObject
{
    Q_OBJECT

private slots:
    void blocksTheWindowFromTheFirstMoment();
    void showsCountInLabelAndBar();
    void keepsLabelWhenOnlyTheBarMoves();
    void showsSongNamesAsTheyAre();
    void remembersCancelAndStaysClosed_data();
    void remembersCancelAndStaysClosed();
    void paintsWhileTheValueIsSet();
    void paintsWhileNoBarMoves();
    void showsTheLastStepAtThePaintingsInBetween();
    void showsAShortRunWhole();
    void laysOutFewOfManySteps();
    void takesFewOfManyBreaths();
    void forgetsCancelAtTheNextRun();
    void replacesAnOpenDialog();
    void countsARequestToEndAsCancel();
    void closesWithItsOwner();
    void toleratesCallsWithoutADialog();

private:
    static QProgressDialog *dialogOf(const QWidget &window)
    {
        return window.findChild<QProgressDialog *>();
    }
    /// Begins a run of 100 steps; its dialog has been painted.
    static QProgressDialog *beginShown(QMainWindow &window, RunProgress &progress)
    {
        window.show();
        progress.begin(QStringLiteral("T"), QStringLiteral("L"), 100);
        progress.breathe();
        return dialogOf(window);
    }
    static QString labelOf(const QWidget &window)
    {
        return dialogOf(window)->findChild<QLabel *>()->text();
    }
};

void TestRunProgress::blocksTheWindowFromTheFirstMoment()
{
    QMainWindow window;
    window.show();
    RunProgress progress(&window);
    progress.begin(QStringLiteral("Lettura file"), QStringLiteral("Importo la libreria..."), 5);

    QProgressDialog *dialog = dialogOf(window);
    QVERIFY(dialog != nullptr);
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->windowModality(), Qt::WindowModal);
    QCOMPARE(QApplication::activeModalWidget(), dialog);
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Lettura file"));
    QCOMPARE(labelOf(window), QStringLiteral("Importo la libreria..."));
    QCOMPARE(dialog->findChild<QPushButton *>()->text(), QStringLiteral("Interrompi"));
    QCOMPARE(dialog->minimum(), 0);
    QCOMPARE(dialog->maximum(), 5);
    QCOMPARE(dialog->value(), 0);
}

void TestRunProgress::showsCountInLabelAndBar()
{
    QMainWindow window;
    RunProgress progress(&window);
    progress.begin(QStringLiteral("T"), QStringLiteral("L"), 3);
    for (int value = 1; value <= 3; ++value) {
        progress.setValue(value);
        QCOMPARE(labelOf(window), QStringLiteral("%1 di 3").arg(value));
        QCOMPARE(dialogOf(window)->value(), value);
    }
    QVERIFY2(dialogOf(window)->isVisible(), "the last step alone does not close the dialog");
    QVERIFY(!progress.isCanceled());
}

void TestRunProgress::keepsLabelWhenOnlyTheBarMoves()
{
    QMainWindow window;
    RunProgress progress(&window);
    progress.begin(QStringLiteral("T"), QStringLiteral("Aggiornamento database..."), 0);
    QCOMPARE(dialogOf(window)->maximum(), 0);
    progress.setMaximum(9);
    progress.setStep(4);
    QCOMPARE(dialogOf(window)->maximum(), 9);
    QCOMPARE(dialogOf(window)->value(), 4);
    QCOMPARE(labelOf(window), QStringLiteral("Aggiornamento database..."));
}

void TestRunProgress::showsSongNamesAsTheyAre()
{
    QMainWindow window;
    RunProgress progress(&window);
    progress.begin(QStringLiteral("T"), QStringLiteral("<b>x</b>"), 1);
    QCOMPARE(dialogOf(window)->findChild<QLabel *>()->textFormat(), Qt::PlainText);
}

void TestRunProgress::remembersCancelAndStaysClosed_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"button", "escape", "close"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void TestRunProgress::remembersCancelAndStaysClosed()
{
    QFETCH(QString, way);
    QMainWindow window;
    window.show();
    RunProgress progress(&window);
    progress.begin(QStringLiteral("T"), QStringLiteral("L"), 4);
    progress.setValue(1);
    QProgressDialog *dialog = dialogOf(window);
    if (way == QStringLiteral("button"))
        QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
    else if (way == QStringLiteral("escape"))
        QTest::keyClick(dialog, Qt::Key_Escape);
    else
        dialog->close();
    QVERIFY(progress.isCanceled());

    for (int value = 2; value <= 4; ++value) {
        progress.setValue(value);
        progress.breathe();
        QVERIFY(!dialog->isVisible());
        QVERIFY(progress.isCanceled());
    }
    QCOMPARE(labelOf(window), QStringLiteral("4 di 4"));
    progress.end();
    QVERIFY(progress.isCanceled());
}

void TestRunProgress::paintsWhileTheValueIsSet()
{
    QMainWindow window;
    RunProgress progress(&window);
    PaintCounter painted;
    beginShown(window, progress)->findChild<QLabel *>()->installEventFilter(&painted);
    QElapsedTimer clock;
    clock.start();
    for (int value = 0; clock.elapsed() < 400; ++value)
        progress.setValue(value % 100);
    QVERIFY2(painted.count >= 3, qPrintable(QString::number(painted.count)));
}

void TestRunProgress::paintsWhileNoBarMoves()
{
    QMainWindow window;
    RunProgress progress(&window);
    PaintCounter painted;
    QProgressDialog *dialog = beginShown(window, progress);
    dialog->installEventFilter(&painted);
    constexpr int patience = 10000; // milliseconds
    QElapsedTimer clock;
    clock.start();
    while (painted.count < 3 && clock.elapsed() < patience) {
        dialog->update();
        progress.paintInTime();
    }
    QCOMPARE(painted.count, 3);
    QVERIFY2(clock.elapsed() >= 2 * 50, qPrintable(QString::number(clock.elapsed())));
}

/// A painting that comes just before a step must not keep the bar from showing it.
void TestRunProgress::showsTheLastStepAtThePaintingsInBetween()
{
    constexpr int firstSteps = 17; // they are shown in any case
    constexpr int pause = 60;      // milliseconds: a painting is due
    QMainWindow window;
    window.show();
    RunProgress progress(&window);
    progress.begin(QStringLiteral("T"), QStringLiteral("L"), 100);
    for (int step = 0; step < firstSteps; ++step)
        progress.setStep(1);
    for (int step = 20; step < 100; step += 10) {
        QTest::qSleep(pause);
        progress.paintInTime();
        progress.setStep(step);
        QTest::qSleep(pause);
        progress.paintInTime();
        QCOMPARE(dialogOf(window)->value(), step);
    }
}

void TestRunProgress::showsAShortRunWhole()
{
    QMainWindow window;
    RunProgress progress(&window);
    progress.begin(QStringLiteral("T"), QStringLiteral("L"), 10);
    for (int value = 1; value <= 10; ++value) {
        progress.setValue(value);
        QCOMPARE(labelOf(window), QStringLiteral("%1 di 10").arg(value));
    }
}

/// Ten thousand songs: the advance is shown some twenty times a second, and the end always.
void TestRunProgress::laysOutFewOfManySteps()
{
    constexpr int steps = 10000;
    QMainWindow window;
    window.show();
    RunProgress progress(&window);
    progress.begin(QStringLiteral("T"), QStringLiteral("L"), steps);
    QElapsedTimer clock;
    clock.start();
    QString last;
    qint64 shown = 0;
    for (int value = 1; value <= steps; ++value) {
        progress.setValue(value);
        progress.breathe();
        const QString label = labelOf(window);
        shown += label == last ? 0 : 1;
        last = label;
    }
    QCOMPARE(last, QStringLiteral("10000 di 10000"));
    QVERIFY2(shown <= 20 + clock.elapsed() / 50, qPrintable(QString::number(shown)));
}

/// A search through ten thousand files shows no step, and lets events through no more often than
/// other runs do.
void TestRunProgress::takesFewOfManyBreaths()
{
    constexpr int breaths = 10000;
    QMainWindow window;
    RunProgress progress(&window);
    progress.begin(QStringLiteral("T"), QStringLiteral("L"), 0);
    QElapsedTimer clock;
    clock.start();
    qint64 taken = 0;
    for (int i = 0; i < breaths; ++i) {
        bool through = false;
        QMetaObject::invokeMethod(
            &window, [&through] { through = true; }, Qt::QueuedConnection);
        progress.breathe();
        taken += through ? 1 : 0;
        QCoreApplication::removePostedEvents(&window, QEvent::MetaCall);
    }
    QVERIFY2(taken >= 16, qPrintable(QString::number(taken)));
    QVERIFY2(taken <= 20 + clock.elapsed() / 10, qPrintable(QString::number(taken)));
}

void TestRunProgress::forgetsCancelAtTheNextRun()
{
    QMainWindow window;
    RunProgress progress(&window);
    progress.begin(QStringLiteral("T"), QStringLiteral("L"), 4);
    QTest::mouseClick(dialogOf(window)->findChild<QPushButton *>(), Qt::LeftButton);
    QVERIFY(progress.isCanceled());
    progress.begin(QStringLiteral("T"), QStringLiteral("L"), 4);
    QVERIFY(!progress.isCanceled());
    QVERIFY(dialogOf(window)->isVisible());
}

void TestRunProgress::replacesAnOpenDialog()
{
    QMainWindow window;
    RunProgress progress(&window);
    progress.begin(QStringLiteral("A"), QStringLiteral("L"), 4);
    progress.begin(QStringLiteral("B"), QStringLiteral("L"), 4);
    QCOMPARE(window.findChildren<QProgressDialog *>().size(), 1);
    QCOMPARE(dialogOf(window)->windowTitle(), QStringLiteral("B"));
}

void TestRunProgress::countsARequestToEndAsCancel()
{
    QMainWindow window;
    RunProgress progress(&window);
    const RunGuard run;
    progress.begin(QStringLiteral("T"), QStringLiteral("L"), 4);
    QVERIFY(!progress.isCanceled());
    QTimer::singleShot(0, qApp, [] { RunGuard::requestEnd(); });
    progress.breathe();
    QVERIFY(progress.isCanceled());
}

void TestRunProgress::closesWithItsOwner()
{
    QMainWindow window;
    {
        RunProgress progress(&window);
        progress.begin(QStringLiteral("T"), QStringLiteral("L"), 4);
        QVERIFY(dialogOf(window) != nullptr);
    }
    QVERIFY(dialogOf(window) == nullptr);
}

void TestRunProgress::toleratesCallsWithoutADialog()
{
    QMainWindow window;
    RunProgress progress(&window);
    progress.setValue(3);
    progress.setStep(3);
    progress.setMaximum(3);
    progress.breathe();
    progress.end();
    QVERIFY(!progress.isCanceled());
    QVERIFY(dialogOf(window) == nullptr);
}

BRISEL_TEST(QApplication, TestRunProgress)
#include "tst_runprogress.moc"
