#include "base/filelot.h"

#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QTest>

#include <sys/stat.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

QByteArray lotContent(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

} // namespace

/// New contents for many files at once. tst_flushcounts counts the flushes.
class TestFileLot : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void commitsNewAndReplacedFiles();
    void changesNothingBeforeTheCommit();
    void removesWhatIsNotCommitted();
    void leavesNothingOfAFileThatIsNotAdded();
    void keepsWhatWasChangedByOthers();
    void replacesNothingThatShouldBeNew();
    void failsForOneAndContinuesWithTheOthers();
    void noticesTruncatedContent();
    void findsItsPlacesInAnyCase();
    void isFullByNumberAndByBytes();
    void canBeFilledAgain();
    void replacesALinkAndNotItsTarget();
    void stagesInTheWorkFolderOfAMemory();
    void leavesOtherFilesInTheWorkFolder();
    void stagesBesideWhereALinkIsTheWorkFolder();
    void noticesAnExchangedFile();
    void noticesALinkInItsPlace();

private:
    QStringList entries() const { return QDir().entryList(QDir::Files | QDir::Hidden); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_before;
};

void TestFileLot::init()
{
    m_before = QDir::currentPath();
    m_folder = std::make_unique<QTemporaryDir>();
    QDir::setCurrent(m_folder->path());
    makeFile(u"old.mid"_s, "old");
}

void TestFileLot::cleanup()
{
    QDir::setCurrent(m_before);
    m_folder.reset();
}

void TestFileLot::commitsNewAndReplacedFiles()
{
    FileLot lot;
    QVERIFY(lot.write({u"old.mid"_s}, "new"));
    QVERIFY(QDir().mkdir(u"sub"_s));
    for (int i = 0; i < 50; ++i)
        QVERIFY(lot.write({u"sub/%1.mid"_s.arg(i)}, QByteArray::number(i)));
    QCOMPARE(lot.size(), 51);
    QVERIFY(lot.commitAll());
    QCOMPARE(lotContent(u"old.mid"_s), QByteArray("new"));
    for (int i = 0; i < 50; ++i)
        QCOMPARE(lotContent(u"sub/%1.mid"_s.arg(i)), QByteArray::number(i));
    QCOMPARE(entries(), QStringList{u"old.mid"_s});
    QCOMPARE(QDir(u"sub"_s).entryList(QDir::Files | QDir::Hidden).size(), 50);
}

void TestFileLot::changesNothingBeforeTheCommit()
{
    FileLot lot;
    QVERIFY(lot.write({u"old.mid"_s}, "new"));
    QVERIFY(lot.write({u"new.mid"_s}, "new"));
    QCOMPARE(lotContent(u"old.mid"_s), QByteArray("old"));
    QVERIFY(!QFile::exists(u"new.mid"_s));
}

void TestFileLot::removesWhatIsNotCommitted()
{
    {
        FileLot lot;
        QVERIFY(lot.write({u"old.mid"_s}, "new"));
        QVERIFY(lot.write({u"new.mid"_s}, "new"));
    }
    QCOMPARE(entries(), QStringList{u"old.mid"_s});
    QCOMPARE(lotContent(u"old.mid"_s), QByteArray("old"));
}

void TestFileLot::leavesNothingOfAFileThatIsNotAdded()
{
    FileLot lot;
    QVERIFY(lot.write({u"first.mid"_s}, "first"));
    QVERIFY(lot.open({u"second.mid"_s}) != nullptr);
    QVERIFY(!lot.holds(u"second.mid"_s));
    QCOMPARE(lot.commit(), QList{WriteResult::Done});
    QCOMPARE(entries(), QStringList({u"first.mid"_s, u"old.mid"_s}));
}

void TestFileLot::keepsWhatWasChangedByOthers()
{
    const FileState state = fileState(u"old.mid"_s);
    FileLot lot;
    FileLot::Place place{u"old.mid"_s};
    place.expected = &state;
    QVERIFY(lot.write(place, "new"));
    QVERIFY(lot.write({u"new.mid"_s}, "new"));
    makeFile(u"old.mid"_s, "somebody else's");
    QCOMPARE(lot.commit(), QList({WriteResult::Changed, WriteResult::Done}));
    QCOMPARE(lotContent(u"old.mid"_s), QByteArray("somebody else's"));
    QCOMPARE(entries(), QStringList({u"new.mid"_s, u"old.mid"_s}));
}

void TestFileLot::replacesNothingThatShouldBeNew()
{
    FileLot lot;
    FileLot::Place place{u"new.mid"_s};
    place.mustBeNew = true;
    QVERIFY(lot.write(place, "new"));
    makeFile(u"new.mid"_s, "somebody else's");
    QCOMPARE(lot.commit(), QList{WriteResult::NotNamed});
    QCOMPARE(lotContent(u"new.mid"_s), QByteArray("somebody else's"));
    QCOMPARE(entries(), QStringList({u"new.mid"_s, u"old.mid"_s}));
}

void TestFileLot::failsForOneAndContinuesWithTheOthers()
{
    FileLot lot;
    QVERIFY(lot.write({u"old.mid"_s}, "new"));
    QVERIFY(lot.write({u"other.mid"_s}, "new"));
    QVERIFY(!lot.write({u"missing/song.mid"_s}, "new"));
    QVERIFY(QFile::remove(u"old.mid"_s));
    QVERIFY(QDir().mkdir(u"old.mid"_s));
    QCOMPARE(lot.commit(), QList({WriteResult::NotNamed, WriteResult::Done}));
    QVERIFY(QFileInfo(u"old.mid"_s).isDir());
    QCOMPARE(entries(), QStringList{u"other.mid"_s});
}

void TestFileLot::noticesTruncatedContent()
{
    FileLot lot;
    std::unique_ptr<FileReplacement> file = lot.open({u"old.mid"_s});
    QVERIFY(file != nullptr);
    QCOMPARE(file->file().write("half"), qint64{4});
    file->finish(8);
    lot.add(std::move(file));
    QCOMPARE(lot.commit(), QList{WriteResult::Failed});
    QCOMPARE(lotContent(u"old.mid"_s), QByteArray("old"));
    QCOMPARE(entries(), QStringList{u"old.mid"_s});
}

void TestFileLot::findsItsPlacesInAnyCase()
{
    FileLot lot;
    QVERIFY(lot.write({u"New.mid"_s}, "new"));
    QVERIFY(lot.holds(u"NEW.MID"_s));
    QVERIFY(!lot.holds(u"old.mid"_s));
    QVERIFY(lot.commitAll());
    QVERIFY(!lot.holds(u"New.mid"_s));
}

void TestFileLot::isFullByNumberAndByBytes()
{
    FileLot many;
    int count = 0;
    for (; !many.isFull(); ++count)
        QVERIFY(many.write({u"%1.mid"_s.arg(count)}, "x"));
    QCOMPARE(count, 200);
    QVERIFY(many.commitAll());
    QVERIFY(!many.isFull());

    FileLot large;
    const QByteArray content(16 << 20, 'x');
    for (count = 0; !large.isFull(); ++count)
        QVERIFY(large.write({u"large%1.mid"_s.arg(count)}, content));
    QCOMPARE(count, 4);
}

void TestFileLot::canBeFilledAgain()
{
    FileLot lot;
    for (int round = 0; round < 3; ++round) {
        QVERIFY(lot.write({u"old.mid"_s}, QByteArray::number(round)));
        QVERIFY(lot.commitAll());
        QCOMPARE(lotContent(u"old.mid"_s), QByteArray::number(round));
    }
    QVERIFY(lot.commitAll());
    QCOMPARE(entries(), QStringList{u"old.mid"_s});
}

void TestFileLot::replacesALinkAndNotItsTarget()
{
    QVERIFY(QFile::link(u"old.mid"_s, u"link.mid"_s));
    FileLot lot;
    QVERIFY(lot.write({u"link.mid"_s}, "new"));
    QVERIFY(lot.commitAll());
    QVERIFY(!QFileInfo(u"link.mid"_s).isSymLink());
    QCOMPARE(lotContent(u"old.mid"_s), QByteArray("old"));
}

void TestFileLot::stagesInTheWorkFolderOfAMemory()
{
    QVERIFY(QDir().mkdir(u"songs"_s));
    FileLot lot;
    lot.setMemory(m_folder->path());
    QVERIFY(lot.write({m_folder->filePath(u"songs/new.mid"_s)}, "new"));
    QVERIFY(QDir(u"songs"_s).isEmpty());
    QCOMPARE(QDir(u".brisel2pc/lot"_s).entryList(QDir::Files), QStringList{u"SAVE0000.TMP"_s});
    QVERIFY(lot.commitAll());
    QCOMPARE(lotContent(u"songs/new.mid"_s), QByteArray("new"));
    QVERIFY(QDir(u".brisel2pc/lot"_s).isEmpty());
}

void TestFileLot::leavesOtherFilesInTheWorkFolder()
{
    makeFile(u".brisel2pc/lot/SAVE0000.TMP"_s, "left by a cut");
    {
        FileLot lot;
        lot.setMemory(m_folder->path());
        QVERIFY(lot.write({m_folder->filePath(u"old.mid"_s)}, "new"));
        QVERIFY(lot.commitAll());
    }
    QCOMPARE(lotContent(u"old.mid"_s), QByteArray("new"));
    QCOMPARE(lotContent(u".brisel2pc/lot/SAVE0000.TMP"_s), QByteArray("left by a cut"));
}

void TestFileLot::stagesBesideWhereALinkIsTheWorkFolder()
{
    const QTemporaryDir other;
    QVERIFY(QFile::link(other.path(), u".brisel2pc"_s));
    FileLot lot;
    lot.setMemory(m_folder->path());
    QVERIFY(lot.write({m_folder->filePath(u"old.mid"_s)}, "new"));
    QVERIFY(QDir(other.path()).isEmpty());
    QVERIFY(lot.commitAll());
    QCOMPARE(lotContent(u"old.mid"_s), QByteArray("new"));
    QVERIFY(QDir(other.path()).isEmpty());
}

void TestFileLot::noticesAnExchangedFile()
{
    FileLot lot;
    lot.setMemory(m_folder->path());
    QVERIFY(lot.write({m_folder->filePath(u"old.mid"_s)}, "new"));
    makeFile(u"other"_s, "somebody else's");
    QVERIFY(QFile::remove(u".brisel2pc/lot/SAVE0000.TMP"_s));
    QVERIFY(QFile::rename(u"other"_s, u".brisel2pc/lot/SAVE0000.TMP"_s));
    QCOMPARE(lot.commit(), QList{WriteResult::Failed});
    QCOMPARE(lotContent(u"old.mid"_s), QByteArray("old"));
}

void TestFileLot::noticesALinkInItsPlace()
{
    makeFile(u"secret"_s, "somebody else's");
    FileLot lot;
    lot.setMemory(m_folder->path());
    QVERIFY(lot.write({m_folder->filePath(u"old.mid"_s)}, "new"));
    QVERIFY(QFile::remove(u".brisel2pc/lot/SAVE0000.TMP"_s));
    QVERIFY(QFile::link(m_folder->filePath(u"secret"_s), u".brisel2pc/lot/SAVE0000.TMP"_s));
    QCOMPARE(lot.commit(), QList{WriteResult::Failed});
    QCOMPARE(lotContent(u"old.mid"_s), QByteArray("old"));
    QCOMPARE(lotContent(u"secret"_s), QByteArray("somebody else's"));
}

BRISEL_TEST(QCoreApplication, TestFileLot)
#include "tst_filelot.moc"
