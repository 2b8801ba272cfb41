#include "app/compacthead.h"
#include "app/screenfit.h"
#include "tests/app/samplewindow.h"
#include "tests/testprogram.h"

#include <QDialog>
#include <QGuiApplication>
#include <QScreen>

using namespace brisel;

/// Windows on a screen that is smaller than they are.
class TestScreenFit : public QObject
{
    Q_OBJECT

private slots:
    void makesLargeWindowsFit_data();
    void makesLargeWindowsFit();
    void leavesSmallWindows();
    void makesTheHeadOfALowWindowCompact();
};

void TestScreenFit::makesLargeWindowsFit_data()
{
    QTest::addColumn<bool>("isDialog");
    QTest::newRow("window") << false;
    QTest::newRow("dialog") << true;
}

void TestScreenFit::makesLargeWindowsFit()
{
    QFETCH(bool, isDialog);
    const ScreenFit fit(nullptr);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const std::unique_ptr<QWidget> window(isDialog ? new QDialog : new QWidget);
    window->resize(screen.size() + QSize(500, 500));
    window->move(100, 100);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    QVERIFY(screen.contains(window->geometry()));
    QVERIFY(window->width() > screen.width() - 20);
    QVERIFY(window->height() > screen.height() - 100);
}

void TestScreenFit::leavesSmallWindows()
{
    const ScreenFit fit(nullptr);
    QWidget window;
    window.setGeometry(30, 40, 300, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.geometry(), QRect(30, 40, 300, 200));
}

void TestScreenFit::makesTheHeadOfALowWindowCompact()
{
    const SampleWindow sample;
    const auto *logo = sample.window->findChild<QLabel *>(u"logoBriselLabel"_qs);
    const auto *button = sample.window->findChild<QToolButton *>(u"selectDirToolButton"_qs);
    QCOMPARE(logo->size(), QSize(240, 72));
    QCOMPARE(button->iconSize(), QSize(40, 40));
    const int table = sample.table->height();
    sample.window->resize(800, 600);
    QTRY_COMPARE(logo->size(), QSize(120, 36));
    QCOMPARE(button->iconSize(), QSize(20, 20));
    QCOMPARE(sample.window->size(), QSize(800, 600));
    QTRY_VERIFY(sample.table->height() >= table);
    sample.window->resize(1000, CompactHead::leastHeight);
    QTRY_COMPARE(logo->size(), QSize(240, 72));
    QCOMPARE(button->iconSize(), QSize(40, 40));
}

BRISEL_TEST(QApplication, TestScreenFit)
#include "tst_screenfit.moc"
