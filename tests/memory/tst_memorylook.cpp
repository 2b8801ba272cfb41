#include "memory/memorylook.h"

#include "memory/duplicatesearch.h"
#include "tests/memory/readmemory.h"
#include "tests/testprogram.h"

#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace brisel;

/// What lies on a memory, against an index whose bytes are written by hand.
class TestMemoryLook : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_memory.reset(); }
    void findsNothingOnAGoodMemory();
    void findsSongsWithoutAFile();
    void findsSongsOfAnotherDate();
    void findsNewSongs();
    void takesPathsThatDifferInCaseForOneSong();
    void findsSongsWithCharactersThatTheIndexLacks();
    void countsHiddenSongsAsPresent();
    void findsLongPathsAndNames();
    void findsWhatCannotBeRead();
    void findsGraphicsWithoutTheirMp3();
    void findsTheWorkFolder();
    void leavesOutThePlayersFolders();
    void findsEverythingWithoutAnIndex();
    void worksInSmallSteps();
    void findsDuplicatesByContent();
    void takesNoOtherNameOfAFileForACopy();
    void readsOnlyFilesOfOneSize();

private:
    using Detail = MemoryLook::Detail;
    using Difference = MemoryLook::Difference;
    using FileMark = MemoryLook::FileMark;
    using FileMarks = MemoryLook::FileMarks;
    using Kind = MemoryLook::Kind;

    /// "kind detail path" of each finding.
    QStringList findings() const
    {
        QStringList lines;
        const QList<MemoryLook::Finding> all = lookedAt(*m_memory).findings();
        for (const MemoryLook::Finding &finding : all)
            lines.append(
                u"%1 %2 %3"_qs.arg(int(finding.kind)).arg(int(finding.detail)).arg(finding.path));
        return lines;
    }
    static QString line(Kind kind, Detail detail, const QString &path)
    {
        return u"%1 %2 %3"_qs.arg(int(kind)).arg(int(detail)).arg(path);
    }

    /// The paths of each group of duplicates.
    static QStringList groupsOf(const DuplicateSearch &search)
    {
        QStringList groups;
        const QList<QList<MemoryLook::SongFile>> duplicates = search.duplicates();
        for (const QList<MemoryLook::SongFile> &group : duplicates) {
            QStringList paths;
            for (const MemoryLook::SongFile &file : group)
                paths.append(file.path);
            groups.append(paths.join(u' '));
        }
        return groups;
    }

    std::unique_ptr<HandMadeSet> m_memory;
};

void TestMemoryLook::init()
{
    m_memory = std::make_unique<HandMadeSet>();
    dateSongs(*m_memory);
}

void TestMemoryLook::findsNothingOnAGoodMemory()
{
    const MemoryLook look = lookedAt(*m_memory);
    QVERIFY(look.findings().isEmpty());
    QCOMPARE(look.difference(), Difference());
    QCOMPARE(look.songs().size(), 4);
    QCOMPARE(look.songs().at(0).path, u"/A.MID"_qs);
    QCOMPARE(look.songs().at(0).size, m_memory->read(u"A.MID"_qs).size());
    for (qsizetype position = 0; position < 4; ++position)
        QCOMPARE(look.marks(position), FileMarks());
}

void TestMemoryLook::findsSongsWithoutAFile()
{
    m_memory->remove(u"C.KAR"_qs);
    const MemoryLook look = lookedAt(*m_memory);
    QCOMPARE(look.marks(2), FileMarks(FileMark::Missing));
    QCOMPARE(look.marks(1), FileMarks());
    QCOMPARE(look.difference(), Difference({0, 1, 0}));
}

void TestMemoryLook::findsSongsOfAnotherDate()
{
    m_memory->setDate(u"A.MID"_qs, QDateTime({2009, 12, 31}, {23, 59, 56}, QTimeZone::utc()));
    const MemoryLook look = lookedAt(*m_memory);
    QCOMPARE(look.marks(0), FileMarks(FileMark::OtherDate));
    QCOMPARE(look.difference(), Difference({0, 0, 1}));
}

void TestMemoryLook::findsNewSongs()
{
    m_memory->write(u"NEW/ONE.ZB3"_qs, "12345");
    m_memory->write(u"NEW/NOTES.TXT"_qs, "12345");
    const MemoryLook look = lookedAt(*m_memory);
    QCOMPARE(look.findings().size(), 1);
    QCOMPARE(look.findings().first().path, u"/NEW/ONE.ZB3"_qs);
    QCOMPARE(look.findings().first().size, 5);
    QCOMPARE(look.difference(), Difference({1, 0, 0}));
}

void TestMemoryLook::takesPathsThatDifferInCaseForOneSong()
{
    m_memory->write(u"a.mid"_qs, m_memory->read(u"A.MID"_qs));
    m_memory->setDate(u"a.mid"_qs, QDateTime({2009, 12, 31}, {23, 59, 58}, QTimeZone::utc()));
    QCOMPARE(lookedAt(*m_memory).difference(), Difference());
}

void TestMemoryLook::findsSongsWithCharactersThatTheIndexLacks()
{
    m_memory->patch(u"index.id2"_qs, 4, Sample::field("/\x84.MID", 46)); // a with two dots
    QVERIFY(QFile::rename(m_memory->path(u"A.MID"_qs), m_memory->path(u"\u00e4.MID"_qs)));
    QCOMPARE(lookedAt(*m_memory).difference(), Difference());
    m_memory->patch(u"index.id2"_qs, 4, Sample::field("/?.MID", 46));
    QVERIFY(QFile::rename(m_memory->path(u"\u00e4.MID"_qs), m_memory->path(u"\u4e00.MID"_qs)));
    QCOMPARE(lookedAt(*m_memory).difference(), Difference());
}

void TestMemoryLook::countsHiddenSongsAsPresent()
{
    m_memory->patch(u"index.id2"_qs, 4, Sample::field("/.A.MID", 46));
    QVERIFY(QFile::rename(m_memory->path(u"A.MID"_qs), m_memory->path(u".A.MID"_qs)));
    QCOMPARE(lookedAt(*m_memory).difference(), Difference());
}

void TestMemoryLook::findsLongPathsAndNames()
{
    const QString deep = u"/ONE/TWO/THREE/FOUR/FIVE/SIX/SEVEN/EIGHT/NINE.MID"_qs;
    QVERIFY(deep.size() > 45);
    m_memory->write(deep.mid(1), "12345");
    m_memory->write(u"LONGNAMES.MID"_qs, "12345");
    m_memory->write(u"LONGFOLDER/X.MID"_qs, "12345");
    m_memory->write(u"LONGFOLDER/Y.MID"_qs, "12345");
    m_memory->write(u"LONGWITHOUT/NOTES.TXT"_qs, "12345");
    QCOMPARE(findings(),
             QStringList({line(Kind::TooLong, Detail::LongName, u"/LONGNAMES.MID"_qs),
                          line(Kind::NewSong, Detail::None, u"/LONGNAMES.MID"_qs),
                          line(Kind::TooLong, Detail::LongFolderName, u"/LONGFOLDER"_qs),
                          line(Kind::NewSong, Detail::None, u"/LONGFOLDER/X.MID"_qs),
                          line(Kind::NewSong, Detail::None, u"/LONGFOLDER/Y.MID"_qs),
                          line(Kind::TooLong, Detail::LongPath, deep)}));
    // The last one has no place in the index.
    QCOMPARE(lookedAt(*m_memory).difference(), Difference({3, 0, 0}));
}

void TestMemoryLook::findsWhatCannotBeRead()
{
    m_memory->write(u"C.KAR"_qs, "1234");
    dateSongs(*m_memory);
    QVERIFY(QFile::link(u"nowhere"_qs, m_memory->path(u"E.MID"_qs)));
    QVERIFY(QFile::link(u"/"_qs, m_memory->path(u"F"_qs)));
    QCOMPARE(::mkfifo(QFile::encodeName(m_memory->path(u"G.MP3"_qs)).constData(), 0600), 0);
    QCOMPARE(::mkfifo(QFile::encodeName(m_memory->path(u"G.TXT"_qs)).constData(), 0600), 0);
    m_memory->write(u"H/I.TXT"_qs, "1");
    QCOMPARE(::rename(QFile::encodeName(m_memory->path(u"H"_qs)).constData(),
                      QFile::encodeName(m_memory->path(u"H"_qs)).append('\xE9').constData()),
             0);
    QCOMPARE(findings(), QStringList({line(Kind::Unreadable, Detail::InvalidName, u"/H\ufffd"_qs),
                                      line(Kind::Unreadable, Detail::ShortFile, u"/C.KAR"_qs),
                                      line(Kind::Unreadable, Detail::NoFile, u"/E.MID"_qs),
                                      line(Kind::Unreadable, Detail::Outside, u"/F"_qs),
                                      line(Kind::Unreadable, Detail::NoFile, u"/G.MP3"_qs)}));
    QCOMPARE(lookedAt(*m_memory).marks(2), FileMarks(FileMark::Unreadable));
}

void TestMemoryLook::findsGraphicsWithoutTheirMp3()
{
    m_memory->write(u"BASI/b.cdg"_qs, "12345");
    m_memory->write(u"BASI/X.CDG"_qs, "123456");
    m_memory->write(u"A.CDG"_qs, "12345"); // of a song that is not an MP3
    QCOMPARE(findings(), QStringList({line(Kind::LoneGraphics, Detail::None, u"/A.CDG"_qs),
                                      line(Kind::LoneGraphics, Detail::None, u"/BASI/X.CDG"_qs)}));
    QCOMPARE(lookedAt(*m_memory).findings().last().size, 6);
}

void TestMemoryLook::findsTheWorkFolder()
{
    m_memory->write(u".brisel2pc/names"_qs, "12345");
    m_memory->write(u".brisel2pc/swap"_qs, "123");
    QCOMPARE(findings(), QStringList(line(Kind::WorkFolder, Detail::None, u"/.brisel2pc"_qs)));
    QCOMPARE(lookedAt(*m_memory).findings().first().size, 8);
}

void TestMemoryLook::leavesOutThePlayersFolders()
{
    for (const QString &folder : {u"Sfx"_qs, u"BRIDGE"_qs, u"X/sfx"_qs, u"$RECYCLE.BIN"_qs})
        m_memory->write(folder + u"/A.MID"_qs, "12345");
    QCOMPARE(findings(), QStringList());
}

void TestMemoryLook::findsEverythingWithoutAnIndex()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, "12345");
    const MemoryLook look = lookedAt(memory);
    QCOMPARE(look.difference(), Difference({1, 0, 0}));
}

void TestMemoryLook::worksInSmallSteps()
{
    for (int i = 0; i < 100; ++i)
        m_memory->write(u"M%1.MID"_qs.arg(i), "12345");
    MemoryLook look(m_memory->root(), contentsOf(*m_memory));
    int rounds = 1;
    while (look.work(0))
        ++rounds;
    QVERIFY2(rounds >= 100 / 16, qPrintable(QString::number(rounds)));
    QVERIFY(look.isDone());
    QCOMPARE(look.difference(), Difference({100, 0, 0}));
}

void TestMemoryLook::findsDuplicatesByContent()
{
    const QByteArray large = QByteArray(600'000, 'x');
    m_memory->write(u"E.MP3"_qs, large + "1");
    m_memory->write(u"F.MP3"_qs, large + "2"); // of the same size
    m_memory->write(u"G.MP3"_qs, large + "1");
    m_memory->write(u"BASI/C2.KAR"_qs, m_memory->read(u"C.KAR"_qs));
    DuplicateSearch search(m_memory->root(), lookedAt(*m_memory).songs());
    QVERIFY(search.bytes() >= 3 * large.size());
    while (search.work(0)) {
    }
    QCOMPARE(search.bytesRead(), search.bytes());
    QCOMPARE(groupsOf(search), QStringList({u"/C.KAR /BASI/C2.KAR"_qs, u"/E.MP3 /G.MP3"_qs}));
}

/// The removal of such a copy would leave a link without its file, or free no room.
void TestMemoryLook::takesNoOtherNameOfAFileForACopy()
{
    QVERIFY(QFile::link(u"C.KAR"_qs, m_memory->path(u"A.KAR"_qs)));
    QVERIFY(QFile::link(u"BASI"_qs, m_memory->path(u"AAA"_qs)));
    QCOMPARE(::link(QFile::encodeName(m_memory->path(u"A.MID"_qs)).constData(),
                    QFile::encodeName(m_memory->path(u"H.MID"_qs)).constData()),
             0);
    const auto groups = [this] {
        DuplicateSearch search(m_memory->root(), lookedAt(*m_memory).songs());
        while (search.work(1)) {
        }
        return groupsOf(search);
    };
    QCOMPARE(groups(), QStringList());
    m_memory->write(u"I.KAR"_qs, m_memory->read(u"C.KAR"_qs));
    m_memory->write(u"J.MID"_qs, m_memory->read(u"A.MID"_qs));
    QCOMPARE(groups(), QStringList({u"/A.MID /J.MID"_qs, u"/C.KAR /I.KAR"_qs}));
}

void TestMemoryLook::readsOnlyFilesOfOneSize()
{
    m_memory->write(u"E.MP3"_qs, "123456");
    m_memory->write(u"F.MP3"_qs, "1234567");
    QVERIFY(DuplicateSearch(m_memory->root(), {{u"/E.MP3"_qs, 6}, {u"/F.MP3"_qs, 7}}).isDone());
    // A file that was changed meanwhile can't be read as it was met.
    DuplicateSearch search(m_memory->root(), {{u"/E.MP3"_qs, 7}, {u"/F.MP3"_qs, 7}});
    while (search.work(0)) {
    }
    QVERIFY(search.duplicates().isEmpty());
    QCOMPARE(search.bytesRead(), search.bytes());
}

BRISEL_TEST(QCoreApplication, TestMemoryLook)
#include "tst_memorylook.moc"
