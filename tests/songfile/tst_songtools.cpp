#include "songfile/metasong.h"
#include "tests/logcapture.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

using namespace brisel;

using namespace Qt::StringLiterals;

/// Tools by others must be able to read what the program has written.
class TestSongTools : public QObject
{
    Q_OBJECT

private slots:
    void anSmfToolAcceptsAChangedSong_data();
    void anSmfToolAcceptsAChangedSong();
    void aTagToolReadsAChangedMp3();

private:
    static QStringList linesOf(const QString &program, const QStringList &arguments);
};

QStringList TestSongTools::linesOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        return {};
    return QString::fromLatin1(process.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

static SongInfo newData()
{
    SongInfo info;
    info.title = u"La strada nuova"_s;
    info.artist = u"Anna"_s;
    info.author = u"Bea"_s;
    info.genre = u"Valzer"_s;
    info.key = u"F#-"_s;
    info.length = 185;
    info.userBpm = 97;
    return info;
}

void TestSongTools::anSmfToolAcceptsAChangedSong_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("format 0") << 0;
    QTest::newRow("format 1") << 1;
}

void TestSongTools::anSmfToolAcceptsAChangedSong()
{
    const QString tool = QStandardPaths::findExecutable(u"midicsv"_s);
    if (tool.isEmpty())
        QSKIP("midicsv is not installed");
    QFETCH(const int, format);
    const LogCapture log;
    Samples::write(u"a.mid"_s, Samples::midi(Samples::metaEvent(3, "Old") +
                                                 Samples::metaEvent('\x51', "\x07\xA1\x20") +
                                                 Samples::metaEvent(1, "text"),
                                             format));
    const QStringList before = linesOf(tool, {u"a.mid"_s});
    QVERIFY(!before.isEmpty());

    SongInfo info = newData();
    info.markers = {{u"Strofa"_s, 5}, {u"Ritornello"_s, 300}};
    MetaSong song;
    QVERIFY(song.importFile(u"a.mid"_s));
    song.setSongInfo(info, false); // the markers
    song.setSongInfo(info, true);  // all other fields
    QVERIFY(song.saveToFile(u"a.mid"_s));

    QStringList after = linesOf(tool, {u"a.mid"_s});
    QVERIFY(after.contains(u"1, 0, Title_t, \"La strada nuova\""_s));
    QVERIFY(after.contains(u"1, 0, Key_signature, 3, \"minor\""_s));
    QCOMPARE(after.filter(u"Unknown_meta_event, 75,"_s).size(), 7);
    const auto isOurs = [](const QString &line) {
        return line.contains(u"Title_t"_s) || line.contains(u"Key_signature"_s) ||
               line.contains(u"Unknown_meta_event, 75,"_s);
    };
    after.removeIf(isOurs);
    QStringList music = before;
    music.removeIf(isOurs);
    QCOMPARE(after, music);
}

void TestSongTools::aTagToolReadsAChangedMp3()
{
    const QString tool = QStandardPaths::findExecutable(u"id3v2"_s);
    if (tool.isEmpty())
        QSKIP("id3v2 is not installed");
    const LogCapture log;
    const QByteArray audio = Samples::audio(150000);
    for (const QByteArray &old :
         {QByteArray(), Samples::tag(Samples::frame("TIT2", "Old") +
                                     Samples::frame("TALB", "Album") + QByteArray(100, '\0'))}) {
        Samples::write(u"a.mp3"_s, old + audio);
        MetaSong song;
        QVERIFY(song.importFile(u"a.mp3"_s));
        song.setSongInfo(newData(), true);
        QVERIFY(song.saveToFile(u"a.mp3"_s));
        QVERIFY(Samples::read(u"a.mp3"_s).endsWith(audio));

        const QString listed = linesOf(tool, {u"-R"_s, u"a.mp3"_s}).join(u'\n');
        for (const QString &line :
             {u"TIT2: La strada nuova"_s, u"TPE1: Anna"_s, u"TCOM: Bea"_s, u"TCON: Valzer"_s,
              u"TKEY: F#-"_s, u"TLEN: 185000"_s, u"TBPM: 97"_s})
            QVERIFY2(listed.contains(line), qPrintable(line + u'\n' + listed));
        QCOMPARE(listed.contains(u"TALB: Album"_s), !old.isEmpty());
        QVERIFY(!listed.contains(u"Old"_s));
    }
}

BRISEL_TEST(QCoreApplication, TestSongTools)
#include "tst_songtools.moc"
