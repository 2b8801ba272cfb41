#include "base/settings.h"
#include "library/dialogs/windowplace.h"
#include "tests/app/windowtest.h"
#include "tests/testprogram.h"

#include <QScreen>
#include <QSettings>

using namespace brisel;

/// The size and the place of the window at the next start.
class TestWindowPlace : public WindowTest
{
    Q_OBJECT

private slots:
    void init() { QSettings(settingsOrganisation, settingsApplication).clear(); }
    void cleanup() { m_window.reset(); }
    void nextStartHasTheSamePlace();
    void nextStartIsMaximisedAgain();
    void staysWhereItWasBehindMaximisedSessions();
    void firstStartHasItsOwn();
    void staysOnTheScreen_data();
    void staysOnTheScreen();

private:
    static void store(const QString &place)
    {
        QSettings settings(settingsOrganisation, settingsApplication);
        Settings::windowPlace.store(settings, place);
    }
    static QRect available() { return QGuiApplication::primaryScreen()->availableGeometry(); }
};

void TestWindowPlace::nextStartHasTheSamePlace()
{
    open();
    m_window->setMinimumSize(10, 10);
    m_window->resize(available().width() - 60, 500);
    m_window->move(33, 44);
    QCoreApplication::processEvents();
    m_window->close();
    open();
    QCOMPARE(m_window->pos(), QPoint(33, 44));
    QCOMPARE(m_window->height(), std::max(500, m_window->minimumSizeHint().height()));
}

void TestWindowPlace::nextStartIsMaximisedAgain()
{
    open();
    m_window->showMaximized();
    QCoreApplication::processEvents();
    m_window->close();
    open();
    QVERIFY(m_window->isMaximized());
}

/// Each session places the window by its frame or by its contents, but always by the same.
void TestWindowPlace::staysWhereItWasBehindMaximisedSessions()
{
    open();
    m_window->resize(640, 500);
    m_window->move(33, 44);
    QCoreApplication::processEvents();
    QVERIFY(m_window->pos() != m_window->geometry().topLeft()); // it has a frame
    const QRect normal = m_window->geometry();
    m_window->close();
    for (int session = 0; session < 3; ++session) {
        open();
        m_window->showMaximized();
        QCoreApplication::processEvents();
        m_window->close();
    }
    open();
    m_window->showNormal();
    QTRY_COMPARE(m_window->geometry(), normal);
}

void TestWindowPlace::firstStartHasItsOwn()
{
    QWidget window;
    window.resize(321, 123);
    restorePlace(window, QSettings(settingsOrganisation, settingsApplication),
                 Settings::windowPlace);
    QCOMPARE(window.size(), QSize(321, 123));
    QVERIFY(!window.isMaximized());
}

void TestWindowPlace::staysOnTheScreen_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<bool>("isUsed");
    QTest::newRow("inside") << u"10,20,300,200"_qs << true;
    QTest::newRow("on a screen that is gone") << u"5000,-4000,300,200"_qs << true;
    QTest::newRow("larger than the screen") << u"0,0,99999,99999"_qs << true;
    QTest::newRow("half outside") << u"-200,700,300,200"_qs << true;
    QTest::newRow("huge numbers") << u"2147483647,2147483647,2147483647,2147483647"_qs << true;
    QTest::newRow("negative size") << u"0,0,-300,-200"_qs << false;
    QTest::newRow("no numbers") << u"a,b,c,d"_qs << false;
    QTest::newRow("too few") << u"1,2,300"_qs << false;
    QTest::newRow("too many") << u"1,2,300,200,5"_qs << false;
}

void TestWindowPlace::staysOnTheScreen()
{
    QFETCH(QString, place);
    QFETCH(bool, isUsed);
    store(place);
    QWidget window;
    window.setGeometry(1, 2, 321, 123);
    restorePlace(window, QSettings(settingsOrganisation, settingsApplication),
                 Settings::windowPlace);
    QCOMPARE(window.geometry() != QRect(1, 2, 321, 123), isUsed);
    QVERIFY(!isUsed || available().contains(window.geometry()));
}

BRISEL_TEST(QApplication, TestWindowPlace)
#include "tst_windowplace.moc"
