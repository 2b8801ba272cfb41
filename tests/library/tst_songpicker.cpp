#include "library/songpicker.h"
#include "tests/scriptedrun.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QCoreApplication>
#include <QDir>
#include <QTest>

#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

using namespace brisel;

/// The songs picked from files and folders; they need no content for that.
class TestSongPicker : public QObject
{
    Q_OBJECT

private slots:
    void picksEveryKindOfSong();
    void picksFolders();
    void picksNothingTwice();
    void makesFullPaths();
    void skipsWhatIsNotASong();
    void endsInALinkLoop();
    void survivesNamesThatAreNoText();
    void stopsAtACancel();
    void picksTensOfThousands();
    void leavesOutWhatIsInTheList();
    void leavesOutAFileWithTwoNames();
    void stopsWhileTheListIsRead();

private:
    static QStringList picked(const QStringList &paths)
    {
        ScriptedRun run;
        SongPicker picker(paths);
        const SongPicker::Outcome outcome = picker.run(run);
        if ((outcome == SongPicker::Outcome::NoSongs) != picker.songs().isEmpty())
            return {};
        QStringList names;
        for (const QString &song : picker.songs())
            names.append(QDir::current().relativeFilePath(song));
        return names;
    }
    static void makeFiles(const QStringList &names)
    {
        for (const QString &name : names)
            makeFile(name, "x");
    }
};

void TestSongPicker::picksEveryKindOfSong()
{
    const QStringList songs{u"kinds/a.mid"_qs, u"kinds/b.KAR"_qs, u"kinds/c.Mp3"_qs,
                            u"kinds/d.zb3"_qs, u"kinds/e.zb4"_qs, u"kinds/f.ZB5"_qs};
    const QStringList others{u"kinds/g.txt"_qs, u"kinds/mid"_qs, u"kinds/h.mid.bak"_qs,
                             u"kinds/.hidden.mid"_qs};
    makeFiles(songs + others);
    QCOMPARE(picked({u"kinds"_qs}), songs);
    QCOMPARE(picked(others.mid(0, 3) + songs), songs);
}

void TestSongPicker::picksFolders()
{
    makeFiles({u"tree/b.mid"_qs, u"tree/a/x.mid"_qs, u"tree/a/y.txt"_qs, u"tree/c/d/z.mp3"_qs,
               u"alone.kar"_qs});
    QCOMPARE(
        picked({u"alone.kar"_qs, u"tree"_qs}),
        QStringList({u"alone.kar"_qs, u"tree/a/x.mid"_qs, u"tree/b.mid"_qs, u"tree/c/d/z.mp3"_qs}));
}

void TestSongPicker::picksNothingTwice()
{
    makeFiles({u"twice/a.mid"_qs, u"twice/in/b.mid"_qs});
    QCOMPARE(picked({u"twice/in/b.mid"_qs, u"twice"_qs, u"twice/in"_qs, u"twice/a.mid"_qs}),
             QStringList({u"twice/in/b.mid"_qs, u"twice/a.mid"_qs}));
}

void TestSongPicker::makesFullPaths()
{
    makeFiles({u"full/a.mid"_qs});
    ScriptedRun run;
    SongPicker picker({u"full/a.mid"_qs});
    QCOMPARE(picker.run(run), SongPicker::Outcome::Done);
    QCOMPARE(picker.songs(), QStringList(QDir::current().filePath(u"full/a.mid"_qs)));
}

void TestSongPicker::skipsWhatIsNotASong()
{
    QVERIFY(QDir().mkpath(u"odd/folder.mid"_qs));
    QCOMPARE(mkfifo("odd/pipe.mid", 0600), 0);
    QVERIFY(QFile::link(u"nowhere"_qs, u"odd/broken.mid"_qs));
    QVERIFY(QFile::link(u"/dev/zero"_qs, u"odd/zero.mid"_qs));
    QCOMPARE(picked({u"odd"_qs, u"odd/pipe.mid"_qs, u"odd/broken.mid"_qs, u"odd/zero.mid"_qs,
                     u"missing.mid"_qs, QString()}),
             QStringList());
}

void TestSongPicker::endsInALinkLoop()
{
    makeFiles({u"loop/in/a.mid"_qs});
    QVERIFY(QFile::link(u".."_qs, u"loop/in/up"_qs));
    QVERIFY(QFile::link(u"in"_qs, u"loop/same"_qs));
    QCOMPARE(picked({u"loop"_qs}), QStringList(u"loop/in/a.mid"_qs));
}

void TestSongPicker::survivesNamesThatAreNoText()
{
    makeFiles({u"bytes/a.mid"_qs});
    FILE *file = std::fopen("bytes/b\xff.mid", "w");
    QVERIFY(file != nullptr);
    QCOMPARE(std::fclose(file), 0);
    QVERIFY(picked({u"bytes"_qs}).contains(u"bytes/a.mid"_qs));
    QCOMPARE(picked({QString::fromLocal8Bit("bytes/b\xff.mid")}), QStringList());
}

void TestSongPicker::stopsAtACancel()
{
    makeFiles({u"many/a.mid"_qs, u"many/b.mid"_qs, u"many/in/c.mid"_qs, u"many/z.mid"_qs});
    ScriptedRun run;
    run.onEvents = [&run] { run.isStopped = run.eventRounds >= 2; };
    SongPicker picker({u"many"_qs});
    QCOMPARE(picker.run(run), SongPicker::Outcome::Interrupted);
    QCOMPARE(picker.songs().size(), 2);
}

void TestSongPicker::leavesOutWhatIsInTheList()
{
    makeFiles({u"list/a.mid"_qs, u"list/b.mid"_qs, u"list/c.mid"_qs});
    QVERIFY(QFile::link(u"a.mid"_qs, u"list/link.mid"_qs));
    QCOMPARE(link("list/b.mid", "list/hard.mid"), 0);
    const QString folder = QDir::currentPath() + u"/list/"_qs;
    ScriptedRun run;
    SongPicker picker({u"list"_qs, u"list/gone.mid"_qs},
                      {folder + u"a.mid"_qs, folder + u"b.mid"_qs, folder + u"gone.mid"_qs});
    QCOMPARE(picker.run(run), SongPicker::Outcome::Done);
    QCOMPARE(picker.songs(), QStringList(folder + u"c.mid"_qs));
    QCOMPARE(picker.listedCount(), 4);

    SongPicker nothing({folder + u"link.mid"_qs}, {folder + u"a.mid"_qs});
    QCOMPARE(nothing.run(run), SongPicker::Outcome::NoNewSongs);
    SongPicker noSongs({u"list/none"_qs}, {folder + u"a.mid"_qs});
    QCOMPARE(noSongs.run(run), SongPicker::Outcome::NoSongs);
}

void TestSongPicker::leavesOutAFileWithTwoNames()
{
    makeFiles({u"names/old.mid"_qs, u"names/new.mid"_qs});
    QVERIFY(QFile::link(u"new.mid"_qs, u"names/other.mid"_qs));
    const QString folder = QDir::currentPath() + u"/names/"_qs;
    ScriptedRun run;
    SongPicker picker({u"names"_qs}, {folder + u"old.mid"_qs});
    QCOMPARE(picker.run(run), SongPicker::Outcome::Done);
    QCOMPARE(picker.songs(), QStringList(folder + u"new.mid"_qs));
    SongPicker toEmptyList({u"names"_qs}, {});
    QCOMPARE(toEmptyList.run(run), SongPicker::Outcome::Done);
    QCOMPARE(toEmptyList.songs(), QStringList({folder + u"new.mid"_qs, folder + u"old.mid"_qs}));
}

void TestSongPicker::stopsWhileTheListIsRead()
{
    makeFiles({u"stop/a.mid"_qs});
    ScriptedRun run;
    run.onEvents = [&run] { run.isStopped = run.eventRounds >= 2; };
    SongPicker picker({u"stop"_qs}, {u"/x1"_qs, u"/x2"_qs, u"/x3"_qs, u"/x4"_qs});
    QCOMPARE(picker.run(run), SongPicker::Outcome::Interrupted);
    QCOMPARE(run.eventRounds, 2);
    QVERIFY(picker.songs().isEmpty());
}

void TestSongPicker::picksTensOfThousands()
{
    QVERIFY(QDir().mkdir(u"mass"_qs));
    makeFile(u"mass/0.mid"_qs, "x");
    constexpr int count = 20000;
    for (int i = 1; i < count; ++i)
        QCOMPARE(link("mass/0.mid", qPrintable(u"mass/%1.mid"_qs.arg(i))), 0);
    ScriptedRun run;
    SongPicker picker({u"mass"_qs});
    QCOMPARE(picker.run(run), SongPicker::Outcome::Done);
    QCOMPARE(picker.songs().size(), count);
    QCOMPARE(run.eventRounds, count);
}

BRISEL_TEST(QCoreApplication, TestSongPicker)
#include "tst_songpicker.moc"
