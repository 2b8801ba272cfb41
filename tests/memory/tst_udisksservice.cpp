#include "memory/udisksservice.h"
#include "tests/index/samplememory.h"
#include "tests/memory/fakeudisks.h"
#include "tests/testprogram.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace brisel;

/// Memories are unmounted through UDisks2, which a fake service replaces on a bus of its own.
class TestUDisksService : public QObject
{
    Q_OBJECT

    using Outcome = SafeRemoval::Outcome;

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void unmountsAndPowersOff();
    void ejectsWhatHasNoPowerSwitch();
    void onlyUnmountsOtherDrives();
    void findsTheMountPointThroughALink();
    void reportsErrors_data();
    void reportsErrors();
    void doesNotTrustAMemoryThatIsStillThere();
    void leavesFoldersThatAreNoMountPoint();
    void doesNotConfuseMountPoints();
    void needsNoService();
    void needsNoBus();
    void endsWithoutAnAnswer_data();
    void endsWithoutAnAnswer();
    void survivesStrangeReplies();

private:
    /// Unmounts the memory; its folder disappears with the fake's Unmount.
    SafeRemoval::Outcome remove(const QString &root, int milliseconds = 5000)
    {
        SafeRemoval removal(
            std::make_unique<UDisksService>(QDBusConnection(u"client"_qs), milliseconds), nullptr);
        QSignalSpy finished(&removal, &SafeRemoval::finished);
        removal.start(root);
        if (finished.isEmpty())
            finished.wait(10000);
        if (finished.size() != 1)
            qFatal("not finished");
        m_detail = finished.first().at(1).toString();
        return finished.first().first().value<SafeRemoval::Outcome>();
    }
    QByteArray mountPoint() const { return QFile::encodeName(m_memory->root()) + '\0'; }

    std::unique_ptr<PrivateBus> m_bus;
    std::optional<SampleMemory> m_memory;
    std::optional<FakeUDisks> m_service;
    QString m_detail;
};

void TestUDisksService::initTestCase()
{
    m_bus = std::make_unique<PrivateBus>();
    if (m_bus->address().isEmpty())
        QSKIP("no dbus-daemon");
}

void TestUDisksService::init()
{
    m_memory.emplace();
    QVERIFY(QDBusConnection::connectToBus(m_bus->address(), u"client"_qs).isConnected());
    QDBusConnection service = QDBusConnection::connectToBus(m_bus->address(), u"service"_qs);
    QVERIFY(service.isConnected());
    m_service.emplace(service);
    QVERIFY(service.registerService(u"org.freedesktop.UDisks2"_qs));
    m_service->add(u"sda1"_qs, u"Other"_qs, {QByteArray("/\0", 2), QByteArray("/home\0", 6)});
    m_service->add(u"sdb1"_qs, u"Stick"_qs, {mountPoint()});
    m_service->addDrive(u"Stick"_qs, true, true);
    m_service->onUnmount = [this] { QVERIFY(QDir(m_memory->root()).removeRecursively()); };
}

void TestUDisksService::cleanup()
{
    m_service.reset();
    QDBusConnection::disconnectFromBus(u"service"_qs);
    QDBusConnection::disconnectFromBus(u"client"_qs);
}

void TestUDisksService::unmountsAndPowersOff()
{
    QCOMPARE(remove(m_memory->root()), Outcome::Removable);
    QCOMPARE(m_service->calls, (QStringList{u"UDisks2 GetManagedObjects "_qs,
                                            u"sdb1 Unmount a{sv}"_qs, u"Stick PowerOff a{sv}"_qs}));
}

void TestUDisksService::ejectsWhatHasNoPowerSwitch()
{
    m_service->addDrive(u"Stick"_qs, false, true);
    QCOMPARE(remove(m_memory->root()), Outcome::Removable);
    QCOMPARE(m_service->calls.last(), u"Stick Eject a{sv}"_qs);
}

void TestUDisksService::onlyUnmountsOtherDrives()
{
    m_service->addDrive(u"Stick"_qs, false, false);
    QCOMPARE(remove(m_memory->root()), Outcome::Removable);
    QCOMPARE(m_service->calls.last(), u"sdb1 Unmount a{sv}"_qs);
}

void TestUDisksService::findsTheMountPointThroughALink()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath(u"link"_qs);
    QVERIFY(QFile::link(m_memory->root(), link));
    QCOMPARE(remove(link), Outcome::Removable);
}

void TestUDisksService::reportsErrors_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("error");
    QTest::addColumn<int>("outcome");
    const auto row = [](const char *name, const QString &method, const QString &error,
                        Outcome outcome) {
        QTest::newRow(name) << method << error << int(outcome);
    };
    row("busy", u"Unmount"_qs, u"DeviceBusy"_qs, Outcome::Busy);
    row("not authorized", u"Unmount"_qs, u"NotAuthorized"_qs, Outcome::NotAllowed);
    row("dismissed", u"Unmount"_qs, u"NotAuthorizedDismissed"_qs, Outcome::NotAllowed);
    row("failed", u"Unmount"_qs, u"Failed"_qs, Outcome::NotUnmounted);
    row("others mounted", u"PowerOff"_qs, u"DeviceBusy"_qs, Outcome::OthersMounted);
    row("no power switch", u"PowerOff"_qs, u"Failed"_qs, Outcome::Removable);
    row("no search", u"GetManagedObjects"_qs, u"Failed"_qs, Outcome::OnlyFlushed);
}

void TestUDisksService::reportsErrors()
{
    QFETCH(const QString, method);
    QFETCH(const QString, error);
    QFETCH(const int, outcome);
    m_service->errors.insert(method, error);
    QCOMPARE(int(remove(m_memory->root())), outcome);
    const bool isShown = outcome != int(Outcome::Removable) && outcome != int(Outcome::OnlyFlushed);
    QCOMPARE(m_detail, isShown ? u"target is busy"_qs : QString());
    QCOMPARE(QFileInfo(m_memory->root()).isDir(), method != u"PowerOff");
}

/// A memory counts as removable only when its folder has lost it.
void TestUDisksService::doesNotTrustAMemoryThatIsStillThere()
{
    m_service->onUnmount = {};
    QCOMPARE(remove(m_memory->root()), Outcome::NotUnmounted);
}

void TestUDisksService::leavesFoldersThatAreNoMountPoint()
{
    const SampleMemory other;
    QCOMPARE(remove(other.root()), Outcome::OnlyFlushed);
    QCOMPARE(m_service->calls.size(), 1);
}

void TestUDisksService::doesNotConfuseMountPoints()
{
    m_service->objects.clear();
    m_service->add(u"sdb1"_qs, u"Stick"_qs,
                   {mountPoint().chopped(2) + '\0', mountPoint().chopped(1) + "2\0"});
    QCOMPARE(remove(m_memory->root()), Outcome::OnlyFlushed);
    m_service->add(u"sdb2"_qs, u"Stick"_qs, {"/mnt", mountPoint().chopped(1)});
    QCOMPARE(remove(m_memory->root()), Outcome::Removable);
    QCOMPARE(m_service->calls.last(), u"sdb2 Unmount a{sv}"_qs);
}

void TestUDisksService::needsNoService()
{
    QDBusConnection(u"service"_qs).unregisterService(u"org.freedesktop.UDisks2"_qs);
    QCOMPARE(remove(m_memory->root()), Outcome::OnlyFlushed);
    QVERIFY(QFileInfo(m_memory->root()).isDir());
}

void TestUDisksService::needsNoBus()
{
    QDBusConnection::disconnectFromBus(u"client"_qs);
    QCOMPARE(remove(m_memory->root()), Outcome::OnlyFlushed);
}

void TestUDisksService::endsWithoutAnAnswer_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<int>("outcome");
    QTest::newRow("search") << u"GetManagedObjects"_qs << int(Outcome::OnlyFlushed);
    QTest::newRow("unmount") << u"Unmount"_qs << int(Outcome::NoAnswer);
}

void TestUDisksService::endsWithoutAnAnswer()
{
    QFETCH(const QString, method);
    QFETCH(const int, outcome);
    m_service->silent = method;
    QElapsedTimer time;
    time.start();
    QCOMPARE(int(remove(m_memory->root(), 300)), outcome);
    QVERIFY(time.elapsed() < 5000);
    QVERIFY(QFileInfo(m_memory->root()).isDir());
}

void TestUDisksService::survivesStrangeReplies()
{
    m_service->objects.clear();
    QVariantMap disk{{u"MountPoints"_qs, u"text"_qs}};
    m_service->objects[QDBusObjectPath(u"/a"_qs)].insert(u"org.freedesktop.UDisks2.Filesystem"_qs,
                                                         disk);
    QCOMPARE(remove(m_memory->root()), Outcome::OnlyFlushed);
    disk.insert(u"MountPoints"_qs, QVariant::fromValue(QList<QByteArray>{mountPoint()}));
    m_service->objects[QDBusObjectPath(u"/a"_qs)].insert(u"org.freedesktop.UDisks2.Filesystem"_qs,
                                                         disk);
    QCOMPARE(remove(m_memory->root()), Outcome::NotUnmounted); // no such object
}

BRISEL_TEST(QCoreApplication, TestUDisksService)

#include "tst_udisksservice.moc"
