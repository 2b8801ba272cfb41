#include "index/memoryspeeds.h"

#include "base/lastfolder.h"
#include "tests/testprogram.h"

#include <QTemporaryDir>
#include <QTest>

using namespace brisel;

class TestMemorySpeeds : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void remembersTheLastSpeed();
    void knowsNothingOfOtherFolders();
    void keepsTheLastMemoriesOnly();
    void ignoresDamagedSettings();

private:
    QString on(const QString &name) const { return m_volumes.filePath(name); }

    QTemporaryDir m_volumes;
};

void TestMemorySpeeds::init()
{
    qputenv("BRISEL_VOLUMES", QFile::encodeName(m_volumes.path()));
    openSettings().clear();
    QVERIFY(QDir().mkpath(on(u"MY CARD/songs"_qs)) && QDir().mkpath(on(u"STICK"_qs)));
}

void TestMemorySpeeds::remembersTheLastSpeed()
{
    QCOMPARE(memorySpeed(on(u"MY CARD"_qs)), 0);
    keepMemorySpeed(on(u"MY CARD/songs"_qs), 5000);
    keepMemorySpeed(on(u"STICK"_qs), 70);
    keepMemorySpeed(on(u"MY CARD"_qs), 6000);
    QCOMPARE(memorySpeed(on(u"MY CARD/songs"_qs)), 6000);
    QCOMPARE(memorySpeed(on(u"STICK"_qs)), 70);
    keepMemorySpeed(on(u"STICK"_qs), 0);
    QCOMPARE(memorySpeed(on(u"STICK"_qs)), 70);
    QCOMPARE(Settings::memorySpeeds.in(openSettings()).size(), 2);
}

void TestMemorySpeeds::knowsNothingOfOtherFolders()
{
    keepMemorySpeed(u"/usr"_qs, 5000);
    QCOMPARE(memorySpeed(u"/usr"_qs), 0);
    QCOMPARE(Settings::memorySpeeds.in(openSettings()), QStringList());
}

void TestMemorySpeeds::keepsTheLastMemoriesOnly()
{
    for (int number = 0; number <= mostRecent; ++number) {
        const QString memory = on(QString::number(number));
        QVERIFY(QDir().mkpath(memory));
        keepMemorySpeed(memory, number + 1);
    }
    QCOMPARE(Settings::memorySpeeds.in(openSettings()).size(), mostRecent);
    QCOMPARE(memorySpeed(on(u"0"_qs)), 0);
    QCOMPARE(memorySpeed(on(u"1"_qs)), 2);
}

void TestMemorySpeeds::ignoresDamagedSettings()
{
    QSettings settings = openSettings();
    Settings::memorySpeeds.store(
        settings, {u"fast "_qs + on(u"STICK"_qs), QString(), u"-5 "_qs + on(u"MY CARD"_qs)});
    QCOMPARE(memorySpeed(on(u"STICK"_qs)), 0);
    QCOMPARE(memorySpeed(on(u"MY CARD"_qs)), 0);
}

BRISEL_TEST(QCoreApplication, TestMemorySpeeds)
#include "tst_memoryspeeds.moc"
