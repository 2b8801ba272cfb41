#include "db/cataloguesearch.h"
#include "tests/db/localcatalogue.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"
#include "tools/syntheticcatalogue.h"

#include <QtTest>

using namespace brisel;

namespace
{

CatalogueRow songOf(const char *fileName, const char *title, const char *artist)
{
    CatalogueRow row = catalogueRow(QString::fromUtf8(fileName), QString::fromUtf8(title));
    row.artist = QString::fromUtf8(artist);
    row.altArtist = QStringLiteral("LIST FORM");
    return row;
}

/// The catalogue of most cases.
QList<CatalogueRow> someSongs()
{
    return {songOf("VOLARE", "NEL BLU DIPINTO DI BLU", "DOMENICO MODUGNO"),
            songOf("PERCHE", "PERCH\u00c8", "FABRIZIO"),
            songOf("CAFFE", "CAFF\u00c8 NERO", "BJ\u00d6RK - \u00c9TIENNE"),
            songOf("LOVEHURT", "LOVE HURTS", "ROY"),
            songOf("LOVEME", "LOVE ME TENDER", "ELVIS"),
            songOf("NEAR", "NEAR AND NOT FAR", "THE OR"),
            songOf("QUOTE", "SAY \"AGAIN\" * - ^ :", "A")};
}

QStringList namesOf(const QList<CatalogueSong> &songs)
{
    QStringList names;
    for (const CatalogueSong &song : songs)
        names.append(song.fileName);
    return names;
}

SongInfo tagged(const char *title, const char *artist)
{
    SongInfo info;
    info.title = QString::fromUtf8(title);
    info.artist = QString::fromUtf8(artist);
    return info;
}

} // namespace

class TestCatalogueSearch : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void findsWordsOfTitlesArtistsAndFileNames();
    void returnsTheWholeRecord();
    void ignoresCaseAndAccents();
    void findsStartsOfWords();
    void findsSingleLettersAsWholeWords();
    void ranksSongsWithMoreWordsHigher();
    void ranksTitleBeforeArtist();
    void keepsTheOrderOfEqualRanks();
    void findsNothingWithoutWords();
    void readsNoSyntax();
    void takesLongTexts();
    void guessesFromTheTag();
    void guessesFromBothOrdersOfTheFileName();
    void guessesFromTheNameInTheCatalogue();
    void mergesTheGuessesOfAllForms();
    void guessesFirstOfAFullCatalogue();
    void boundsResults();
    void reportsAMissingModule();
    void reportsACatalogueWithoutSongs();
    void reportsAReplacedCatalogue();
    void searchesAnEmptyCatalogue();
    void buildsTheIndexOnce();

private:
    QStringList found(const char *text) { return namesOf(m_search->find(QString::fromUtf8(text))); }
    QStringList guessed(const SongInfo &info, const char *fileName)
    {
        return namesOf(m_search->guesses(info, QString::fromUtf8(fileName)));
    }
    void open(const QList<CatalogueRow> &rows, const QStringList &statements = {});

    std::unique_ptr<Database> m_database;
    std::unique_ptr<CatalogueSearch> m_search;
};

void TestCatalogueSearch::init()
{
    open(someSongs());
}

void TestCatalogueSearch::cleanup()
{
    m_search.reset();
    m_database.reset();
    QVERIFY(!QSqlDatabase::contains(QStringLiteral("con_words")));
    QFile::remove(QStringLiteral("songsdb_debug"));
}

void TestCatalogueSearch::open(const QList<CatalogueRow> &rows, const QStringList &statements)
{
    m_search.reset();
    writeLocalCatalogue(rows, statements);
    m_database = std::make_unique<Database>();
    QVERIFY(m_database->init());
    m_search = std::make_unique<CatalogueSearch>(*m_database);
}

void TestCatalogueSearch::findsWordsOfTitlesArtistsAndFileNames()
{
    QCOMPARE(found("dipinto"), QStringList(QStringLiteral("VOLARE")));
    QCOMPARE(found("modugno"), QStringList(QStringLiteral("VOLARE")));
    QCOMPARE(found("volare"), QStringList(QStringLiteral("VOLARE")));
    QCOMPARE(found("unknown"), QStringList());
    QVERIFY(!m_search->whyUnavailable().has_value());
}

void TestCatalogueSearch::returnsTheWholeRecord()
{
    const QList<CatalogueSong> songs = m_search->find(QStringLiteral("tender"));
    QCOMPARE(songs.size(), 1);
    const SongsDbRecord &record = songs.first().record;
    QCOMPARE(record.title, QStringLiteral("LOVE ME TENDER"));
    QCOMPARE(record.artist, QStringLiteral("ELVIS"));
    QCOMPARE(record.altArtist, QStringLiteral("LIST FORM"));
    QCOMPARE(record.genre, QStringLiteral("GENRE"));
    QCOMPARE(record.author, QStringLiteral("AUTHOR"));
    QCOMPARE(record.length, 100);
    QCOMPARE(record.bpm, 120);
    QCOMPARE(record.key, QStringLiteral("A -"));
}

void TestCatalogueSearch::ignoresCaseAndAccents()
{
    for (const char *text : {"perche", "Perch\u00e8", "PERCH\u00c9", "perche\u0300"})
        QCOMPARE(found(text), QStringList(QStringLiteral("PERCHE")));
    QCOMPARE(found("bjork etienne"), QStringList(QStringLiteral("CAFFE")));
}

void TestCatalogueSearch::findsStartsOfWords()
{
    QCOMPARE(found("dip"), QStringList(QStringLiteral("VOLARE")));
    QCOMPARE(found("pinto"), QStringList());
}

void TestCatalogueSearch::findsSingleLettersAsWholeWords()
{
    QCOMPARE(found("a"), QStringList(QStringLiteral("QUOTE")));
    QCOMPARE(found("e"), QStringList());
}

void TestCatalogueSearch::ranksSongsWithMoreWordsHigher()
{
    QCOMPARE(found("love hurts"),
             QStringList({QStringLiteral("LOVEHURT"), QStringLiteral("LOVEME")}));
    QCOMPARE(found("tender love"),
             QStringList({QStringLiteral("LOVEME"), QStringLiteral("LOVEHURT")}));
}

void TestCatalogueSearch::ranksTitleBeforeArtist()
{
    open({songOf("A1", "OTHER ONE", "PAOLA"), songOf("A2", "PAOLA ONE", "OTHER"),
          songOf("A3", "SOME SONG", "SOMEBODY"), songOf("A4", "ANY SONG", "ANYBODY")});
    QCOMPARE(found("paola"), QStringList({QStringLiteral("A2"), QStringLiteral("A1")}));
}

void TestCatalogueSearch::keepsTheOrderOfEqualRanks()
{
    open({songOf("Z", "SAME TITLE", "SAME"), songOf("A", "SAME TITLE", "SAME"),
          songOf("M", "SAME TITLE", "SAME")});
    const QStringList expected{QStringLiteral("Z"), QStringLiteral("A"), QStringLiteral("M")};
    QCOMPARE(found("title"), expected);
    QCOMPARE(guessed(tagged("Same title", "Same"), "x.mid"), expected);
}

void TestCatalogueSearch::findsNothingWithoutWords()
{
    LogCapture log;
    for (const char *text : {"", "   ", "\"", "*", "-", "()", "\"\"*"})
        QCOMPARE(found(text), QStringList());
    QCOMPARE(guessed(SongInfo(), ""), QStringList());
    QVERIFY(log.messages().isEmpty());
}

void TestCatalogueSearch::readsNoSyntax()
{
    LogCapture log;
    QCOMPARE(found("near").first(), QStringLiteral("NEAR"));
    QCOMPARE(found("NEAR(near, 2)").first(), QStringLiteral("NEAR"));
    QCOMPARE(found("NOT far AND").first(), QStringLiteral("NEAR"));
    QCOMPARE(found("OR"), QStringList(QStringLiteral("NEAR")));
    QCOMPARE(found("far OR"), QStringList(QStringLiteral("NEAR")));
    QCOMPARE(found("\"again\"*"), QStringList(QStringLiteral("QUOTE")));
    QCOMPARE(found("-again"), QStringList(QStringLiteral("QUOTE")));
    QCOMPARE(found("^again"), QStringList(QStringLiteral("QUOTE")));
    QCOMPARE(found("artist:again + {"), QStringList(QStringLiteral("QUOTE")));
    QCOMPARE(found("again\"; drop table words; --"), QStringList(QStringLiteral("QUOTE")));
    QCOMPARE(found("again"), QStringList(QStringLiteral("QUOTE")));
    QCOMPARE(guessed(tagged("\" OR *", "NEAR("), "NOT - \"AND\".mid"),
             QStringList(QStringLiteral("NEAR")));
    QVERIFY(log.messages().isEmpty());
}

void TestCatalogueSearch::takesLongTexts()
{
    open({songOf("LONG", QByteArray(10000, 'x').constData(), "ARTIST"),
          songOf("MANY", QByteArray("word ").repeated(2000).constData(), "ARTIST"),
          songOf("SHORT", "WORD", "ARTIST")});
    QCOMPARE(found(QByteArray(10000, 'x').constData()), QStringList(QStringLiteral("LONG")));
    QCOMPARE(found(QByteArray("word ").repeated(2000).constData()).size(), 2);
    QByteArray many;
    for (int i = 0; i < 2000; ++i)
        many += "\"w" + QByteArray::number(i) + "* ";
    QCOMPARE(found(many.constData()), QStringList());
    QCOMPARE(guessed(tagged(many.constData(), many.constData()), "word.mid").size(), 2);
}

void TestCatalogueSearch::guessesFromTheTag()
{
    QCOMPARE(guessed(tagged("Love", "Elvis"), "track.mid"),
             QStringList({QStringLiteral("LOVEME"), QStringLiteral("LOVEHURT")}));
    QCOMPARE(guessed(tagged("Love", "Roy"), "track.mid"),
             QStringList({QStringLiteral("LOVEHURT"), QStringLiteral("LOVEME")}));
}

void TestCatalogueSearch::guessesFromBothOrdersOfTheFileName()
{
    for (const char *name : {"Elvis - Love.mid", "Love - Elvis.mid", "07_Elvis_-_Love.mp3",
                             "07. Love - Elvis.kar", "\u00c8lvis \u2013 L\u00f2ve.mid"})
        QCOMPARE(guessed(SongInfo(), name).first(), QStringLiteral("LOVEME"));
}

void TestCatalogueSearch::guessesFromTheNameInTheCatalogue()
{
    QCOMPARE(guessed(SongInfo(), "lovehurt (2).mid"), QStringList(QStringLiteral("LOVEHURT")));
}

void TestCatalogueSearch::mergesTheGuessesOfAllForms()
{
    const QStringList names = guessed(tagged("Perche", "Fabrizio"), "Modugno - Nel blu.mid");
    QCOMPARE(names.size(), 2);
    QVERIFY(names.contains(QStringLiteral("PERCHE")));
    QVERIFY(names.contains(QStringLiteral("VOLARE")));
}

void TestCatalogueSearch::guessesFirstOfAFullCatalogue()
{
    open(syntheticCatalogue());
    const QList<CatalogueSong> songs =
        m_search->guesses(SongInfo(), QStringLiteral("Name101 Surname101 - synthetic song 1.mid"));
    QCOMPARE(songs.first().record.title, QStringLiteral("SYNTHETIC SONG 1"));
    QCOMPARE(songs.first().record.artist, QStringLiteral("NAME101 SURNAME101"));
}

void TestCatalogueSearch::boundsResults()
{
    open(syntheticCatalogue(300));
    QCOMPARE(found("synthetic").size(), CatalogueSearch::mostResults);
    QCOMPARE(guessed(tagged("song 2", ""), "synthetic.mid").size(), CatalogueSearch::mostResults);
}

void TestCatalogueSearch::reportsAMissingModule()
{
    CatalogueSearch search(*m_database, QStringLiteral("no_such_module"));
    LogCapture log;
    QVERIFY(search.find(QStringLiteral("love")).isEmpty());
    QVERIFY(search.guesses(tagged("love", "elvis"), QStringLiteral("love.mid")).isEmpty());
    QVERIFY(search.whyUnavailable() == CatalogueSearch::unavailable);
    QCOMPARE(log.messages().size(), 1);
    QVERIFY(log.messages().first().contains(QStringLiteral("no such module")));
}

void TestCatalogueSearch::reportsACatalogueWithoutSongs()
{
    open(someSongs(), {QStringLiteral("alter table songs rename to other")});
    QVERIFY(m_search->find(QStringLiteral("love")).isEmpty());
    QVERIFY(m_search->whyUnavailable() == CatalogueSearch::unavailable);
}

void TestCatalogueSearch::reportsAReplacedCatalogue()
{
    // A computed table could keep the search busy forever.
    QVERIFY(QFile::remove(QStringLiteral("songsdb_debug")));
    writeLocalCatalogue({}, {QStringLiteral("drop table songs"),
                             QStringLiteral("create view songs as select 1 as title, 2 as artist, "
                                            "3 as altartist, 4 as filename, 5 as rowid")});
    QVERIFY(m_search->find(QStringLiteral("love")).isEmpty());
    QVERIFY(m_search->whyUnavailable() == CatalogueSearch::unavailable);
}

void TestCatalogueSearch::searchesAnEmptyCatalogue()
{
    open({});
    QCOMPARE(found("love"), QStringList());
    QVERIFY(!m_search->whyUnavailable().has_value());
}

void TestCatalogueSearch::buildsTheIndexOnce()
{
    QVERIFY(!QSqlDatabase::contains(QStringLiteral("con_words")));
    QCOMPARE(found("tender").size(), 1);
    QSqlQuery query(QSqlDatabase::database(QStringLiteral("con_words")));
    QVERIFY(query.exec(QStringLiteral("INSERT INTO words(rowid,title) VALUES (4,'added')")));
    query.finish();
    QCOMPARE(found("added"), QStringList(QStringLiteral("LOVEHURT")));
}

BRISEL_TEST(QCoreApplication, TestCatalogueSearch)

#include "tst_cataloguesearch.moc"
