#include "library/songfilename.h"

#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

/// Title and artist from the name of a file.
class TestSongFileName : public QObject
{
    Q_OBJECT

private slots:
    void readsArtistAndTitle_data();
    void readsArtistAndTitle();
};

void TestSongFileName::readsArtistAndTitle_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("artist");
    QTest::addColumn<QString>("title");
    const auto row = [](const char *name, const char *artist, const char *title) {
        QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(artist)
                            << QString::fromUtf8(title);
    };
    row("Anna Bianchi - Il mare.mid", "Anna Bianchi", "Il mare");
    row("Anna Bianchi – Il mare.mid", "Anna Bianchi", "Il mare");
    row("Anna_Bianchi_-_Il_mare.kar", "Anna Bianchi", "Il mare");
    row("  Anna   Bianchi  -  Il  mare .mid", "Anna Bianchi", "Il mare");
    row("01 - Anna Bianchi - Il mare.mid", "Anna Bianchi", "Il mare");
    row("01. Anna Bianchi - Il mare.mid", "Anna Bianchi", "Il mare");
    row("(12) Anna Bianchi - Il mare.mid", "Anna Bianchi", "Il mare");
    row("07 Anna Bianchi - Il mare.mid", "Anna Bianchi", "Il mare");
    row("12-Anna Bianchi - Il mare.mid", "Anna Bianchi", "Il mare");
    row("Anna Bianchi - 03 - Il mare.mid", "Anna Bianchi", "Il mare");
    row("Anna Bianchi - Il mare - live.mid", "Anna Bianchi", "Il mare - live");
    row("50 Amici - 99 lune.mid", "50 Amici", "99 lune");
    row("10.000 lune.mid", "", "10.000 lune");
    row("03 Il mare.mid", "", "Il mare");
    row("Il mare.mid", "", "Il mare");
    row("Va-e-vieni.mid", "", "Va-e-vieni");
    row("1999.mid", "", "1999");
    row("01.mid", "", "01");
    row("01 -.mid", "", "-");
    row("-.mid", "", "-");
    row(".mid", "", "");
}

void TestSongFileName::readsArtistAndTitle()
{
    QFETCH(QString, name);
    const NamedSong named = songFromFileName(u"/songs/01 - X - Y/"_qs + name);
    QTEST(named.artist, "artist");
    QTEST(named.title, "title");
}

BRISEL_TEST(QCoreApplication, TestSongFileName)
#include "tst_songfilename.moc"
