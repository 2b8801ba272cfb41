#include "memory/playerlist.h"

#include "memory/songdrag.h"
#include "tests/memory/readmemory.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Sample;

/// The player's lists over the bytes of their files.
class TestPlayerList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_memory.reset(); }
    void showsTheTitles();
    void showsGroups_data();
    void showsGroups();
    void showsTheDataOfASong();
    void showsRecordsWithoutAPath();
    void showsSongsThatTheListLacks();
    void showsSongsBeforeTheFirstHeader();
    void ignoresAPartOfARecord();
    void marksWhatTheFilesShow();
    void finds_data();
    void finds();
    void findsInPreparedTexts();
    void findsRecordsWithoutAPath();
    void keepsTheSearchInAnotherList();
    void jumpsByTheTable();
    void jumpsToGroups();
    void disablesEntriesThatLeadNowhere();
    void jumpsToWhatIsShown();
    void dragsIds();

private:
    using Group = PlayerList::Group;
    using Mark = PlayerList::Mark;
    using Marks = PlayerList::Marks;

    void read(std::size_t list = SetFiles::Titles)
    {
        m_list.setContents(contentsOf(*m_memory));
        m_list.setList(list);
    }
    /// "GROUP: TITLE TITLE" of each group.
    QStringList shown() const
    {
        QStringList lines;
        for (const Group &group : m_list.groups()) {
            QStringList titles{m_list.groupName(group) + u':'};
            for (qint32 i = 0; i < group.count; ++i)
                titles.append(m_list.title(m_list.song(group.first + i)));
            lines.append(titles.join(u' '));
        }
        return lines;
    }

    std::unique_ptr<HandMadeSet> m_memory;
    PlayerList m_list;
};

void TestPlayerList::init()
{
    m_memory = std::make_unique<HandMadeSet>();
    m_list.setSearch(SongSearch());
}

void TestPlayerList::showsTheTitles()
{
    read();
    QVERIFY(!m_list.isGrouped());
    QCOMPARE(shown(), QStringList(u": FOUR ONE THREE TWO"_qs));
    QCOMPARE(m_list.size(), 4);
    QCOMPARE(m_list.total(), 4);
}

void TestPlayerList::showsGroups_data()
{
    QTest::addColumn<int>("list");
    QTest::addColumn<QStringList>("groups");
    QTest::newRow("artists") << int(SetFiles::Artists)
                             << QStringList{u"ANNA: ONE THREE"_qs, u"BRUNO: FOUR TWO"_qs};
    QTest::newRow("genres") << int(SetFiles::Genres)
                            << QStringList{u"POP: FOUR ONE"_qs, u"ROCK: THREE TWO"_qs};
    QTest::newRow("MP3 titles") << int(SetFiles::Titles3) << QStringList{u": FOUR TWO"_qs};
    QTest::newRow("MP3 artists") << int(SetFiles::Artists3) << QStringList{u"BRUNO: FOUR TWO"_qs};
    QTest::newRow("MP3 genres") << int(SetFiles::Genres3)
                                << QStringList{u"POP: FOUR"_qs, u"ROCK: TWO"_qs};
}

void TestPlayerList::showsGroups()
{
    QFETCH(int, list);
    read(std::size_t(list));
    QTEST(shown(), "groups");
}

void TestPlayerList::showsTheDataOfASong()
{
    m_memory->patch(u"title.id2"_qs, 127, hex("0B")); // of "ONE": markers, ZB4
    read();
    const PlayerList::Song song = m_list.song(1);
    QCOMPARE(m_list.path(song), u"/A.MID"_qs);
    QCOMPARE(m_list.bpm(song), 120);
    QCOMPARE(m_list.format(song), u"ZB4"_qs);
    QVERIFY(m_list.hasMarkers(song));
    QCOMPARE(m_list.id(song), 0U);
    QCOMPARE(m_list.id(m_list.song(0)), 7U);
    QCOMPARE(m_list.format(m_list.song(0)), u"MP3"_qs);
    QCOMPARE(m_list.format(m_list.song(2)), u"MIDI"_qs);
    QVERIFY(!m_list.hasMarkers(m_list.song(2)));
    m_memory->patch(u"title.id2"_qs, 127, hex("07"));
    read();
    QCOMPARE(m_list.format(m_list.song(1)), u"?"_qs);
}

void TestPlayerList::showsRecordsWithoutAPath()
{
    m_memory->patch(u"title.id2"_qs, 64, hex("00000009"));
    read();
    QCOMPARE(shown(), QStringList({u": FOUR ONE THREE TWO"_qs, u": "_qs}));
    QCOMPARE(m_list.path(m_list.song(1)), QString());
    QCOMPARE(m_list.marks(m_list.song(1)), Marks(Mark::NoPath));
    QCOMPARE(m_list.marks(m_list.song(0)), Marks());
}

void TestPlayerList::showsSongsThatTheListLacks()
{
    m_memory->cut(u"genre3.id2"_qs, 64);
    read(SetFiles::Genres3);
    QCOMPARE(shown(), QStringList({u"POP: FOUR"_qs, u"ROCK:"_qs, u": TWO"_qs}));
    QCOMPARE(m_list.groups().last().kind, Group::Kind::Lacking);
    QCOMPARE(m_list.marks(m_list.song(1)), Marks(Mark::NotListed));
    QCOMPARE(m_list.path(m_list.song(1)), u"/BASI/B.MP3"_qs);
    QCOMPARE(m_list.id(m_list.song(1)), 1U);
}

void TestPlayerList::showsSongsBeforeTheFirstHeader()
{
    m_memory->exchange(u"artist.id2"_qs, 0, 1);
    read(SetFiles::Artists);
    QCOMPARE(shown(), QStringList({u": ONE"_qs, u"ANNA: THREE"_qs, u"BRUNO: FOUR TWO"_qs}));
    QCOMPARE(m_list.groups().first().kind, Group::Kind::Unnamed);
}

void TestPlayerList::ignoresAPartOfARecord()
{
    m_memory->write(u"title.id2"_qs, m_memory->read(u"title.id2"_qs) + QByteArray(63, 'X'));
    read();
    QCOMPARE(shown(), QStringList(u": FOUR ONE THREE TWO"_qs));
}

void TestPlayerList::marksWhatTheFilesShow()
{
    dateSongs(*m_memory);
    m_memory->remove(u"A.MID"_qs);
    m_memory->write(u"C.KAR"_qs, "1234");
    m_memory->patch(u"index.id2"_qs, 64 + 4 + 6, "?");
    read();
    const MemoryLook look = lookedAt(*m_memory);
    m_list.setLook(&look);
    QCOMPARE(m_list.marks(m_list.song(0)), Marks());
    QCOMPARE(m_list.marks(m_list.song(1)), Marks(Mark::NoFile));
    QCOMPARE(m_list.marks(m_list.song(2)), Mark::OtherDate | Mark::Unreadable);
    QCOMPARE(m_list.marks(m_list.song(3)), Mark::QuestionMark | Mark::NoFile);
    read();
    QCOMPARE(m_list.marks(m_list.song(1)), Marks());
}

void TestPlayerList::finds_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QStringList>("groups");
    const QStringList none;
    QTest::newRow("title") << u"fou"_qs << QStringList(u"BRUNO: FOUR"_qs);
    QTest::newRow("artist") << u"anna"_qs << QStringList(u"ANNA: ONE THREE"_qs);
    QTest::newRow("genre and path") << u"basi rock"_qs << QStringList(u"BRUNO: TWO"_qs);
    QTest::newRow("over two texts") << u"\"one anna\""_qs << none;
    QTest::newRow("title field") << u"titolo:o"_qs
                                 << QStringList({u"ANNA: ONE"_qs, u"BRUNO: FOUR TWO"_qs});
    QTest::newRow("artist field") << u"artista:o"_qs << QStringList(u"BRUNO: FOUR TWO"_qs);
    QTest::newRow("genre field") << u"genere=rock"_qs
                                 << QStringList({u"ANNA: THREE"_qs, u"BRUNO: TWO"_qs});
    QTest::newRow("file") << u"file:b"_qs << QStringList(u"BRUNO: TWO"_qs);
    QTest::newRow("folder") << u"cartella:basi"_qs << QStringList(u"BRUNO: FOUR TWO"_qs);
    QTest::newRow("format") << u"formato:midi"_qs << QStringList(u"ANNA: ONE THREE"_qs);
    QTest::newRow("tempo") << u"bpm>100"_qs << QStringList(u"ANNA: ONE THREE"_qs);
    QTest::newRow("without tempo") << u"senza:bpm"_qs << QStringList(u"BRUNO: FOUR TWO"_qs);
    QTest::newRow("without author") << u"senza:autore one"_qs << QStringList(u"ANNA: ONE"_qs);
    QTest::newRow("author") << u"autore:a"_qs << none;
}

void TestPlayerList::finds()
{
    QFETCH(QString, search);
    read(SetFiles::Artists);
    m_list.setSearch(SongSearch(search));
    QTEST(shown(), "groups");
    QCOMPARE(m_list.total(), 4);
    m_list.setSearch(SongSearch());
    QCOMPARE(m_list.size(), 4);
}

void TestPlayerList::findsInPreparedTexts()
{
    read();
    QVERIFY(m_list.prepare(3));
    QVERIFY(!m_list.prepare(3));
    m_list.setSearch(SongSearch(u"anna"_qs));
    QCOMPARE(shown(), QStringList(u": ONE THREE"_qs));
}

void TestPlayerList::findsRecordsWithoutAPath()
{
    m_memory->patch(u"artist.id2"_qs, 64, hex("00000009"));
    read(SetFiles::Artists);
    m_list.setSearch(SongSearch(u"artista:anna titolo:one"_qs));
    QCOMPARE(shown(), QStringList({u"ANNA: ONE"_qs}));
    QCOMPARE(m_list.marks(m_list.song(0)), Marks(Mark::NoPath));
}

void TestPlayerList::keepsTheSearchInAnotherList()
{
    read();
    m_list.setSearch(SongSearch(u"rock"_qs));
    m_list.setList(SetFiles::Genres);
    QCOMPARE(shown(), QStringList(u"ROCK: THREE TWO"_qs));
    m_list.setContents(contentsOf(*m_memory));
    QCOMPARE(shown(), QStringList(u"ROCK: THREE TWO"_qs));
}

void TestPlayerList::jumpsByTheTable()
{
    read();
    const QList<PlayerList::Jump> jumps = m_list.jumps();
    QString characters;
    QStringList targets;
    for (const PlayerList::Jump &jump : jumps) {
        QVERIFY(jump.leads);
        characters += jump.character;
        targets.append(m_list.title(m_list.song(m_list.target(jump))));
    }
    QCOMPARE(characters, u"FOT"_qs);
    QCOMPARE(targets.join(u' '), u"FOUR ONE THREE"_qs);
}

void TestPlayerList::jumpsToGroups()
{
    read(SetFiles::Genres);
    const QList<PlayerList::Jump> jumps = m_list.jumps();
    QCOMPARE(jumps.size(), 2);
    QCOMPARE(jumps.at(1).character, u'R');
    QCOMPARE(m_list.target(jumps.at(0)), 0);
    QCOMPARE(m_list.target(jumps.at(1)), 2);
}

void TestPlayerList::disablesEntriesThatLeadNowhere()
{
    for (const char *offset : {"00000100", "FFFFFFC0", "00000041", "7FFFFFFF"}) {
        m_memory->write(u"atitle.id2"_qs, alphabet({{152, offset}}));
        read();
        QCOMPARE(m_list.jumps().size(), 1);
        QVERIFY2(!m_list.jumps().first().leads, offset);
        QCOMPARE(m_list.target(m_list.jumps().first()), -1);
    }
    m_memory->write(u"aartist.id2"_qs, alphabet({{132, "00000040"}})); // a song
    read(SetFiles::Artists);
    QVERIFY(!m_list.jumps().first().leads);
    m_memory->write(u"aartist.id2"_qs, alphabet({{132, "00000000"}}).left(134));
    read(SetFiles::Artists);
    QVERIFY(m_list.jumps().isEmpty());
}

void TestPlayerList::jumpsToWhatIsShown()
{
    read();
    m_list.setSearch(SongSearch(u"two"_qs));
    const QList<PlayerList::Jump> jumps = m_list.jumps();
    for (const PlayerList::Jump &jump : jumps)
        QCOMPARE(m_list.target(jump), 0);
    m_list.setSearch(SongSearch(u"one"_qs));
    QCOMPARE(m_list.target(jumps.at(0)), 0);
    QCOMPARE(m_list.target(jumps.at(2)), -1);
    m_list.setList(SetFiles::Genres);
    QCOMPARE(m_list.target(m_list.jumps().at(1)), -1);
}

void TestPlayerList::dragsIds()
{
    const QByteArray token =
        QByteArray::number(QCoreApplication::applicationPid()) + " /CARD" + hex("00");
    const QByteArray data = token + hex("00000001FFFFFFFE");
    QCOMPARE(songDragData(u"/CARD"_qs, {1, 0xFFFFFFFE}), data);
    QCOMPARE(idsFromDrag(u"/CARD"_qs, data), QList<quint32>({1, 0xFFFFFFFE}));
    QCOMPARE(idsFromDrag(u"/CARD"_qs, token), QList<quint32>());
    QVERIFY(!idsFromDrag(u"/CARD"_qs, token + hex("00000001FF")).has_value());
}

BRISEL_TEST(QCoreApplication, TestPlayerList)
#include "tst_playerlist.moc"
