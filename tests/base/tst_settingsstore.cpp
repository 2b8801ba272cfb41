#include "base/fileidentity.h"
#include "base/settings.h"
#include "tests/hangwatch.h"
#include "tests/logcapture.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

#include <sys/stat.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

const QString settingsFile = u"kordia/brisel2pc.conf"_s;
const QString sharedFile = u"kordia.conf"_s;
constexpr qsizetype largestSettings = 1 << 20;

/// Settings of \a size bytes.
QByteArray settingsOfSize(qsizetype size)
{
    const QByteArray start = "[General]\nlanguage=de\nfiller=";
    return start + QByteArray(size - start.size() - 1, 'x') + '\n';
}

/// The language in the settings, read as at the program's start.
QString storedLanguage()
{
    return openSettings().value(u"language"_s, u"default"_s).toString();
}

} // namespace

/// Invalid settings files.
class TestSettingsStore : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void readsAndStores();
    void readsSettingsOfTheLargestSize();
    void skipsWhatCannotBeReached();
    void ignoresWhatCannotBeSettings_data();
    void ignoresWhatCannotBeSettings();
    void storesNothingIfTheSettingsAreNoLongerAFile();
    void beginsWithTheInitialChoices();
    void logsAChoiceThatCannotBeStored();
};

/// The settings are in the working folder.
void TestSettingsStore::init()
{
    QDir(u"kordia"_s).removeRecursively();
    QFile::remove(sharedFile);
    QVERIFY(QDir().mkpath(u"kordia"_s));
}

void TestSettingsStore::readsAndStores()
{
    QCOMPARE(storedLanguage(), u"default"_s);
    QSettings settings = openSettings();
    QVERIFY(storeSetting(settings, u"language"_s, u"it"_s));
    QCOMPARE(fileContent(settingsFile), QByteArray("[General]\nlanguage=it\n"));
    QCOMPARE(storedLanguage(), u"it"_s);
}

void TestSettingsStore::readsSettingsOfTheLargestSize()
{
    makeFile(settingsFile, settingsOfSize(largestSettings));
    QCOMPARE(storedLanguage(), u"de"_s);
}

void TestSettingsStore::skipsWhatCannotBeReached()
{
    QVERIFY(QFile::link(sharedFile, sharedFile));
    QSettings settings = openSettings();
    QVERIFY(storeSetting(settings, u"language"_s, u"it"_s));
    QCOMPARE(storedLanguage(), u"it"_s);
    QVERIFY(QFile::remove(settingsFile));
    QVERIFY(QFile::link(u"brisel2pc.conf"_s, settingsFile));
    QSettings unreachable = openSettings();
    QVERIFY(!storeSetting(unreachable, u"language"_s, u"it"_s));
    QVERIFY(QFileInfo(settingsFile).isSymLink());
}

void TestSettingsStore::ignoresWhatCannotBeSettings_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("kind");
    for (const QString &path : {settingsFile, sharedFile}) {
        for (const char *kind : {"fifo", "folder", "device", "large"})
            QTest::addRow("%s, %s", qPrintable(path), kind) << path << QByteArray(kind);
    }
}

void TestSettingsStore::ignoresWhatCannotBeSettings()
{
    QFETCH(const QString, path);
    QFETCH(const QByteArray, kind);
    const HangWatch watch;
    if (kind == "fifo")
        QCOMPARE(::mkfifo(qPrintable(path), 0600), 0);
    else if (kind == "folder")
        QVERIFY(QDir().mkdir(path));
    else if (kind == "device")
        QVERIFY(QFile::link(u"/dev/zero"_s, path));
    else
        makeFile(path, settingsOfSize(largestSettings + 1));
    const FileState before = fileState(path);
    QCOMPARE(storedLanguage(), u"default"_s);
    QSettings settings = openSettings();
    QVERIFY(!storeSetting(settings, u"language"_s, u"it"_s));
    // The choice is kept while the program runs.
    QCOMPARE(settings.value(u"language"_s).toString(), u"it"_s);
    QVERIFY(fileState(path) == before);
    QCOMPARE(QFile::exists(settingsFile), path == settingsFile);
    if (kind == "folder")
        QVERIFY(QDir().rmdir(path));
}

void TestSettingsStore::storesNothingIfTheSettingsAreNoLongerAFile()
{
    const HangWatch watch;
    QSettings settings = openSettings();
    QVERIFY(storeSetting(settings, u"language"_s, u"it"_s));
    QVERIFY(QFile::remove(settingsFile));
    QCOMPARE(::mkfifo(qPrintable(settingsFile), 0600), 0);
    QVERIFY(!storeSetting(settings, u"language"_s, u"en"_s));
    QCOMPARE(fileKind(settingsFile), FileKind::Other);
}

void TestSettingsStore::beginsWithTheInitialChoices()
{
    QSettings settings = openSettings();
    QCOMPARE(Settings::language.in(settings), u"it"_s);
    QVERIFY(Settings::copyrightAsk.in(settings));
    QVERIFY(!Settings::logEnabled.in(settings));
    QVERIFY(!Settings::logClear.in(settings));
    QVERIFY(Settings::mediaRoot.in(settings).isEmpty());
    Settings::copyrightAsk.store(settings, false);
    QCOMPARE(fileContent(settingsFile), QByteArray("[General]\ncopyrightAsk=false\n"));
    QVERIFY(!Settings::copyrightAsk.in(openSettings()));
}

void TestSettingsStore::logsAChoiceThatCannotBeStored()
{
    QSettings settings = openSettings();
    const LogCapture log;
    Settings::logEnabled.store(settings, true);
    QCOMPARE(log.messages(), QStringList());
    QVERIFY(QFile::remove(settingsFile));
    QVERIFY(QDir().mkdir(settingsFile));
    Settings::logClear.store(settings, true);
    QCOMPARE(log.messages(), QStringList(u"Impossible to store setting: \"logclear\" "_s));
    QVERIFY(QDir().rmdir(settingsFile));
}

BRISEL_TEST(QCoreApplication, TestSettingsStore)
#include "tst_settingsstore.moc"
