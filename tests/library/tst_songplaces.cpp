#include "index/index.h"
#include "library/filecopier.h"
#include "tests/index/changedmemory.h"
#include "tests/index/indexsamples.h"
#include "tests/scriptedindex.h"
#include "tests/scriptedrun.h"
#include "tests/smalldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Sample;

/// Songs that are sent again replace their files on the memory, even if these were renamed.
class TestSongPlaces : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_run.reset(); }
    void sendsManySongsTwice();
    void asksAboutTheFileThatIsThere();
    void keepsTheFileOnANo();
    void replacesItsGraphicsToo();
    void backsUpUnderTheOldName();
    void findsSongsByContentWithoutTheFile();
    void findsNoOtherContent();
    void findsNoFileThatIsKnownAsAnother();
    void findsEachOfTwoEqualSongs();
    void readsEachFileOnceToCompare();
    void comparesNothingAfterACancel();
    void remembersNothingOnAnotherMemory();
    void needsNoRoomForWhatIsReplaced();

private:
    QString at(const QString &name) const { return m_home->filePath(name); }
    QString picked(const QString &name, const QByteArray &title)
    {
        makeFile(at(name), midiSong(title, "Artist", "Genre"));
        return at(name);
    }
    QString onCard(const QString &name) const { return m_memory->path(u"songs/"_qs + name); }
    QStringList sent() const
    {
        return QDir(onCard(QString())).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    /// Transfers the songs and updates the index, as the window does. Returns true on success.
    bool send(const QStringList &files, Run::Answer answer = Run::Answer::YesToAll)
    {
        auto run = std::make_unique<ScriptedRun>();
        run->answers = QList<Run::Answer>(files.size(), answer);
        run->onEvents = m_run->onEvents;
        m_run = std::move(run);
        FileCopier copier(*m_run);
        copier.setMemory(m_memory->root(), 0);
        const bool isCopied = copier.copyFiles(files, onCard(QString()).chopped(1));
        m_copied = copier.copied();
        m_shortage = copier.shortage();
        ScriptedIndex index;
        index.setRenameQuestion(always(1));
        return isCopied && (m_copied == 0 || index.updateIndex(m_memory->root()));
    }
    void forgetNames() const { m_memory->remove(u".brisel2pc/names"_qs); }

    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<SampleMemory> m_memory;
    std::unique_ptr<ScriptedRun> m_run;
    QString m_shortage;
    int m_copied = -1;
};

void TestSongPlaces::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    m_memory = std::make_unique<SampleMemory>();
    QVERIFY(QDir().mkpath(onCard(QString())));
    m_run = std::make_unique<ScriptedRun>();
}

void TestSongPlaces::sendsManySongsTwice()
{
    constexpr int count = 403;
    QStringList files;
    for (int i = 0; i < count; ++i)
        files.append(picked(u"Canzone numero %1 (live).mid"_qs.arg(i), QByteArray::number(i)));
    QVERIFY(send(files));
    QCOMPARE(sent().size(), count);
    for (const QString &name : sent())
        m_memory->setDate(u"songs/"_qs + name, songDate);
    QVERIFY(ScriptedIndex().updateIndex(m_memory->root()));
    const QStringList names = sent();
    const QStringList paths = indexedPaths(*m_memory);
    const QList<int> ids = indexedIds(*m_memory);
    m_memory->write(u"playlist/playlist.dat"_qs, field(QByteArray("\7\0", 2), 32));
    m_memory->write(songsFile, playlistRecord(13) + playlistRecord(7));
    const QList<QByteArray> played = SetReader(*m_memory).playlist(songsFile);
    QCOMPARE(played.size(), 2);

    for (int i = 0; i < count; ++i)
        picked(u"Canzone numero %1 (live).mid"_qs.arg(i), "N" + QByteArray::number(i));
    QVERIFY(send(files));
    QCOMPARE(m_copied, count);
    QCOMPARE(m_run->asked, QStringList{onCard(u"Canzon-1.mid"_qs)});
    QCOMPARE(sent(), names);
    QCOMPARE(indexedPaths(*m_memory), paths);
    QCOMPARE(indexedIds(*m_memory), ids);
    QCOMPARE(SetReader(*m_memory).playlist(songsFile), played);
    QCOMPARE(SetReader(*m_memory).problem(), QString());
    QVERIFY(titles(*m_memory).contains(u"N402"_qs));
    QVERIFY(!titles(*m_memory).contains(u"402"_qs));
}

void TestSongPlaces::asksAboutTheFileThatIsThere()
{
    const QStringList files{picked(u"A long name.mid"_qs, "First"), picked(u"B.MID"_qs, "B")};
    QVERIFY(send(files));
    picked(u"A long name.mid"_qs, "Second");
    QVERIFY(send(files, Run::Answer::Yes));
    QCOMPARE(m_run->asked, QStringList({onCard(u"Alongn-1.mid"_qs), onCard(u"B.MID"_qs)}));
    QCOMPARE(sent(), QStringList({u"Alongn-1.mid"_qs, u"B.MID"_qs}));
    QCOMPARE(fileContent(onCard(u"Alongn-1.mid"_qs)), midiSong("Second", "Artist", "Genre"));
    QCOMPARE(indexedIds(*m_memory), QList<int>({0, 1}));
}

void TestSongPlaces::keepsTheFileOnANo()
{
    const QStringList files{picked(u"A long name.mid"_qs, "First")};
    QVERIFY(send(files));
    picked(u"A long name.mid"_qs, "Second");
    QVERIFY(send(files, Run::Answer::No));
    QCOMPARE(m_copied, 0);
    QCOMPARE(sent(), QStringList{u"Alongn-1.mid"_qs});
    QCOMPARE(fileContent(onCard(u"Alongn-1.mid"_qs)), midiSong("First", "Artist", "Genre"));
}

/// The graphics of a replaced song were sent with it. Graphics beside any other file were not.
void TestSongPlaces::replacesItsGraphicsToo()
{
    makeFile(at(u"A long name.mp3"_qs), mp3Song("First", "Artist", "Genre"));
    makeFile(at(u"A long name.cdg"_qs), "graphics");
    makeFile(at(u"Short.mp3"_qs), mp3Song("Second", "Artist", "Genre"));
    const QStringList files{at(u"A long name.mp3"_qs)};
    QVERIFY(send(files + QStringList(at(u"Short.mp3"_qs))));
    const QStringList names{u"Alongn-1.cdg"_qs, u"Alongn-1.mp3"_qs, u"Short.mp3"_qs};
    QCOMPARE(sent(), names);
    makeFile(at(u"A long name.cdg"_qs), "new graphics");
    QVERIFY(send(files));
    QCOMPARE(sent(), names);
    QCOMPARE(fileContent(onCard(u"Alongn-1.cdg"_qs)), QByteArray("new graphics"));
    makeFile(onCard(u"Short.cdg"_qs), "not its own");
    makeFile(at(u"Short.cdg"_qs), "graphics");
    QVERIFY(!send({at(u"Short.mp3"_qs)}));
    QCOMPARE(fileContent(onCard(u"Short.cdg"_qs)), QByteArray("not its own"));
}

void TestSongPlaces::backsUpUnderTheOldName()
{
    const QStringList files{picked(u"A long name.mid"_qs, "First")};
    QVERIFY(send(files));
    ScriptedRun run;
    QVERIFY(FileCopier(run).copyFiles(files, onCard(QString()).chopped(1)));
    QCOMPARE(sent(), QStringList({u"A long name.mid"_qs, u"Alongn-1.mid"_qs}));
}

void TestSongPlaces::findsSongsByContentWithoutTheFile()
{
    const QStringList files{picked(u"A long name.mid"_qs, "First"),
                            picked(u"A long night.mid"_qs, "Other")};
    QVERIFY(send(files));
    forgetNames();
    QVERIFY(send(files));
    QCOMPARE(m_run->asked, QStringList{onCard(u"Alongn-1.mid"_qs)});
    QCOMPARE(sent(), QStringList({u"Alongn-1.mid"_qs, u"Alongn-2.mid"_qs}));
    // From now on their names are stored again.
    picked(u"A long night.mid"_qs, "Changed");
    QVERIFY(send(files));
    QCOMPARE(sent(), QStringList({u"Alongn-1.mid"_qs, u"Alongn-2.mid"_qs}));
    QCOMPARE(fileContent(onCard(u"Alongn-2.mid"_qs)), midiSong("Changed", "Artist", "Genre"));
}

void TestSongPlaces::findsNoOtherContent()
{
    const QStringList files{picked(u"A long name.mid"_qs, "First")};
    QVERIFY(send(files));
    forgetNames();
    picked(u"A long name.mid"_qs, "Fjrst");
    QVERIFY(send(files));
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(sent(), QStringList({u"Alongn-1.mid"_qs, u"Alongn-2.mid"_qs}));
    QCOMPARE(fileContent(onCard(u"Alongn-1.mid"_qs)), midiSong("First", "Artist", "Genre"));
}

void TestSongPlaces::findsNoFileThatIsKnownAsAnother()
{
    QVERIFY(send({picked(u"A long name.mid"_qs, "Same")}));
    QVERIFY(send({picked(u"A long night.mid"_qs, "Same")}));
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(sent(), QStringList({u"Alongn-1.mid"_qs, u"Alongn-2.mid"_qs}));
}

void TestSongPlaces::findsEachOfTwoEqualSongs()
{
    const QStringList files{picked(u"A long name.mid"_qs, "Same"),
                            picked(u"A long night.mid"_qs, "Same")};
    QVERIFY(send(files));
    forgetNames();
    QVERIFY(send(files, Run::Answer::Yes));
    QCOMPARE(m_run->asked, QStringList({onCard(u"Alongn-1.mid"_qs), onCard(u"Alongn-2.mid"_qs)}));
    QCOMPARE(sent(), QStringList({u"Alongn-1.mid"_qs, u"Alongn-2.mid"_qs}));
}

/// With many candidates, no file is read for each pair.
void TestSongPlaces::readsEachFileOnceToCompare()
{
    constexpr int count = 99;
    QStringList files;
    for (int i = 0; i < count; ++i) {
        const QString number = QString::number(i).rightJustified(2, u'0');
        files.prepend(picked(u"Canzone %1.mid"_qs.arg(number), number.toLatin1()));
    }
    QVERIFY(send(files));
    const QStringList names = sent();
    forgetNames();
    QVERIFY(send(files));
    QCOMPARE(sent(), names);
    // A round of events for each song, for each file that is compared with others, and for each
    // copy.
    QCOMPARE(m_run->eventRounds, 3 * count);
}

void TestSongPlaces::comparesNothingAfterACancel()
{
    const QStringList files{picked(u"A long name.mid"_qs, "First")};
    QVERIFY(send(files));
    forgetNames();
    m_run->onEvents = [this] { m_run->isStopped = true; };
    QVERIFY(!send(files));
    QCOMPARE(m_copied, 0);
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(sent(), QStringList{u"Alongn-1.mid"_qs});
    QVERIFY(!m_memory->has(u".brisel2pc/names"_qs));
}

/// A pulled memory may leave its mount folder behind.
void TestSongPlaces::remembersNothingOnAnotherMemory()
{
    const QStringList files{picked(u"A long name.mid"_qs, "First")};
    QVERIFY(send(files));
    forgetNames();
    QVERIFY(m_memory->has(u"songs/Alongn-1.mid"_qs));
    const QString root = m_memory->root();
    ScriptedRun run;
    run.onQuestion = [&root](const QString &) {
        QDir(root).rename(root, root + u" before"_qs);
        QDir().mkpath(root + u"/songs"_qs);
    };
    FileCopier copier(run);
    copier.setMemory(root, 0);
    qputenv("BRISEL_VOLUMES", QFile::encodeName(QFileInfo(root).path()));
    QVERIFY(copier.copyFiles(files, root + u"/songs"_qs));
    qunsetenv("BRISEL_VOLUMES");
    QVERIFY(!m_memory->has(u".brisel2pc"_qs));
}

void TestSongPlaces::needsNoRoomForWhatIsReplaced()
{
    const SmallDisk disk(m_memory->root(), SmallDisk::memorySize);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    QVERIFY(QDir().mkpath(onCard(QString())));
    makeFile(at(u"A long name.mid"_qs), anySong + QByteArray(SmallDisk::memorySize * 5 / 8, 'x'));
    const QStringList files{at(u"A long name.mid"_qs)};
    QVERIFY(send(files));
    QVERIFY(send(files));
    QCOMPARE(m_shortage, QString());
    QCOMPARE(sent(), QStringList{u"Alongn-1.mid"_qs});
}

BRISEL_TEST(QApplication, TestSongPlaces)
#include "tst_songplaces.moc"
