#include "base/memoryidentity.h"

#include "tests/smalldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

#include <optional>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

constexpr qint64 diskSize = 16 * SmallDisk::pageSize;
const QString markPath = u".brisel2pc/mark"_s;

} // namespace

class TestMemoryIdentity : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void knowsTheMemoryWhileItChanges();
    void noticesAMemoryThatIsGone();
    void noticesAnotherMemoryAtThePath();
    void noticesAnotherOneThatLooksTheSame_data();
    void noticesAnotherOneThatLooksTheSame();
    void writesARandomMark();
    void replacesTheMarkOfARunThatWasCut();
    void followsNoLinks();
    void knowsAWriteProtectedMemoryWithoutAMark();
    void anInvalidMemoryIsNeverThere();

private:
    QString root() const { return m_folder->path(); }
    QString at(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestMemoryIdentity::knowsTheMemoryWhileItChanges()
{
    MemoryIdentity identity(root());
    makeFile(at(u"A.MID"_s), "MThd");
    QVERIFY(identity.isThere());
    QVERIFY(identity.isSame());
    QVERIFY(identity.layMark());
    makeFile(at(u"B.MID"_s), "MThd");
    QVERIFY(identity.isThere());
    QVERIFY(identity.isSame());
}

void TestMemoryIdentity::noticesAMemoryThatIsGone()
{
    const QString card = at(u"CARD"_s);
    QVERIFY(QDir().mkdir(card));
    const MemoryIdentity identity(card);
    QVERIFY(QDir().rename(card, at(u"pulled"_s)));
    QVERIFY(!identity.isThere());
    QVERIFY(!identity.isSame());
    QVERIFY(QDir().mkdir(card));
    QVERIFY(!identity.isThere());
}

void TestMemoryIdentity::noticesAnotherMemoryAtThePath()
{
    std::optional<SmallDisk> disk(std::in_place, root(), diskSize);
    if (!disk->isMounted())
        QSKIP("only root can mount a small disk");
    const MemoryIdentity identity(root());
    QVERIFY(identity.isThere());
    disk.reset();
    QVERIFY(!identity.isThere());
    disk.emplace(root(), 2 * diskSize);
    QVERIFY(!identity.isThere());
}

void TestMemoryIdentity::noticesAnotherOneThatLooksTheSame_data()
{
    QTest::addColumn<bool>("isWithoutMark");
    QTest::newRow("without a mark") << true;
    QTest::newRow("with a mark") << false;
}

/// The folder stays but its content changes, as with two sticks that are the same to the system.
void TestMemoryIdentity::noticesAnotherOneThatLooksTheSame()
{
    QFETCH(bool, isWithoutMark);
    MemoryIdentity identity(root());
    QVERIFY(identity.layMark());
    QVERIFY(QDir(at(u".brisel2pc"_s)).removeRecursively());
    if (!isWithoutMark)
        QVERIFY(MemoryIdentity(root()).layMark());
    QVERIFY(identity.isThere());
    QVERIFY(!identity.isSame());
}

void TestMemoryIdentity::writesARandomMark()
{
    MemoryIdentity identity(root());
    QVERIFY(identity.layMark());
    const QByteArray mark = fileContent(at(markPath));
    QVERIFY(
        QRegularExpression(u"\\A[0-9a-f]{32}\\z"_s).match(QString::fromLatin1(mark)).hasMatch());
    QVERIFY(identity.layMark());
    QCOMPARE(fileContent(at(markPath)), mark);
    MemoryIdentity other(root());
    QVERIFY(other.layMark());
    QVERIFY(fileContent(at(markPath)) != mark);
}

void TestMemoryIdentity::replacesTheMarkOfARunThatWasCut()
{
    QVERIFY(QDir().mkdir(at(u".brisel2pc"_s)));
    makeFile(at(markPath), "0123");
    MemoryIdentity identity(root());
    QVERIFY(identity.layMark());
    QVERIFY(identity.isSame());
    makeFile(at(markPath), fileContent(at(markPath)) + "0");
    QVERIFY(!identity.isSame());
}

void TestMemoryIdentity::followsNoLinks()
{
    makeFile(at(u"diary.txt"_s), "mine");
    QVERIFY(QDir().mkpath(at(u"home"_s)));
    QVERIFY(QFile::link(at(u"home"_s), at(u".brisel2pc"_s)));
    MemoryIdentity identity(root());
    QVERIFY(!identity.layMark());
    QVERIFY(QDir(at(u"home"_s)).isEmpty());
    QVERIFY(QFile::remove(at(u".brisel2pc"_s)));
    QVERIFY(QDir().mkdir(at(u".brisel2pc"_s)));
    QVERIFY(QFile::link(at(u"diary.txt"_s), at(markPath)));
    QVERIFY(identity.layMark());
    QVERIFY(!QFileInfo(at(markPath)).isSymLink());
    QCOMPARE(fileContent(at(u"diary.txt"_s)), QByteArray("mine"));
    QVERIFY(identity.isSame());
    makeFile(at(u"copy"_s), fileContent(at(markPath)));
    QVERIFY(QFile::remove(at(markPath)));
    QVERIFY(QFile::link(at(u"copy"_s), at(markPath)));
    QVERIFY(!identity.isSame());
}

void TestMemoryIdentity::knowsAWriteProtectedMemoryWithoutAMark()
{
    const SmallDisk disk(root(), diskSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    QVERIFY(disk.setReadOnly(true));
    MemoryIdentity identity(root());
    QVERIFY(!identity.layMark());
    QVERIFY(identity.isThere());
    QVERIFY(identity.isSame());
}

void TestMemoryIdentity::anInvalidMemoryIsNeverThere()
{
    QVERIFY(!MemoryIdentity().isThere());
    QVERIFY(!MemoryIdentity(QString()).isSame());
    QVERIFY(!MemoryIdentity(at(u"missing"_s)).isThere());
    makeFile(at(u"file"_s), "x");
    QVERIFY(!MemoryIdentity(at(u"file"_s)).isThere());
}

BRISEL_TEST(QCoreApplication, TestMemoryIdentity)
#include "tst_memoryidentity.moc"
