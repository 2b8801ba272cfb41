#include "memory/dialogs/memorywindow.h"

#include "tests/app/samplewindow.h"
#include "tests/testprogram.h"

#include <QTabWidget>

using namespace brisel;

/// The window of the memory, opened from the real main window.
class TestMemoryWindow : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_sample = std::make_unique<SampleWindow>(); }
    void cleanup() { closeVerified(m_sample); }
    void opensOnce();
    void opensNothingDuringARun();
    void keepsItsPlace();
    void fitsASmallScreen();
    void closesWithTheMainWindow();

private:
    MemoryWindow *open(const char *button = "memoryToolButton") const
    {
        m_sample->press(button);
        auto *window = m_sample->window->findChild<MemoryWindow *>();
        return window != nullptr && QTest::qWaitForWindowExposed(window) ? window : nullptr;
    }

    std::unique_ptr<SampleWindow> m_sample;
};

void TestMemoryWindow::opensOnce()
{
    const QPointer<MemoryWindow> window = open();
    QVERIFY(window != nullptr);
    QVERIFY(window->isWindow());
    QVERIFY(!window->isModal());
    m_sample->window->findChild<QAction *>(u"actionMemory"_qs)->trigger();
    QCOMPARE(m_sample->window->findChildren<MemoryWindow *>().size(), 1);
    DialogScript::click(window, u"closePushButton"_qs);
    QTRY_VERIFY(window == nullptr);
    QVERIFY(open() != nullptr);
}

void TestMemoryWindow::opensNothingDuringARun()
{
    const RunGuard guard;
    m_sample->window->findChild<QAction *>(u"actionMemory"_qs)->trigger();
    QVERIFY(m_sample->window->findChild<MemoryWindow *>() == nullptr);
}

void TestMemoryWindow::keepsItsPlace()
{
    QPointer<MemoryWindow> window = open();
    window->setGeometry(20, 40, 760, 530);
    QCoreApplication::processEvents();
    const QRect place = window->geometry();
    window->close();
    QTRY_VERIFY(window == nullptr);
    QCOMPARE(open()->geometry(), place);
}

void TestMemoryWindow::fitsASmallScreen()
{
    const MemoryWindow *window = open();
    QVERIFY2(window->minimumSizeHint().width() <= 800 && window->minimumSizeHint().height() <= 560,
             qPrintable(u"%1x%2"_qs.arg(window->minimumSizeHint().width())
                            .arg(window->minimumSizeHint().height())));
}

void TestMemoryWindow::closesWithTheMainWindow()
{
    const QPointer<MemoryWindow> window = open();
    m_sample->window->close();
    QTRY_VERIFY(window == nullptr);
    QVERIFY(!m_sample->window->isVisible());
}

BRISEL_TEST(QApplication, TestMemoryWindow)
#include "tst_memorywindow.moc"
