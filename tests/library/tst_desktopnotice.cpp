#include "library/dialogs/noticemessage.h"
#include "library/dialogs/windowrun.h"
#include "tests/scriptedrun.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusServer>
#include <QDBusVirtualObject>
#include <QMainWindow>
#include <QTest>

using namespace brisel;

/// The notice of the desktop at the end of a long run.
class TestDesktopNotice : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void callsNotifyWithItsArguments();
    void escapesMarkup();
    void arrivesAtAService();
    void isSentAfterALongRun();
    void isSentWhileTheRunWaits();
    void isSentOnceForAllStages();
    void isLeftToTheRunThatContinues();
    void isNotSentAfterAShortRun();
    void isNotSentForTimeOfQuestions();
    void isNotSentWhileTheWindowIsInFront();
    void needsNoSessionBus();

private:
    void prepare(WindowRun &run);
    /// A run with stages of these milliseconds, and \a after until it ends.
    void runStages(const QList<int> &stages, int after = 0);

    qint64 m_now = 0;
    bool m_isInFront = false;
    QList<DesktopNotice> m_sent;
};

void TestDesktopNotice::init()
{
    m_now = 0;
    m_isInFront = false;
    m_sent.clear();
}

void TestDesktopNotice::prepare(WindowRun &run)
{
    run.setClock([this] { return m_now; });
    run.setDesktop({[this](const DesktopNotice &notice) { m_sent.append(notice); },
                    [this] { return m_isInFront; }});
    run.report().count(RunReport::Success::Copied);
}

void TestDesktopNotice::runStages(const QList<int> &stages, int after)
{
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Transfer);
    prepare(run);
    for (const int ms : stages) {
        run.begin({u"T"_qs, u"L"_qs, 2});
        m_now += ms;
    }
    run.end();
    QCOMPARE(m_sent.size(), 0);
    m_now += after;
}

/// Notify has the signature "susssasa{sv}i".
void TestDesktopNotice::callsNotifyWithItsArguments()
{
    const QDBusMessage message = noticeMessage({u"Title"_qs, u"Text"_qs});
    QCOMPARE(message.type(), QDBusMessage::MethodCallMessage);
    QCOMPARE(message.service(), u"org.freedesktop.Notifications"_qs);
    QCOMPARE(message.path(), u"/org/freedesktop/Notifications"_qs);
    QCOMPARE(message.interface(), u"org.freedesktop.Notifications"_qs);
    QCOMPARE(message.member(), u"Notify"_qs);
    const QVariantList arguments = message.arguments();
    QList<int> types;
    for (const QVariant &argument : arguments)
        types.append(argument.typeId());
    QCOMPARE(types, (QList<int>{QMetaType::QString, QMetaType::UInt, QMetaType::QString,
                                QMetaType::QString, QMetaType::QString, QMetaType::QStringList,
                                QMetaType::QVariantMap, QMetaType::Int}));
    QCOMPARE(arguments.at(0).toString(), u"Brisel2 PC"_qs);
    QCOMPARE(arguments.at(1).toUInt(), 0U);
    QCOMPARE(arguments.at(2).toString(), u"brisel2pc"_qs);
    QCOMPARE(arguments.at(3).toString(), u"Title"_qs);
    QCOMPARE(arguments.at(4).toString(), u"Text"_qs);
    QVERIFY(arguments.at(5).toStringList().isEmpty());
    QCOMPARE(arguments.at(6).toMap(),
             (QVariantMap{{u"suppress-sound"_qs, true}, {u"desktop-entry"_qs, u"brisel2pc"_qs}}));
    QCOMPARE(arguments.at(7).toInt(), -1);
}

void TestDesktopNotice::escapesMarkup()
{
    const QVariantList arguments = noticeMessage({u"a & b"_qs, u"<b>a</b> & b"_qs}).arguments();
    QCOMPARE(arguments.at(3).toString(), u"a & b"_qs); // the title has no markup
    QCOMPARE(arguments.at(4).toString(), u"&lt;b&gt;a&lt;/b&gt; &amp; b"_qs);
}

/// Over a connection of its own, without a bus.
void TestDesktopNotice::arrivesAtAService()
{
    class Service : public QDBusVirtualObject
    {
    public:
        QString introspect(const QString & /*path*/) const override { return {}; }
        bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override
        {
            signature = message.signature();
            text = message.arguments().value(4).toString();
            return true;
        }
        QString signature;
        QString text;
    };
    Service service;
    QDBusServer server(u"unix:tmpdir=%1"_qs.arg(QDir::tempPath()));
    if (!server.isConnected())
        QSKIP("no local connections");
    connect(&server, &QDBusServer::newConnection, &service, [&](QDBusConnection connection) {
        connection.registerVirtualObject(u"/org/freedesktop/Notifications"_qs, &service);
    });
    QDBusConnection client = QDBusConnection::connectToPeer(server.address(), u"notices"_qs);
    QVERIFY(client.isConnected());
    QTest::qWait(50);
    client.call(noticeMessage({u"Title"_qs, u"1 < 2"_qs}), QDBus::NoBlock);
    QTRY_COMPARE(service.signature, u"susssasa{sv}i"_qs);
    QCOMPARE(service.text, u"1 &lt; 2"_qs);
    QDBusConnection::disconnectFromPeer(u"notices"_qs);
}

void TestDesktopNotice::isSentAfterALongRun()
{
    runStages({30001});
    QCOMPARE(m_sent.size(), 1);
    QCOMPARE(m_sent.at(0).title, u"Operazione terminata"_qs);
    QVERIFY(m_sent.at(0).text.contains(u'1'));
}

/// A message box that shows the outcome may stay open within the run.
void TestDesktopNotice::isSentWhileTheRunWaits()
{
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Transfer);
    prepare(run);
    run.begin({u"T"_qs, u"L"_qs, 2});
    m_now += 30001;
    run.end();
    QTRY_COMPARE(m_sent.size(), 1);
}

void TestDesktopNotice::isSentOnceForAllStages()
{
    runStages({20000, 20000, 1});
    QCOMPARE(m_sent.size(), 1);
}

/// A search for songs is a part of their import.
void TestDesktopNotice::isLeftToTheRunThatContinues()
{
    QMainWindow window;
    qint64 searched = 0;
    {
        WindowRun search(&window, RunReport::Operation::Import);
        prepare(search);
        search.begin({u"T"_qs, u"L"_qs});
        m_now += 30001;
        search.end();
        searched = search.handOver();
    }
    QCOMPARE(m_sent.size(), 0);
    QCOMPARE(searched, 30001);
    {
        WindowRun import(&window, RunReport::Operation::Import);
        prepare(import);
        import.continueAfter(searched);
        import.begin({u"T"_qs, u"L"_qs, 2});
        m_now += 1;
        import.end();
    }
    QCOMPARE(m_sent.size(), 1);
}

/// The time after the last stage may be that of a dialog.
void TestDesktopNotice::isNotSentAfterAShortRun()
{
    runStages({30000}, 30000);
    QCOMPARE(m_sent.size(), 0);
}

void TestDesktopNotice::isNotSentForTimeOfQuestions()
{
    class AskingRun : public WindowRun
    {
    public:
        using WindowRun::answerOf;
        using WindowRun::WindowRun;
    };
    QMainWindow window;
    {
        AskingRun run(&window, RunReport::Operation::Transfer);
        prepare(run);
        run.begin({u"T"_qs, u"L"_qs, 2});
        QTimer::singleShot(0, this, [this] {
            m_now += 60000;
            QApplication::activeModalWidget()->close();
        });
        run.answerOf(Run::Question::Replace, u"a.mid"_qs, {});
        run.end();
    }
    QCOMPARE(m_sent.size(), 0);
}

void TestDesktopNotice::isNotSentWhileTheWindowIsInFront()
{
    QMainWindow window;
    for (const bool isLater : {false, true}) {
        WindowRun run(&window, RunReport::Operation::Transfer);
        prepare(run);
        m_isInFront = !isLater;
        run.begin({u"T"_qs, u"L"_qs, 2});
        m_now += 60000;
        run.end();
        m_isInFront = isLater; // only before the end, or only after it
    }
    QCOMPARE(m_sent.size(), 0);
}

void TestDesktopNotice::needsNoSessionBus()
{
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("XDG_RUNTIME_DIR", "/nowhere");
    DesktopNotice::send({u"Title"_qs, u"Text"_qs}); // returns, and prints nothing
}

BRISEL_TEST(QApplication, TestDesktopNotice)
#include "tst_desktopnotice.moc"
