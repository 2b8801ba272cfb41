#include "library/backuplist.h"

#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

class TestBackupList : public QObject
{
    Q_OBJECT

private slots:
    void writesALineForEachCopy();
    void writesAbsolutePaths();
    void refusesACopyThatIsNotThere();
    void readsWhatItWrote();
    void readsTheColumnsInAnyOrder();
    void needsEveryColumn_data();
    void needsEveryColumn();
    void refusesLines_data();
    void refusesLines();
    void refusesASecondLineForOneFile();
    void readsManyLines();
    void readsNoMoreThanAMillionLines();
    void readsNoLargerList();
    void readsNoListThatIsNotAFile();

private:
    static QByteArray heading() { return "file,origine,byte,blake2b-256\r\n"; }
    /// The checksum of "song", by b2sum --length 256.
    static QByteArray songChecksum()
    {
        return "7ad0e21fb5cf66ccebf57c9dbb4ace6c70280a479a7cf0b0d15640b259bea17f";
    }
};

void TestBackupList::writesALineForEachCopy()
{
    const QTemporaryDir folder;
    makeFile(folder.filePath(u"a (2).mid"_qs), "song");
    makeFile(folder.filePath(u"\"è\".mid"_qs), "");
    BackupList list;
    QVERIFY(list.add(u"/songs, old/a.mid"_qs, folder.filePath(u"a (2).mid"_qs)));
    QVERIFY(list.add(u"/\"è\".mid"_qs, folder.filePath(u"\"è\".mid"_qs)));
    QVERIFY(list.write(folder.path()));
    QCOMPARE(fileContent(folder.filePath(u"contenuto.csv"_qs)),
             "\xEF\xBB\xBF" + heading() + "\"a (2).mid\",\"/songs, old/a.mid\",4," +
                 songChecksum() + "\r\n" +
                 "\"\"\"\xC3\xA8\"\".mid\",\"/\"\"\xC3\xA8\"\".mid\",0,"
                 "0e5751c026e543b2e8ab2eb06099daa1d1e5df47778f7787faab45cdf12fe3a8\r\n");
}

void TestBackupList::writesAbsolutePaths()
{
    const QTemporaryDir folder;
    makeFile(folder.filePath(u"sub/a.mid"_qs), "song");
    QDir::setCurrent(folder.filePath(u"sub"_qs));
    BackupList list;
    QVERIFY(list.add(u"../sub/a.mid"_qs, folder.filePath(u"sub/a.mid"_qs)));
    QVERIFY(list.write(folder.path()));
    QDir::setCurrent(QDir::rootPath());
    const auto lines = BackupList::read(folder.path());
    QVERIFY(lines.has_value());
    QCOMPARE(lines->first().entry.path,
             QFileInfo(folder.path()).canonicalFilePath() + u"/sub/a.mid"_qs);
}

void TestBackupList::refusesACopyThatIsNotThere()
{
    const QTemporaryDir folder;
    BackupList list;
    QVERIFY(!list.add(u"/a.mid"_qs, folder.filePath(u"a.mid"_qs)));
    QVERIFY(!list.add(u"/a.mid"_qs, folder.path()));
    QVERIFY(list.write(folder.path()));
    QCOMPARE(fileContent(folder.filePath(u"contenuto.csv"_qs)), "\xEF\xBB\xBF" + heading());
}

void TestBackupList::readsWhatItWrote()
{
    const QTemporaryDir folder;
    makeFile(folder.filePath(u"a.mid"_qs), "song");
    BackupList list;
    const QString path = u"/a, \"b\"\n\r\n/è\u2028/a.MID"_qs;
    QVERIFY(list.add(path, folder.filePath(u"a.mid"_qs)));
    QVERIFY(list.write(folder.path()));
    const auto lines = BackupList::read(folder.path());
    QVERIFY(lines.has_value());
    QCOMPARE(lines->size(), 1);
    QVERIFY(!lines->first().refused.has_value());
    QCOMPARE(lines->first().entry.name, u"a.mid"_qs);
    QCOMPARE(lines->first().entry.path, path);
    QCOMPARE(lines->first().entry.size, 4);
    QCOMPARE(lines->first().entry.checksum.toHex(), songChecksum());
}

/// As a spreadsheet may save it.
void TestBackupList::readsTheColumnsInAnyOrder()
{
    const auto lines = BackupList::lines("note,byte,blake2b-256,origine,file\n"
                                         "x,4," +
                                         songChecksum().toUpper() + ",/b/a.cdg,a.CDG\n");
    QVERIFY(lines.has_value());
    QVERIFY(!lines->first().refused.has_value());
    QCOMPARE(lines->first().entry.name, u"a.CDG"_qs);
    QCOMPARE(lines->first().entry.path, u"/b/a.cdg"_qs);
}

void TestBackupList::needsEveryColumn_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no heading") << QByteArray("\"a.mid\",\"/a.mid\",4,") + songChecksum() + "\r\n";
    QTest::newRow("no checksum") << QByteArray("file,origine,byte\r\n");
    QTest::newRow("no path") << QByteArray("file,byte,blake2b-256\r\n");
    QTest::newRow("other letter case") << heading().toUpper();
    QTest::newRow("unclosed") << QByteArray("\"file,origine,byte,blake2b-256\r\n");
    QTest::newRow("zero bytes") << QByteArray(1000, '\0');
}

void TestBackupList::needsEveryColumn()
{
    QFETCH(QByteArray, content);
    QVERIFY(!BackupList::lines(content).has_value());
}

void TestBackupList::refusesLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("isDamaged");
    const QByteArray sum = songChecksum();
    const auto damaged = [](const char *name, const QByteArray &line) {
        QTest::newRow(name) << line << true;
    };
    const auto isUnsafe = [&sum](const char *name, const QByteArray &copy, const QByteArray &path) {
        QTest::newRow(name) << '"' + copy + "\",\"" + path + "\",4," + sum << false;
    };
    damaged("empty", "");
    damaged("unclosed", "\"a.mid");
    damaged("too few fields", "a.mid,/a.mid,4");
    damaged("no number", "a.mid,/a.mid,x," + sum);
    damaged("negative size", "a.mid,/a.mid,-4," + sum);
    damaged("huge size", "a.mid,/a.mid,99999999999999999999," + sum);
    damaged("short checksum", "a.mid,/a.mid,4," + sum.left(62));
    damaged("no checksum", "a.mid,/a.mid,4,");
    damaged("no hexadecimal digits", "a.mid,/a.mid,4," + QByteArray(64, 'g'));
    isUnsafe("no name", "", "/a.mid");
    isUnsafe("no path", "a.mid", "");
    isUnsafe("copy above the folder", "../a.mid", "/a.mid");
    isUnsafe("copy elsewhere", "/etc/a.mid", "/a.mid");
    isUnsafe("copy below", "b/a.mid", "/a.mid");
    isUnsafe("folder itself", ".", "/a.mid");
    isUnsafe("relative path", "a.mid", "b/a.mid");
    isUnsafe("path with a step up", "a.mid", "/b/../a.mid");
    isUnsafe("path with an empty step", "a.mid", "/b//a.mid");
    isUnsafe("path of a folder", "a.mid", "/b/");
    isUnsafe("zero byte", "a.mid", QByteArray("/a\0.mid", 7));
    isUnsafe("no song", "a.txt", "/home/a.txt");
    isUnsafe("hidden settings", "a.mid", "/home/.profile");
    isUnsafe("other kind", "a.mid", "/a.mp3");
    isUnsafe("the list", "contenuto.csv", "/contenuto.csv");
}

void TestBackupList::refusesLines()
{
    QFETCH(QByteArray, line);
    QFETCH(bool, isDamaged);
    const QByteArray good = "b.mid,/b.mid,4," + songChecksum() + "\r\n";
    const auto lines = BackupList::lines(heading() + good + line + "\r\n");
    QVERIFY(lines.has_value());
    QCOMPARE(lines->size(), 2);
    QVERIFY(!lines->first().refused.has_value());
    QCOMPARE(lines->last().refused, isDamaged ? BackupList::damagedLine : BackupList::unsafeLine);
}

void TestBackupList::refusesASecondLineForOneFile()
{
    const auto lines = BackupList::lines(heading() + "a.mid,/a.mid,4," + songChecksum() +
                                         "\r\nb.mid,/a.mid,4," + songChecksum() + "\r\n");
    QVERIFY(lines.has_value());
    QVERIFY(!lines->first().refused.has_value());
    QCOMPARE(lines->last().refused, BackupList::twice);
}

/// 65,535 songs with their graphics, and more.
void TestBackupList::readsManyLines()
{
    constexpr int many = 131072;
    QByteArray content = heading();
    for (int i = 0; i < many; ++i)
        content += "a.mid,/" + QByteArray::number(i) + ".mid,4," + songChecksum() + "\r\n";
    const auto lines = BackupList::lines(content);
    QVERIFY(lines.has_value());
    QCOMPARE(lines->size(), many);
    QVERIFY(!lines->last().refused.has_value());
}

void TestBackupList::readsNoMoreThanAMillionLines()
{
    constexpr int most = 1000000;
    const QByteArray content = heading() + QByteArray("x\r\n").repeated(most);
    const auto lines = BackupList::lines(content);
    QVERIFY(lines.has_value());
    QCOMPARE(lines->size(), most);
    QVERIFY(!BackupList::lines(content + "x\r\n").has_value());
}

void TestBackupList::readsNoLargerList()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"contenuto.csv"_qs));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write(heading()) > 0);
    file.close();
    QVERIFY(BackupList::read(folder.path()).has_value());
    QVERIFY(file.resize(64 * 1024 * 1024 + 1));
    QVERIFY(!BackupList::read(folder.path()).has_value());
}

void TestBackupList::readsNoListThatIsNotAFile()
{
    const QTemporaryDir folder;
    QVERIFY(!BackupList::read(folder.path()).has_value());
    QVERIFY(QDir(folder.path()).mkdir(u"contenuto.csv"_qs));
    QVERIFY(!BackupList::read(folder.path()).has_value());
}

BRISEL_TEST(QCoreApplication, TestBackupList)
#include "tst_backuplist.moc"
