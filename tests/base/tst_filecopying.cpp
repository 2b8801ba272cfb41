#include "base/filecopying.h"
#include "tests/base/duringtruncate.h"
#include "tests/fulldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

constexpr qint64 mebibyte = 1 << 20;
constexpr qint64 sparseSize = 64 * mebibyte;

/// Data at the start and in the middle, with holes between and after them.
QByteArray sparseContent()
{
    QByteArray content(sparseSize, '\0');
    content.replace(0, 5, "begin");
    content.replace(sparseSize / 2, 6, "middle");
    return content;
}

void makeSparseFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.resize(sparseSize) || file.write("begin") != 5 ||
        !file.seek(sparseSize / 2) || file.write("middle") != 6)
        qFatal("can't write");
}

/// The bytes that the file occupies on the disk.
qint64 occupied(const QString &path)
{
    constexpr qint64 unit = 512;
    struct stat entry {
    };
    return ::stat(QFile::encodeName(path).constData(), &entry) == 0 ? entry.st_blocks * unit : -1;
}

} // namespace

class TestFileCopying : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void copiesExactlyWhatIsAskedFor_data();
    void copiesExactlyWhatIsAskedFor();
    void refusesMoreThanThereIs();
    void continuesAfterTheWrittenPart();
    void keepsHoles();
    void keepsTheHoleAtTheEndOfAPart();
    void noticesASourceThatIsTruncatedMeanwhile();
    void writesZerosOverOldContent();
    void distinguishesTheSourceFromTheTarget();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QFile m_source;
    QFile m_target;
};

void TestFileCopying::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_source.setFileName(m_folder->filePath(u"source"_s));
    m_target.setFileName(m_folder->filePath(u"target"_s));
    makeFile(m_source.fileName(), "0123456789");
    QVERIFY(m_source.open(QIODevice::ReadOnly));
    QVERIFY(m_target.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
}

void TestFileCopying::cleanup()
{
    m_source.close();
    m_target.close();
    m_folder.reset();
}

void TestFileCopying::copiesExactlyWhatIsAskedFor_data()
{
    QTest::addColumn<qint64>("pos");
    QTest::addColumn<qint64>("count");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("all") << 0LL << 10LL << QByteArray("0123456789");
    QTest::newRow("a part") << 3LL << 4LL << QByteArray("3456");
    QTest::newRow("nothing") << 3LL << 0LL << QByteArray();
    QTest::newRow("nothing at the end") << 10LL << 0LL << QByteArray();
}

void TestFileCopying::copiesExactlyWhatIsAskedFor()
{
    QFETCH(const qint64, pos);
    QFETCH(const qint64, count);
    QCOMPARE(copyRest(m_source.handle(), pos, count, m_target.handle()), CopyResult::Done);
    QTEST(fileContent(m_target.fileName()), "expected");
}

void TestFileCopying::refusesMoreThanThereIs()
{
    for (const auto &[pos, count] : {std::pair{0LL, 11LL}, {10LL, 1LL}, {11LL, 0LL}, {-1LL, 1LL}})
        QCOMPARE(copyRest(m_source.handle(), pos, count, m_target.handle()),
                 CopyResult::SourceFailed);
    QCOMPARE(m_target.size(), 0);
}

void TestFileCopying::continuesAfterTheWrittenPart()
{
    QCOMPARE(m_target.write("tag,"), 4);
    QCOMPARE(copyRest(m_source.handle(), 8, 2, m_target.handle()), CopyResult::Done);
    QCOMPARE(copyRest(m_source.handle(), 0, 2, m_target.handle()), CopyResult::Done);
    QCOMPARE(fileContent(m_target.fileName()), QByteArray("tag,8901"));
}

void TestFileCopying::keepsHoles()
{
    const QString sparse = m_folder->filePath(u"sparse"_s);
    makeSparseFile(sparse);
    if (occupied(sparse) > sparseSize / 2)
        QSKIP("this file system has no holes");
    QFile source(sparse);
    QVERIFY(source.open(QIODevice::ReadOnly));
    QCOMPARE(copyRest(source.handle(), 0, sparseSize, m_target.handle()), CopyResult::Done);
    QVERIFY(fileContent(m_target.fileName()) == sparseContent());
    QVERIFY(occupied(m_target.fileName()) < mebibyte);
}

void TestFileCopying::keepsTheHoleAtTheEndOfAPart()
{
    const QString sparse = m_folder->filePath(u"sparse"_s);
    makeSparseFile(sparse);
    QFile source(sparse);
    QVERIFY(source.open(QIODevice::ReadOnly));
    constexpr qint64 count = 9 * mebibyte;
    QCOMPARE(copyRest(source.handle(), 3, count, m_target.handle()), CopyResult::Done);
    QVERIFY(fileContent(m_target.fileName()) == sparseContent().mid(3, count));
}

/// Its end then looks like a hole.
void TestFileCopying::noticesASourceThatIsTruncatedMeanwhile()
{
    const QString sparse = m_folder->filePath(u"sparse"_s);
    makeFile(sparse, "begin");
    QVERIFY(QFile::resize(sparse, sparseSize));
    if (occupied(sparse) > sparseSize / 2)
        QSKIP("this file system has no holes");
    QFile source(sparse);
    QVERIFY(source.open(QIODevice::ReadOnly));
    const DuringTruncate change([&sparse] { QVERIFY(QFile::resize(sparse, 5)); });
    QCOMPARE(copyRest(source.handle(), 0, sparseSize, m_target.handle()), CopyResult::SourceFailed);
}

void TestFileCopying::writesZerosOverOldContent()
{
    const QString sparse = m_folder->filePath(u"sparse"_s);
    makeSparseFile(sparse);
    QFile source(sparse);
    QVERIFY(source.open(QIODevice::ReadOnly));
    QCOMPARE(m_target.write(QByteArray(3 * mebibyte, 'o')), 3 * mebibyte);
    QVERIFY(m_target.seek(1));
    QCOMPARE(copyRest(source.handle(), 0, sparseSize, m_target.handle()), CopyResult::Done);
    QVERIFY(fileContent(m_target.fileName()) == "o" + sparseContent());
}

void TestFileCopying::distinguishesTheSourceFromTheTarget()
{
    const FullDisk disk(5);
    QCOMPARE(copyRest(m_source.handle(), 0, 10, m_target.handle()), CopyResult::TargetFailed);
    QCOMPARE(copyRest(-1, 0, 10, m_target.handle()), CopyResult::SourceFailed);
}

BRISEL_TEST(QCoreApplication, TestFileCopying)
#include "tst_filecopying.moc"
