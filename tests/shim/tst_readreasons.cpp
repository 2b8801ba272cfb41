#include "base/filefailure.h"
#include "library/filecopier.h"
#include "library/songfailure.h"
#include "songfile/metasong.h"
#include "tests/scriptedrun.h"
#include "tests/shim/damagedfile.h"
#include "tests/songfile/samples.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

constexpr int songSize = 20000; ///< bytes, at least
constexpr int badPlace = 10000; ///< bytes; after everything that an import reads of an MP3

const QString midiName = u"song.mid"_s;
const QString mp3Name = u"song.mp3"_s;

QByteArray mp3()
{
    return Samples::tag(Samples::frame("TIT2", "Old")) + Samples::audio(songSize);
}

QString reportOf(const QString &path, Reason reason)
{
    RunReport report;
    report.add(RunReport::Step::Copy, path, reason);
    return report.text();
}

} // namespace

/// What is reported about a file that can't be read to its end.
class TestReadReasons : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void reportsATruncatedFile();
    void reportsAHugeFileWithoutReadingIt();
    void reportsTruncatedAudioOfAnMp3_data();
    void reportsTruncatedAudioOfAnMp3();
    void reportsATruncatedSource_data();
    void reportsATruncatedSource();
    void reportsATruncatedCompanion();

private:
    QString copyReport(const QStringList &sources);

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestReadReasons::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QDir::setCurrent(m_folder->path());
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
}

void TestReadReasons::cleanup()
{
    Shim::readAll();
    QDir::setCurrent(u"/"_s);
    m_folder.reset();
}

void TestReadReasons::reportsATruncatedFile()
{
    makeFile(midiName, Samples::midi() + QByteArray(songSize, 'x'));
    for (const Shim::ReadFailure failure : {Shim::BadSector, Shim::EndOfFile}) {
        const DamagedFile damaged(midiName, badPlace, failure);
        MetaSong song;
        QVERIFY(!song.importFile(midiName));
        QCOMPARE(whyNoSong(song, midiName), FileReason::truncated);
    }
}

void TestReadReasons::reportsAHugeFileWithoutReadingIt()
{
    makeFile(mp3Name, "no song");
    QVERIFY(QFile::resize(mp3Name, 5LL << 30)); // sparse
    Shim::arm(QFile::encodeName(QFileInfo(mp3Name).absolutePath()).constData(), 0, Shim::Kill);
    MetaSong song;
    QVERIFY(!song.importFile(mp3Name));
    const qint64 readByImport = Shim::bytesRead();
    QCOMPARE(whyNoSong(song, mp3Name), SongReason::unknownFormat);
    Shim::disarm();
    QCOMPARE(readByImport, 4);
    QCOMPARE(Shim::bytesRead(), readByImport);
}

void TestReadReasons::reportsTruncatedAudioOfAnMp3_data()
{
    QTest::addColumn<Shim::ReadFailure>("failure");
    QTest::addColumn<bool>("isLinked");
    for (const bool isLinked : {false, true}) {
        const char *kind = isLinked ? "linked" : "single";
        QTest::addRow("%s, bad sector", kind) << Shim::BadSector << isLinked;
        QTest::addRow("%s, end of file", kind) << Shim::EndOfFile << isLinked;
    }
}

void TestReadReasons::reportsTruncatedAudioOfAnMp3()
{
    QFETCH(const Shim::ReadFailure, failure);
    QFETCH(const bool, isLinked);
    makeFile(mp3Name, mp3());
    if (isLinked)
        QCOMPARE(::link("song.mp3", "other.mp3"), 0);
    MetaSong song;
    QVERIFY(song.importFile(mp3Name));
    SongInfo info;
    song.getSongInfo(info);
    info.title = u"A new title"_s;
    song.setSongInfo(info, true);
    {
        const DamagedFile damaged(mp3Name, badPlace, failure);
        QVERIFY(!song.saveToFile(mp3Name));
        QCOMPARE(song.trouble(), MetaSong::Trouble::CutShort);
        QCOMPARE(whyNotSaved(song, mp3Name), FileReason::truncated);
    }
    QVERIFY(fileContent(mp3Name) == mp3());
    QCOMPARE(QDir().entryList(QDir::Files | QDir::Hidden).size(), isLinked ? 2 : 1);
    QVERIFY(song.saveToFile(mp3Name));
    QCOMPARE(song.trouble(), MetaSong::Trouble::None);
}

/// What a copier reports after it has copied \a sources over existing files.
QString TestReadReasons::copyReport(const QStringList &sources)
{
    ScriptedRun run;
    run.answers = {Run::Answer::YesToAll};
    if (FileCopier(run).copyFiles(sources, u"CARD"_s))
        return u"all copied"_s;
    return run.report().text();
}

void TestReadReasons::reportsATruncatedSource_data()
{
    QTest::addColumn<QByteArray>("old");
    QTest::newRow("new file") << QByteArray();
    QTest::newRow("over an old one") << QByteArray("the old song");
}

void TestReadReasons::reportsATruncatedSource()
{
    QFETCH(const QByteArray, old);
    const QString place = u"CARD/song.mp3"_s;
    QVERIFY(QDir().mkdir(u"CARD"_s));
    makeFile(mp3Name, mp3());
    for (const Shim::ReadFailure failure : {Shim::BadSector, Shim::EndOfFile}) {
        if (!old.isEmpty())
            makeFile(place, old);
        const DamagedFile damaged(mp3Name, badPlace, failure);
        QCOMPARE(copyReport({mp3Name}), reportOf(mp3Name, FileReason::truncated));
        QCOMPARE(fileContent(place), old);
    }
}

void TestReadReasons::reportsATruncatedCompanion()
{
    const QString graphics = u"song.cdg"_s;
    QVERIFY(QDir().mkdir(u"CARD"_s));
    makeFile(mp3Name, mp3());
    makeFile(graphics, QByteArray(songSize, 'g'));
    const DamagedFile damaged(graphics, badPlace, Shim::BadSector);
    const QString report = copyReport({mp3Name});
    QVERIFY2(report.contains(reportOf(graphics, FileReason::truncated)), qPrintable(report));
    QCOMPARE(QDir(u"CARD"_s).entryList(QDir::Files | QDir::Hidden), QStringList{mp3Name});
}

BRISEL_TEST(QCoreApplication, TestReadReasons)
#include "tst_readreasons.moc"
