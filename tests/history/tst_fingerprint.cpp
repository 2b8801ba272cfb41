#include "base/plainfile.h"
#include "songfile/fingerprint.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTemporaryDir>
#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;

class TestFingerprint : public QObject
{
    Q_OBJECT

private slots:
    void knowsAWholeFile();
    void ignoresTheAudioBehindItsStart();
    void distinguishesTagsAndLengths();
    void isOfNoFileWithoutAChecksum();
    void readsNoMoreThanASong();

private:
    bool isOf(const Fingerprint &fingerprint, const QByteArray &content) const;
    QTemporaryDir m_folder;
};

bool TestFingerprint::isOf(const Fingerprint &fingerprint, const QByteArray &content) const
{
    makeFile(m_folder.filePath(u"file"_s), content);
    PlainFile file;
    return file.open(m_folder.filePath(u"file"_s)) && fingerprint.isOf(file);
}

void TestFingerprint::knowsAWholeFile()
{
    const Fingerprint fingerprint = Fingerprint::ofWhole("abc");
    // As the tool xxhsum prints it.
    QCOMPARE(fingerprint.checksum.toHex(), "06b05ab6733a618578af5f94892f3950");
    QVERIFY(isOf(fingerprint, "abc"));
    QVERIFY(!isOf(fingerprint, "abd"));
    QVERIFY(!isOf(fingerprint, "abcd"));
}

void TestFingerprint::ignoresTheAudioBehindItsStart()
{
    const QByteArray audio(5000, 'a');
    const Fingerprint fingerprint = Fingerprint::ofMp3("tag", audio, 5003);
    QVERIFY(isOf(fingerprint, "tag" + audio));
    QByteArray other = audio;
    other[4096] = 'b';
    QVERIFY(isOf(fingerprint, "tag" + other));
    other[4095] = 'b';
    QVERIFY(!isOf(fingerprint, "tag" + other));
}

void TestFingerprint::distinguishesTagsAndLengths()
{
    const QByteArray audio(5000, 'a');
    const Fingerprint fingerprint = Fingerprint::ofMp3("tag", audio, 5003);
    QVERIFY(!isOf(fingerprint, "tak" + audio));
    QVERIFY(!isOf(fingerprint, "tag" + audio + 'a'));
    QVERIFY(fingerprint != Fingerprint::ofMp3("taga", audio.mid(1), 5003));
    QVERIFY(isOf(Fingerprint::ofMp3("tag", "", 3), "tag"));
}

void TestFingerprint::isOfNoFileWithoutAChecksum()
{
    QVERIFY(!isOf(Fingerprint(), ""));
    QVERIFY(isOf(Fingerprint::ofWhole(""), ""));
}

/// The numbers may come from a damaged history.
void TestFingerprint::readsNoMoreThanASong()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"large.mid"_s));
    constexpr qint64 size = 16 * 1024 * 1024 + 4097;
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(size));
    PlainFile opened;
    QVERIFY(opened.open(file.fileName()));
    const QByteArray any(16, 'x');
    QVERIFY((Fingerprint{any, size, -1}.checksumOf(opened).isEmpty()));
    QVERIFY((Fingerprint{any, size, size}.checksumOf(opened).isEmpty()));
    QVERIFY(
        (Fingerprint{any, size, std::numeric_limits<qint64>::max()}.checksumOf(opened).isEmpty()));
    QCOMPARE((Fingerprint{any, size, 16 * 1024 * 1024}.checksumOf(opened).size()), 16);
}

BRISEL_TEST(QCoreApplication, TestFingerprint)
#include "tst_fingerprint.moc"
