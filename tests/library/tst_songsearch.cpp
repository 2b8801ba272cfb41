#include "library/songsearch.h"
#include "tests/literalbytes.h"
#include "tests/testprogram.h"

#include <QCoreApplication>
#include <QHash>
#include <QTest>

using namespace brisel;

/// What is typed into the search field, and which songs it means.
class TestSongSearch : public QObject
{
    Q_OBJECT

private slots:
    void splitsWords_data();
    void splitsWords();
    void comparesFields_data();
    void comparesFields();
    void ignoresWhatIsNotFinished_data();
    void ignoresWhatIsNotFinished();
    void isEqualIfItMeansTheSame();
};

void TestSongSearch::splitsWords_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("nothing") << "" << QStringList();
    QTest::newRow("blanks") << "  \t " << QStringList();
    QTest::newRow("words") << QStringLiteral(" Perché  no ")
                           << QStringList{QStringLiteral("PERCHE"), QStringLiteral("NO")};
    QTest::newRow("quotes") << "\"il cielo\" mare"
                            << QStringList{QStringLiteral("IL CIELO"), QStringLiteral("MARE")};
    QTest::newRow("open quote") << "\"il cielo" << QStringList{QStringLiteral("IL CIELO")};
    QTest::newRow("beside a field") << "genere:rock mare" << QStringList{QStringLiteral("MARE")};
    QTest::newRow("no field") << "10:30 sol<la"
                              << QStringList{QStringLiteral("10:30"), QStringLiteral("SOL<LA")};
    QTest::newRow("only a sign") << ":x" << QStringList{QStringLiteral(":X")};
    QTest::newRow("no number") << "bpm>abc bpm:x durata<1:2:3"
                               << QStringList{QStringLiteral("BPM>ABC"), QStringLiteral("BPM:X"),
                                              QStringLiteral("DURATA<1:2:3")};
    QTest::newRow("unknown field")
        << "senza:xyz without:titoli"
        << QStringList{QStringLiteral("SENZA:XYZ"), QStringLiteral("WITHOUT:TITOLI")};
}

void TestSongSearch::splitsWords()
{
    QFETCH(QString, text);
    QTEST(SongSearch(text).words(), "words");
}

void TestSongSearch::comparesFields_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isFound");
    const auto row = [](const char *text, bool isFound) {
        QTest::newRow(text) << QString::fromUtf8(text) << isFound;
    };
    row("titolo:cielo", true);
    row("title:CIELO", true);
    row("titolo:mare", false);
    row("artista:amici", true); // "Gli Àmici"
    row("interprete:àmici", true);
    row("artista=gli", false);
    row("artista=\"gli amici\"", true);
    row("genere:\"valzer lento\"", true);
    row("genere:lento genere:valzer", true);
    row("genere:lento genere:polka", false);
    row("file:.kar", true);
    row("cartella:basi", true);
    row("formato:midi", true);
    row("tonalità:a", true);
    row("key:g", false);
    row("stato:modificata", true);
    row("status:importata", false);
    row("bpm>120", false);
    row("bpm>=120", true);
    row("bpm<=120", true);
    row("bpm<120", false);
    row("bpm=120", true);
    row("bpm:120", true);
    row("bpm:12", false);
    row("bpm>99.5", true);
    row("durata>3", true); // minutes; the song has 3:25
    row("durata<4", true);
    row("durata>3:25", false);
    row("durata>=3:25", true);
    row("durata<3:26", true);
    row("length:3:25", true);
    row("senza:autore", true);
    row("without:author", true);
    row("senza:titolo", false);
    row("senza:bpm", false);
    row("titolo<m", true);
    row("titolo>m", false);
}

void TestSongSearch::comparesFields()
{
    using Field = SongSearch::Field;
    const QHash<Field, QString> song{
        {Field::Title, QStringLiteral("Il cielo")},
        {Field::Artist, QStringLiteral("Gli Àmici")},
        {Field::Genre, QStringLiteral("Valzer lento")},
        {Field::Author, QString()},
        {Field::FileName, QStringLiteral("cielo.kar")},
        {Field::Folder, QStringLiteral("/home/anna/Basi")},
        {Field::Format, QStringLiteral("MIDI")},
        {Field::Key, QStringLiteral("A -")},
        {Field::Outcome, QStringLiteral("modificata a mano")},
        {Field::Bpm, QStringLiteral("120")},
        {Field::Length, QStringLiteral("03:25")},
    };
    QFETCH(QString, text);
    const SongSearch search(text);
    QVERIFY(!search.isEmpty());
    QCOMPARE(search.words(), QStringList());
    QTEST(search.fulfils([&song](Field field) { return foldedForSearch(song.value(field)); }),
          "isFound");
}

/// While the user types, no song disappears that will be found.
void TestSongSearch::ignoresWhatIsNotFinished_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text :
         {"genere:", "bpm>", "bpm>=", "durata<", "senza:", "senza:a", "senza:auto", "without:t"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void TestSongSearch::ignoresWhatIsNotFinished()
{
    QFETCH(QString, text);
    QVERIFY(SongSearch(text).isEmpty());
}

void TestSongSearch::isEqualIfItMeansTheSame()
{
    QVERIFY(SongSearch(QStringLiteral("a  bpm>1")) == SongSearch(QStringLiteral("bpm>1 A")));
    QVERIFY(!(SongSearch(QStringLiteral("bpm>1")) == SongSearch(QStringLiteral("bpm>2"))));
    QVERIFY(!(SongSearch(QStringLiteral("bpm>1")) == SongSearch(QStringLiteral("bpm<1"))));
}

BRISEL_TEST(QCoreApplication, TestSongSearch)
#include "tst_songsearch.moc"
