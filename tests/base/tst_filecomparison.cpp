#include "base/filecomparison.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTemporaryDir>
#include <QTest>

using namespace brisel;

class TestFileComparison : public QObject
{
    Q_OBJECT

private slots:
    void comparesBytes_data();
    void comparesBytes();
    void refusesWhatIsNoFile();
    void endsWhenAsked();

private:
    bool areSame() const
    {
        return haveSameContent(m_folder.filePath(u"a"_qs), m_folder.filePath(u"b"_qs),
                               [] { return true; });
    }

    QTemporaryDir m_folder;
};

void TestFileComparison::comparesBytes_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<bool>("isSame");
    const QByteArray large((1 << 20) + 1, 'x'); // more than one block
    QTest::newRow("same") << QByteArray("song") << QByteArray("song") << true;
    QTest::newRow("other byte") << QByteArray("song") << QByteArray("sonG") << false;
    QTest::newRow("longer") << QByteArray("song") << QByteArray("songs") << false;
    QTest::newRow("empty") << QByteArray() << QByteArray() << true;
    QTest::newRow("large") << large << large << true;
    QTest::newRow("last byte of large") << large << large.chopped(1) + 'y' << false;
}

void TestFileComparison::comparesBytes()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    makeFile(m_folder.filePath(u"a"_qs), first);
    makeFile(m_folder.filePath(u"b"_qs), second);
    QTEST(areSame(), "isSame");
}

void TestFileComparison::refusesWhatIsNoFile()
{
    makeFile(m_folder.filePath(u"a"_qs), "song");
    QVERIFY(QFile::remove(m_folder.filePath(u"b"_qs)));
    QVERIFY(!areSame());
    QVERIFY(QDir().mkdir(m_folder.filePath(u"b"_qs)));
    QVERIFY(!areSame());
    QVERIFY(QDir().rmdir(m_folder.filePath(u"b"_qs)));
}

void TestFileComparison::endsWhenAsked()
{
    const QString file = m_folder.filePath(u"a"_qs);
    makeFile(file, "song");
    QVERIFY(!haveSameContent(file, file, [] { return false; }));
}

BRISEL_TEST(QCoreApplication, TestFileComparison)
#include "tst_filecomparison.moc"
