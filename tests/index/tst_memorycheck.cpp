#include "base/runguard.h"
#include "index/index.h"
#include "index/memorycheck.h"
#include "tests/index/samplememory.h"
#include "tests/scriptedindex.h"
#include "tests/testprogram.h"
#include "tools/samplesongs.h"

#include <QSignalSpy>
#include <QTest>

#include <random>

using namespace brisel;

using namespace Sample;

namespace
{

/// Names that the code page lacks, that share a key, or that change their length in upper case.
const QStringList oddNames{
    u"CAFÉ.MID"_qs,     u"ñandú.mid"_qs,  u"ő.mid"_qs,       u"ű.mid"_qs,    u"Привет.kar"_qs,
    u"Приве2.kar"_qs,   u"straße.mid"_qs, u"strasse.mid"_qs, u"WHO?.MID"_qs, u"WHO.MID"_qs,
    u"a.mid"_qs,        u"A.MID"_qs,      u"ſong.mid"_qs,    u"ısle.mid"_qs, u"ÿ.mid"_qs,
    u"µ.mid"_qs,        u"ﬁn.mid"_qs,     u"日本.zb3"_qs,    u"🎵.mp3"_qs,    u"(x).mp3"_qs,
    u" blank.mid"_qs,   u"_a.mid"_qs,     u"[b].mid"_qs,     u"É.MID"_qs,    u"Ú.MID"_qs,
    u"n\u0303o.mid"_qs, u"B/é.mid"_qs,    u"B/É2.mid"_qs,    u"é/1.mid"_qs,  u"E/1.mid"_qs,
    u"ǰ.mid"_qs,        u"ŉ.mid"_qs,      u"b~1.MP3"_qs,     u"Z.KAR"_qs,    u"'q'.mid"_qs};

QString sentence(const QStringList &lines)
{
    return lines.isEmpty() ? u"clean"_qs : lines.join(u'\n');
}

QString checked(const QString &root)
{
    ScriptedCheck check;
    return check.run(root) ? sentence(check.findings()) : u"not done"_qs;
}

/// Answers "no to all": long names stay.
bool indexed(const QString &root, bool rebuild = false)
{
    ScriptedIndex index;
    index.setRenameQuestion([](const QString &, const QString &) { return 3; });
    return rebuild ? index.createIndex(root) : index.updateIndex(root);
}

QByteArray randomText(std::mt19937 &random)
{
    const QByteArray characters = "aAbZ?~ '(1_\xE9\xC9\xFF\xB5\xDF\xA0\x85[{";
    QByteArray text;
    for (auto size = random() % 70; size > 0; --size)
        text += characters.at(static_cast<qsizetype>(
            random() % (text.isEmpty() ? 6 : static_cast<unsigned>(characters.size()))));
    return text;
}

} // namespace

/// A set that the program itself wrote has no findings, for all kinds of songs and changes; and how
/// the check behaves as a run.
class TestMemoryCheck : public QObject
{
    Q_OBJECT

private slots:
    void findsNothingInOddNames();
    void findsNothingInOddSongs();
    void findsNothingInTheLongestPath();
    void findsNothingInRandomTexts();
    void findsNothingInSampleSongs();
    void findsNothingWithPlaylistsOfAccentedSongs();
    void reportsSongsChangedSinceTheRun();
    void skipsWhatTheIndexSkips();
    void changesNothing();
    void reportsItsProgress();
    void endsWhenAskedTo();
    void findsNoMemory();
    void takesStepsInProportion();

private:
    /// Checks after a build, after updates and after a rebuild, with songs added and removed.
    static void compareThroughChanges(const SampleMemory &memory, const QStringList &gone);
};

void TestMemoryCheck::compareThroughChanges(const SampleMemory &memory, const QStringList &gone)
{
    QVERIFY(indexed(memory.root()));
    QCOMPARE(checked(memory.root()), u"clean"_qs);
    QVERIFY(indexed(memory.root()));
    QCOMPARE(checked(memory.root()), u"clean"_qs);
    for (const QString &name : gone)
        memory.remove(name);
    memory.write(u"NEW/NEW.MID"_qs, midiSong("New", "Nora", "Pop"));
    QVERIFY(indexed(memory.root()));
    QCOMPARE(checked(memory.root()), u"clean"_qs);
    QVERIFY(indexed(memory.root(), true));
    QCOMPARE(checked(memory.root()), u"clean"_qs);
    for (const QString &name : gone)
        memory.write(name, midiSong("Back again", "Berta", "Pop"));
    QVERIFY(indexed(memory.root()));
    QCOMPARE(checked(memory.root()), u"clean"_qs);
}

void TestMemoryCheck::findsNothingInOddNames()
{
    // Whole songs and fragments; fragments have their file names as titles, not in upper case.
    for (const QByteArray &content : {midiSong("", "", ""), QByteArray("abcd"), QByteArray()}) {
        const SampleMemory memory;
        for (const QString &name : oddNames)
            memory.write(name, content);
        compareThroughChanges(memory, {oddNames.first(), oddNames.at(5), u"A.MID"_qs});
    }
}

void TestMemoryCheck::findsNothingInOddSongs()
{
    const SampleMemory memory;
    const QByteArray full(58, 'T');
    const QList<QByteArray> texts{"?",        "\xFFx", "\xB5",     "\xDF", full,    full + "2",
                                  full + "1", "?b",    "\xC9mile", "Zed",  "zed",   "(x)",
                                  "~",        "\x85",  "i",        "s",    "who ?", "who"};
    int number = 0;
    for (const QByteArray &text : texts) {
        memory.write(u"T%1.MID"_qs.arg(++number), midiSong(text, "Anna", "Pop"));
        memory.write(u"A%1.MID"_qs.arg(number), midiSong("Same", text, "Pop"));
        memory.write(u"G%1.MP3"_qs.arg(number), mp3Song(text, text, text));
    }
    memory.write(u"C.ZB4"_qs, "_ZB4" + QByteArray(300, '\xE9'));
    memory.write(u"D.ZB5"_qs, "_ZB5" + QByteArray(130, '\0') + QByteArray(200, 'q'));
    compareThroughChanges(memory, {u"T3.MID"_qs, u"G5.MP3"_qs});
}

void TestMemoryCheck::findsNothingInTheLongestPath()
{
    const SampleMemory memory;
    memory.write(u"12345678/12345678/12345678/12345678/1234.mid"_qs,
                 midiSong("Title", "Anna", "Pop"));
    QVERIFY(indexed(memory.root()));
    QCOMPARE(checked(memory.root()), u"clean"_qs);
}

void TestMemoryCheck::findsNothingInRandomTexts()
{
    for (unsigned seed = 1; seed <= 5; ++seed) {
        std::mt19937 random(seed);
        const SampleMemory memory;
        for (int i = 0; i < 120; ++i) {
            const QByteArray song =
                i % 3 == 0 ? mp3Song(randomText(random), randomText(random), randomText(random))
                           : midiSong(randomText(random), randomText(random), randomText(random));
            memory.write(u"%1/S%2.%3"_qs.arg(i % 7).arg(i).arg(i % 3 == 0 ? u"MP3"_qs : u"MID"_qs),
                         song);
        }
        compareThroughChanges(memory, {u"0/S0.MP3"_qs, u"1/S1.MID"_qs});
    }
}

void TestMemoryCheck::findsNothingInSampleSongs()
{
    const SampleMemory memory;
    QDir(memory.root()).mkdir(u"songs"_qs);
    QDir(memory.root()).mkdir(u"many"_qs);
    QVERIFY(SampleSongs::writeSet(memory.path(u"songs"_qs)));
    QVERIFY(SampleSongs::writeMany(memory.path(u"many"_qs), 60));
    compareThroughChanges(memory, {});
    ScriptedIndex index;
    index.setRenameQuestion([](const QString &, const QString &) { return 1; });
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(checked(memory.root()), u"clean"_qs);
}

void TestMemoryCheck::findsNothingWithPlaylistsOfAccentedSongs()
{
    const SampleMemory memory;
    for (const char *name : {"A.MID", "CAF\xC9.MID", "\xC9.MID", "Z.MID"})
        memory.write(QString::fromLatin1(name), midiSong(name, "Anna", "Pop"));
    memory.write(u"Я.MID"_qs, midiSong("Cyrillic", "Anna", "Pop"));
    QVERIFY(indexed(memory.root()));
    // A playlist of all songs, as the player makes it, one of them twice.
    const QByteArray titles = memory.read(u"title.id2"_qs);
    memory.write(u"playlist/playlist.dat"_qs, field("\x01", 32));
    memory.write(u"playlist/play0001.dat"_qs, titles + titles.mid(64, 64));
    // The first update makes the path files and corrects the playlist, later ones leave it alone:
    // its ids of songs with other characters then belong to no song.
    for (int update = 0; update < 3; ++update) {
        QVERIFY(indexed(memory.root()));
        QCOMPARE(checked(memory.root()), u"clean"_qs);
    }
    memory.write(u"CAFÉ.MID"_qs, midiSong("Other title", "Anna", "Pop"));
    QVERIFY(indexed(memory.root()));
    QCOMPARE(checked(memory.root()), u"clean"_qs);
    QVERIFY(indexed(memory.root(), true));
    QCOMPARE(checked(memory.root()), u"clean"_qs);
    // The old last records follow the remaining songs, and they are updated, too.
    memory.remove(u"A.MID"_qs);
    memory.remove(u"Z.MID"_qs);
    QVERIFY(indexed(memory.root(), true));
    QCOMPARE(memory.read(u"playlist/play0001.dat"_qs).size(), 6 * 64);
    QCOMPARE(checked(memory.root()), u"clean"_qs);
    memory.remove(u"\u00C9.MID"_qs);
    QVERIFY(indexed(memory.root(), true));
    QCOMPARE(checked(memory.root()),
             u"playlist/play0001.dat, posto 4: la song non è nell'indice"_qs);
}

void TestMemoryCheck::reportsSongsChangedSinceTheRun()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, midiSong("One", "Anna", "Pop"));
    memory.write(u"B.MID"_qs, midiSong("Two", "Anna", "Pop"));
    QVERIFY(indexed(memory.root()));
    memory.remove(u"B.MID"_qs);
    memory.write(u"<b>Я</b>\n.MID"_qs, midiSong("Three", "Anna", "Pop"));
    QCOMPARE(checked(memory.root()), u"index.id2, record 1: la song non c'è: /B.MID\n"
                                     "index.id2: manca la song /<b>Я</b> .MID"_qs);
}

void TestMemoryCheck::skipsWhatTheIndexSkips()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, midiSong("One", "Anna", "Pop"));
    memory.write(u"B.MID"_qs, midiSong("Two", "Anna", "Pop"));
    memory.write(u"Sfx/C.MID"_qs, midiSong("Three", "Anna", "Pop"));
    memory.write(u"X/BRIDGE/D.MP3"_qs, mp3Song("Four", "Anna", "Pop"));
    memory.write(u".hidden.mid"_qs, midiSong("Five", "Anna", "Pop"));
    memory.write(u"lost+found/E.MID"_qs, midiSong("Six", "Anna", "Pop"));
    memory.write(u"A.TXT"_qs, "text");
    memory.write(u"FOLDER1/FOLDER2/FOLDER3/FOLDER4/FOLDER5/SONG.MID"_qs, midiSong("S", "A", "P"));
    QFile::link(memory.root(), memory.path(u"ROUND"_qs));
    QDir().mkdir(memory.path(u"FOLDER.MID"_qs));
    QVERIFY(indexed(memory.root()));
    QCOMPARE(checked(memory.root()), u"clean"_qs);
    QCOMPARE(memory.read(u"index.id2"_qs).size(), 2 * 64);
    // A song of the index stays in it if its folder can't be read.
    memory.write(u"Y/F.MID"_qs, midiSong("Seven", "Anna", "Pop"));
    QVERIFY(indexed(memory.root()));
    QFile(memory.path(u"Y"_qs)).setPermissions({});
    QVERIFY(indexed(memory.root()));
    const QString found = checked(memory.root());
    QFile(memory.path(u"Y"_qs))
        .setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QCOMPARE(found, u"clean"_qs);
}

void TestMemoryCheck::changesNothing()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, midiSong("One", "Anna", "Pop"));
    QVERIFY(indexed(memory.root()));
    memory.remove(u"atitle.id2"_qs);
    const QMap<QString, QByteArray> before = memory.rootFiles();
    QCOMPARE(checked(memory.root()), u"atitle.id2: il file manca"_qs);
    QCOMPARE(memory.rootFiles(), before);
}

void TestMemoryCheck::reportsItsProgress()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, midiSong("One", "Anna", "Pop"));
    QVERIFY(indexed(memory.root()));
    ScriptedCheck check;
    const QSignalSpy maxima(&check, &MemoryCheck::progressMaxSetup);
    const QSignalSpy values(&check, &MemoryCheck::progressValueChanged);
    const QSignalSpy paths(&check, &MemoryCheck::currentPathChanged);
    QVERIFY(check.run(memory.root() + u'/'));
    QCOMPARE(maxima.size(), 2);
    QCOMPARE(maxima.first().first().toInt(), 0);
    QCOMPARE(maxima.last().first().toInt(), values.last().first().toInt());
    QCOMPARE(values.last().first().toInt(), 16);
    QCOMPARE(paths.first().first().toString(), memory.path(u"A.MID"_qs));
    QVERIFY(paths.contains({memory.path(u"agenre3.id2"_qs)}));
    QCOMPARE(paths.last().first().toString(), QString());
}

void TestMemoryCheck::endsWhenAskedTo()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, midiSong("One", "Anna", "Pop"));
    memory.write(u"B.MID"_qs, midiSong("Two", "Anna", "Pop"));
    QVERIFY(indexed(memory.root()));
    for (const QString &name : {u"A.MID"_qs, u"title.id2"_qs, u"playlist"_qs}) {
        const RunGuard guard;
        ScriptedCheck check;
        int after = 0;
        connect(&check, &MemoryCheck::currentPathChanged, this, [&](const QString &path) {
            after += RunGuard::endRequested() && !path.isEmpty() ? 1 : 0;
            if (path == memory.path(name))
                RunGuard::requestEnd();
        });
        QVERIFY(!check.run(memory.root()));
        QVERIFY(check.findings().isEmpty());
        QVERIFY2(after <= 2, qPrintable(QString::number(after)));
    }
    QCoreApplication::removePostedEvents(QCoreApplication::instance(), QEvent::Quit);
}

void TestMemoryCheck::findsNoMemory()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, midiSong("One", "Anna", "Pop"));
    QVERIFY(indexed(memory.root()));
    QCOMPARE(checked(memory.path(u"nowhere"_qs)), u"not done"_qs);
    QCOMPARE(checked(memory.path(u"A.MID"_qs)), u"not done"_qs);
    // The memory is pulled during the check and replaced by another one.
    ScriptedCheck check;
    connect(&check, &MemoryCheck::currentPathChanged, this, [&](const QString &path) {
        if (path != memory.path(u"title.id2"_qs))
            return;
        QDir().rename(memory.root(), memory.root() + u"2"_qs);
        QDir().mkdir(memory.root());
    });
    QVERIFY(!check.run(memory.root()));
    QVERIFY(check.findings().isEmpty());
}

void TestMemoryCheck::takesStepsInProportion()
{
    const auto stepsFor = [](int songs) {
        const SampleMemory memory;
        // Names with one key, one artist and one title: the worst case for comparisons.
        for (int i = 0; i < songs; ++i)
            memory.write(u"%1/Я%2.MID"_qs.arg(i % 10).arg(QChar(0x4E00 + i)),
                         midiSong("Song", "Band", "Pop"));
        if (!indexed(memory.root()))
            return qint64{-1};
        ScriptedCheck check;
        return check.run(memory.root()) && check.findings().isEmpty() ? check.pulses() : -1;
    };
    const qint64 few = stepsFor(1000);
    const qint64 many = stepsFor(10000);
    QVERIFY(few > 10000);
    QVERIFY2(many > 9 * few && many < 11 * few, qPrintable(u"%1 %2"_qs.arg(few).arg(many)));
}

BRISEL_TEST(QCoreApplication, TestMemoryCheck)
#include "tst_memorycheck.moc"
