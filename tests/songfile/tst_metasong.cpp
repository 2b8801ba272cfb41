#include "songfile/lzhuff.h"
#include "songfile/metasong.h"
#include "tests/logcapture.h"
#include "tests/testhome.h"

#include <QtTest>

class TestMetaSong : public QObject
{
    Q_OBJECT

private slots:
    void savesAndReadsAMidiFile();
};

void TestMetaSong::savesAndReadsAMidiFile()
{
    QFile file(QStringLiteral("a.mid"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("MThd\0\0\0\6\0\0\0\1\0\x60MTrk\0\0\0\4\0\xFF\x2F\0", 26));
    file.close();
    MetaSong song;
    QVERIFY(song.importFile(QStringLiteral("a.mid")));
    SongInfo info;
    info.title = QStringLiteral("Love");
    song.setSongInfo(info, true);
    QVERIFY(song.saveToFile(QStringLiteral("a.mid")));
    MetaSong again;
    QVERIFY(again.importFile(QStringLiteral("a.mid")));
    again.getSongInfo(info);
    QCOMPARE(info.title, QStringLiteral("Love"));
    QCOMPARE(info.format, QStringLiteral("MIDI"));
}

BRISEL_TEST_MAIN(QCoreApplication, TestMetaSong)
#include "tst_metasong.moc"
