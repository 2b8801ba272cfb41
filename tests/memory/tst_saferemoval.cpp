#include "memory/saferemoval.h"

#include "base/filedescriptor.h"
#include "base/folderlock.h"
#include "tests/index/samplememory.h"
#include "tests/testprogram.h"

#include <QSignalSpy>
#include <QTest>

#include <sys/file.h>

using namespace brisel;

namespace
{

/// A service that does what a test says.
class ScriptedService : public UnmountService
{
public:
    void unmount(const QString &root) override
    {
        roots.append(root);
        if (isRemoving && !QDir(root).removeRecursively())
            qFatal("can't remove the folder");
        emit finished(outcome, u"detail"_qs);
    }
    SafeRemoval::Outcome outcome = SafeRemoval::Outcome::Removable;
    bool isRemoving = true;
    QStringList roots;
};

} // namespace

/// A memory is flushed and unmounted before it is pulled out.
class TestSafeRemoval : public QObject
{
    Q_OBJECT

    using Outcome = SafeRemoval::Outcome;

private slots:
    void releasesEverythingBeforeItUnmounts();
    void neverCallsAMountedMemoryRemovable();
    void onlyFlushesWithoutAService();
    void leavesABusyMemory();
    void reportsAMissingMemory();
    void hasATextForEachOutcome();

private:
    static SafeRemoval::Outcome outcomeOf(const QSignalSpy &finished)
    {
        return finished.size() == 1 ? finished.first().first().value<SafeRemoval::Outcome>()
                                    : SafeRemoval::Outcome::NotFlushed;
    }
};

void TestSafeRemoval::releasesEverythingBeforeItUnmounts()
{
    const SampleMemory memory;
    auto service = std::make_unique<ScriptedService>();
    const ScriptedService &script = *service;
    SafeRemoval removal(std::move(service), nullptr);
    QSignalSpy finished(&removal, &SafeRemoval::finished);
    int announced = 0;
    connect(&removal, &SafeRemoval::aboutToUnmount, this, [&] {
        ++announced;
        QVERIFY(script.roots.isEmpty());
        QVERIFY(removal.isWorking());
        // Its own lock would keep the memory busy.
        const FileDescriptor folder = FileDescriptor::openFolder(memory.root());
        QCOMPARE(::flock(folder.get(), LOCK_EX | LOCK_NB), 0);
    });
    removal.start(memory.root());
    QCOMPARE(announced, 1);
    QCOMPARE(script.roots, QStringList{memory.root()});
    QCOMPARE(outcomeOf(finished), Outcome::Removable);
    QVERIFY(!removal.isWorking());
}

void TestSafeRemoval::neverCallsAMountedMemoryRemovable()
{
    const SampleMemory memory;
    for (const Outcome outcome : {Outcome::Removable, Outcome::OthersMounted}) {
        auto service = std::make_unique<ScriptedService>();
        service->isRemoving = false;
        service->outcome = outcome;
        SafeRemoval removal(std::move(service), nullptr);
        QSignalSpy finished(&removal, &SafeRemoval::finished);
        removal.start(memory.root());
        QCOMPARE(outcomeOf(finished), Outcome::NotUnmounted);
    }
}

void TestSafeRemoval::onlyFlushesWithoutAService()
{
    const SampleMemory memory;
    SafeRemoval removal(nullptr, nullptr);
    QSignalSpy finished(&removal, &SafeRemoval::finished);
    const QSignalSpy announced(&removal, &SafeRemoval::aboutToUnmount);
    removal.start(memory.root());
    QCOMPARE(outcomeOf(finished), Outcome::OnlyFlushed);
    QCOMPARE(announced.size(), 0);
}

void TestSafeRemoval::leavesABusyMemory()
{
    const SampleMemory memory;
    const FileDescriptor folder = FileDescriptor::openFolder(memory.root());
    QCOMPARE(::flock(folder.get(), LOCK_EX), 0);
    auto service = std::make_unique<ScriptedService>();
    const ScriptedService &script = *service;
    SafeRemoval removal(std::move(service), nullptr);
    QSignalSpy finished(&removal, &SafeRemoval::finished);
    removal.start(memory.root());
    QCOMPARE(outcomeOf(finished), Outcome::InUse);
    QVERIFY(script.roots.isEmpty());
}

void TestSafeRemoval::reportsAMissingMemory()
{
    const SampleMemory memory;
    SafeRemoval removal(std::make_unique<ScriptedService>(), nullptr);
    QSignalSpy finished(&removal, &SafeRemoval::finished);
    removal.start(memory.path(u"missing"_qs));
    QCOMPARE(outcomeOf(finished), Outcome::Gone);
}

/// "ora si può togliere" is said of one outcome only.
void TestSafeRemoval::hasATextForEachOutcome()
{
    QStringList texts;
    for (int outcome = 0; outcome <= int(Outcome::Gone); ++outcome) {
        const QString text = SafeRemoval::text(static_cast<Outcome>(outcome));
        QVERIFY(!text.isEmpty());
        QVERIFY(!texts.contains(text));
        texts.append(text);
        QCOMPARE(text.contains(u"ora si può togliere"_qs), outcome == int(Outcome::Removable));
        QCOMPARE(SafeRemoval::mayBePulled(static_cast<Outcome>(outcome)),
                 outcome == int(Outcome::Removable));
    }
}

BRISEL_TEST(QCoreApplication, TestSafeRemoval)

#include "tst_saferemoval.moc"
