#include "index/memorycheck.h"
#include "tests/index/handmadeset.h"
#include "tests/scriptedindex.h"
#include "tests/testprogram.h"

#include <QTest>

#include <functional>

using namespace brisel;

using namespace Sample;

namespace
{

struct Damage {
    const char *name;
    std::function<void(const HandMadeSet &)> make;
    QStringList lines;
};

/// Damage to paths, ids and the order of paths.
QList<Damage> pathDamages()
{
    return {
        {"song gone",
         [](const HandMadeSet &set) { set.remove(u"C.KAR"_qs); },
         {u"index.id2, record 2: la song non c'è: /C.KAR"_qs}},
        {"path of no song",
         [](const HandMadeSet &set) { set.patch(u"index.id2"_qs, 133, "X"); },
         {u"index.id2, record 2: la song non c'è: /X.KAR"_qs,
          u"index.id2: manca la song /C.KAR"_qs}},
        {"path of a file that is no song",
         [](const HandMadeSet &set) {
             set.write(u"Z.TXT"_qs, "text");
             set.patch(u"index.id2"_qs, 132, "/Z.TXT");
         },
         {u"index.id2, record 2: la song non c'è: /Z.TXT"_qs,
          u"index.id2: manca la song /C.KAR"_qs}},
        {"song without a record",
         [](const HandMadeSet &set) { set.write(u"E/F.zb5"_qs, "_ZB5 song"); },
         {u"index.id2: manca la song /E/F.zb5"_qs}},
        {"song twice",
         [](const HandMadeSet &set) { set.patch(u"index.id2"_qs, 196, field("/a.mid", 46)); },
         {u"index.id2, record 3: song indicizzata due volte: /a.mid"_qs,
          u"index.id2: manca la song /BASI/D.MP3"_qs,
          u"ordfile.id2, posto 2: fuori ordine: /a.mid"_qs}},
        {"path with line breaks",
         [](const HandMadeSet &set) { set.patch(u"index.id2"_qs, 133, "\n\r.KAR"); },
         {u"index.id2, record 2: la song non c'è: /  .KAR"_qs,
          u"index.id2: manca la song /C.KAR"_qs,
          u"ordfile.id2, posto 3: fuori ordine: /  .KAR"_qs}},
        {"ids exchanged",
         [](const HandMadeSet &set) {
             set.patch(u"index.id2"_qs, 0, hex("00000001"));
             set.patch(u"index.id2"_qs, 64, hex("00000000"));
         },
         {u"index.id2, record 1: id 0 fuori ordine"_qs}},
        {"id twice",
         [](const HandMadeSet &set) { set.patch(u"index.id2"_qs, 192, hex("00000003")); },
         {u"index.id2, record 3: id 3 usato due volte"_qs,
          u"title.id2, record 0: nessuna song ha l'id 7"_qs,
          u"artist.id2, record 4: nessuna song ha l'id 7"_qs,
          u"genre.id2, record 1: nessuna song ha l'id 7"_qs,
          u"title3.id2, record 0: nessuna song ha l'id 7"_qs,
          u"artist3.id2, record 1: nessuna song ha l'id 7"_qs,
          u"genre3.id2, record 1: nessuna song ha l'id 7"_qs}},
        {"record number too high",
         [](const HandMadeSet &set) { set.patch(u"ordfile.id2"_qs, 6, hex("0900")); },
         {u"ordfile.id2, posto 3: il record 9 non c'è"_qs, u"ordfile.id2: manca il record 2"_qs}},
        {"record number twice",
         [](const HandMadeSet &set) { set.patch(u"ordfile.id2"_qs, 4, hex("0100")); },
         {u"ordfile.id2, posto 2: record 1 ripetuto"_qs, u"ordfile.id2: manca il record 3"_qs}},
        {"record number missing",
         [](const HandMadeSet &set) { set.cut(u"ordfile.id2"_qs, 2); },
         {u"ordfile.id2: manca il record 2"_qs}},
        {"order of paths",
         [](const HandMadeSet &set) { set.patch(u"ordfile.id2"_qs, 2, hex("03000100")); },
         {u"ordfile.id2, posto 2: fuori ordine: /BASI/B.MP3"_qs}},
    };
}

/// Damage to lists, groups, alphabet tables and counts.
QList<Damage> listDamages()
{
    return {
        {"order of titles",
         [](const HandMadeSet &set) { set.exchange(u"title.id2"_qs, 2, 3); },
         {u"title.id2, record 3: fuori ordine: THREE"_qs}},
        {"song twice in a list",
         [](const HandMadeSet &set) { set.patch(u"title.id2"_qs, 64, HandMadeSet::four()); },
         {u"title.id2, record 1: song ripetuta: /BASI/D.MP3"_qs,
          u"title.id2: manca la song /A.MID"_qs,
          u"atitle.id2: la lettera \"O\" porta al posto sbagliato"_qs}},
        {"id of no song",
         [](const HandMadeSet &set) { set.patch(u"genre3.id2"_qs, 64, hex("00000063")); },
         {u"genre3.id2, record 1: nessuna song ha l'id 99"_qs,
          u"genre3.id2: manca la song /BASI/D.MP3"_qs}},
        {"last song cut off",
         [](const HandMadeSet &set) { set.cut(u"title.id2"_qs, 64); },
         {u"title.id2: manca la song /BASI/B.MP3"_qs,
          u"fsinfos.id2: il conto di title.id2 è 3, non 4"_qs}},
        {"other title",
         [](const HandMadeSet &set) { set.patch(u"artist.id2"_qs, 70, "F"); },
         {u"artist.id2, record 1: dati diversi da title.id2: /A.MID"_qs}},
        {"MIDI song among the MP3 songs",
         [](const HandMadeSet &set) { set.patch(u"title3.id2"_qs, 0, HandMadeSet::one()); },
         {u"title3.id2, record 0: la song non è un MP3: /A.MID"_qs,
          u"title3.id2: manca la song /BASI/D.MP3"_qs,
          u"atitle3.id2: la lettera \"F\" porta al posto sbagliato"_qs,
          u"atitle3.id2: la lettera \"O\" porta al posto sbagliato"_qs}},
        {"order in a group",
         [](const HandMadeSet &set) { set.exchange(u"artist.id2"_qs, 1, 2); },
         {u"artist.id2, record 2: fuori ordine: ONE"_qs}},
        {"order of groups",
         [](const HandMadeSet &set) { set.patch(u"artist.id2"_qs, 4, "CARLO"); },
         {u"artist.id2, record 3: fuori ordine: BRUNO"_qs,
          u"aartist.id2: la lettera \"A\" porta al posto sbagliato"_qs,
          u"aartist.id2: la lettera \"C\" porta al posto sbagliato"_qs}},
        {"group twice",
         [](const HandMadeSet &set) { set.patch(u"genre.id2"_qs, 196, field("pop", 58)); },
         {u"genre.id2, record 3: gruppo ripetuto: pop"_qs,
          u"agenre.id2: la lettera \"R\" porta al posto sbagliato"_qs}},
        {"songs of a group",
         [](const HandMadeSet &set) { set.patch(u"artist.id2"_qs, 2, hex("0003")); },
         {u"artist.id2, record 0: il gruppo ha 2 song, non 3"_qs}},
        {"songs of the last group",
         [](const HandMadeSet &set) { set.patch(u"genre3.id2"_qs, 130, hex("0000")); },
         {u"genre3.id2, record 2: il gruppo ha 1 song, non 0"_qs}},
        {"songs of the group before",
         [](const HandMadeSet &set) { set.patch(u"artist.id2"_qs, 192, hex("0102")); },
         {u"artist.id2, record 3: il gruppo precedente ha 2 song, non 258"_qs}},
        {"songs before the first group",
         [](const HandMadeSet &set) { set.patch(u"artist3.id2"_qs, 0, hex("0001")); },
         {u"artist3.id2, record 0: il gruppo precedente ha 0 song, non 1"_qs}},
        {"song without a group",
         [](const HandMadeSet &set) {
             set.write(u"genre3.id2"_qs, set.read(u"genre3.id2"_qs).mid(64));
         },
         {u"genre3.id2, record 0: song senza gruppo"_qs,
          u"agenre3.id2: la lettera \"P\" porta al posto sbagliato"_qs,
          u"agenre3.id2: la lettera \"R\" porta al posto sbagliato"_qs,
          u"fsinfos.id2: il conto di genre3.id2 è 1, non 2"_qs}},
        {"group without songs",
         [](const HandMadeSet &set) {
             set.write(u"artist3.id2"_qs,
                       set.read(u"artist3.id2"_qs) + groupHeader("00020000", "\xC9MILE"));
         },
         {u"artist3.id2, record 3: gruppo senza song"_qs,
          u"fsinfos.id2: il conto di artist3.id2 è 2, non 1"_qs}},
        {"initial that leads elsewhere",
         [](const HandMadeSet &set) { set.patch(u"atitle.id2"_qs, 208, hex("000000C0")); },
         {u"atitle.id2: la lettera \"T\" porta al posto sbagliato"_qs}},
        {"initial without an entry",
         [](const HandMadeSet &set) { set.patch(u"agenre3.id2"_qs, 200, hex("FFFFFFFF")); },
         {u"agenre3.id2: la lettera \"R\" porta al posto sbagliato"_qs}},
        {"entry without an initial",
         [](const HandMadeSet &set) { set.patch(u"aartist.id2"_qs, 0, hex("00000000")); },
         {u"aartist.id2: la lettera \" \" porta al posto sbagliato"_qs}},
        {"entry behind the end",
         [](const HandMadeSet &set) { set.patch(u"aartist3.id2"_qs, 204, hex("FFFFFFF0")); },
         {u"aartist3.id2: la lettera \"S\" porta al posto sbagliato"_qs}},
        {"counts",
         [](const HandMadeSet &set) {
             set.patch(u"fsinfos.id2"_qs, 0, hex("050002000200020001000003"));
         },
         {u"fsinfos.id2: il conto di title.id2 è 4, non 5"_qs,
          u"fsinfos.id2: il conto di genre3.id2 è 2, non 768"_qs}},
    };
}

QList<Damage> playlistDamages()
{
    return {
        {"playlist that names no song",
         [](const HandMadeSet &set) {
             set.addPlaylist(HandMadeSet::one() + songRecord("00000002", "GONE", "7800") +
                             HandMadeSet::four());
         },
         {u"playlist/play0007.dat, posto 1: la song non è nell'indice"_qs}},
        {"playlist that lost a song with an accent",
         [](const HandMadeSet &set) {
             QFile::rename(set.path(u"C.KAR"_qs), set.path(u"CAFÉ.KAR"_qs));
             set.patch(u"index.id2"_qs, 132, "/CAF\x90.KAR");
             set.addPlaylist(songRecord("00000002", "THREE", "7800"));
             set.write(u"playlist/play0007.pts"_qs, field("/CAF\x90.KAR", 64));
         },
         {u"playlist/play0007.dat, posto 0: la song non è nell'indice"_qs}},
        {"playlist that plays other songs",
         [](const HandMadeSet &set) {
             set.addPlaylist(HandMadeSet::one() + songRecord("00000001", "THREE", "7800") +
                             songRecord("00000003", "THREE?", "7800") +
                             songRecord("00000007", "", "0001"));
         },
         {u"playlist/play0007.dat, posto 1: il titolo è \"THREE\", quello della song \"TWO\""_qs,
          u"playlist/play0007.dat, posto 2: il titolo è \"THREE?\", quello della song \"THREE\""_qs,
          u"playlist/play0007.dat, posto 3: il titolo è \"\", quello della song \"FOUR\""_qs}},
        {"half a playlist record",
         [](const HandMadeSet &set) { set.addPlaylist(HandMadeSet::one().chopped(1)); },
         {u"playlist/play0007.dat: lunghezza errata: 63 byte"_qs}},
        {"playlist that is a folder",
         [](const HandMadeSet &set) {
             set.addPlaylist({});
             set.remove(u"playlist/play0007.dat"_qs);
             QDir().mkdir(set.path(u"playlist/play0007.dat"_qs));
         },
         {u"playlist/play0007.dat: il file non si può leggere"_qs}},
        {"playlist with a signed number, listed twice",
         [](const HandMadeSet &set) {
             set.write(u"playlist/playlist.dat"_qs,
                       field("\x85", 32) + field("\x85", 32) + QByteArray("half"));
             set.write(u"playlist/play4294967173.dat"_qs, songRecord("FFFFFFFF", "GONE", "7800"));
         },
         {u"playlist/play4294967173.dat, posto 0: la song non è nell'indice"_qs}},
    };
}

} // namespace

/// Every kind of damage to a set written out by hand, and the exact lines that report it.
class TestMemoryDamage : public QObject
{
    Q_OBJECT

private slots:
    void findsNothingInTheSoundSet();
    void findsDamage_data();
    void findsDamage();
    void findsMissingAndCutFiles_data();
    void findsMissingAndCutFiles();
    void findsFilesOfAnotherKind();
    void distinguishesDamageFromChange();
    void skipsWhatPlaylistsMayHold();
    void countsWhatWouldFillTheReport();

private:
    static QStringList findings(const HandMadeSet &set)
    {
        ScriptedCheck check;
        return check.run(set.root()) ? check.findings() : QStringList{u"not done"_qs};
    }
};

void TestMemoryDamage::findsNothingInTheSoundSet()
{
    const HandMadeSet set;
    QCOMPARE(findings(set), QStringList());
    set.addPlaylist(HandMadeSet::one() + HandMadeSet::four() + HandMadeSet::one());
    QCOMPARE(findings(set), QStringList());
}

void TestMemoryDamage::findsDamage_data()
{
    QTest::addColumn<std::function<void(const HandMadeSet &)>>("make");
    QTest::addColumn<QStringList>("lines");
    for (const QList<Damage> &damages : {pathDamages(), listDamages(), playlistDamages()}) {
        for (const Damage &damage : damages)
            QTest::newRow(damage.name) << damage.make << damage.lines;
    }
}

void TestMemoryDamage::findsDamage()
{
    QFETCH(std::function<void(const HandMadeSet &)>, make);
    QFETCH(QStringList, lines);
    const HandMadeSet set;
    make(set);
    QCOMPARE(findings(set), lines);
}

void TestMemoryDamage::findsMissingAndCutFiles_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
         {"index.id2", "ordfile.id2", "title.id2", "artist.id2", "genre.id2", "atitle.id2",
          "aartist.id2", "agenre.id2", "title3.id2", "artist3.id2", "genre3.id2", "atitle3.id2",
          "aartist3.id2", "agenre3.id2", "fsinfos.id2"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestMemoryDamage::findsMissingAndCutFiles()
{
    QFETCH(QString, name);
    const HandMadeSet set;
    const QByteArray content = set.read(name);
    for (const QByteArray &other : {content.chopped(1), content + '\0'}) {
        set.write(name, other);
        QCOMPARE(findings(set),
                 QStringList{name + u": lunghezza errata: %1 byte"_qs.arg(other.size())});
    }
    set.remove(name);
    QCOMPARE(findings(set), QStringList{name + u": il file manca"_qs});
}

void TestMemoryDamage::findsFilesOfAnotherKind()
{
    const HandMadeSet set;
    set.write(u"title.id2"_qs, QByteArray(65536 * 64, '\0'));
    set.write(u"atitle.id2"_qs, QByteArray(512, '\xFF'));
    set.remove(u"ordfile.id2"_qs);
    QDir().mkdir(set.path(u"ordfile.id2"_qs));
    QCOMPARE(findings(set), QStringList({u"ordfile.id2: il file non si può leggere"_qs,
                                         u"title.id2: lunghezza errata: 4194304 byte"_qs,
                                         u"atitle.id2: lunghezza errata: 512 byte"_qs}));
}

/// Formatting the memory helps only against damage.
void TestMemoryDamage::distinguishesDamageFromChange()
{
    const HandMadeSet set;
    set.addPlaylist(songRecord("00000002", "GONE", "7800"));
    set.write(u"E.MID"_qs, midiSong("Five", "Anna", "Pop"));
    ScriptedCheck check;
    QVERIFY(check.run(set.root()));
    QCOMPARE(check.findings().size(), 2);
    QVERIFY(!check.hasDamage());
    set.patch(u"fsinfos.id2"_qs, 0, hex("09"));
    QVERIFY(check.run(set.root()));
    QVERIFY(check.hasDamage());
}

void TestMemoryDamage::skipsWhatPlaylistsMayHold()
{
    const HandMadeSet set;
    // Tempo and type are not part of the title, nor are the bytes after its end.
    set.addPlaylist(HandMadeSet::one() + songRecord("00000003", "THREE", "0009") +
                    songRecord("00000007", QByteArray("FOUR\0x", 6), "0001"));
    QCOMPARE(findings(set), QStringList());
    // A playlist that is listed but has no songs file.
    set.remove(u"playlist/play0007.dat"_qs);
    QCOMPARE(findings(set), QStringList());
    // Without titles there is nothing to compare.
    set.addPlaylist(songRecord("00000001", "THREE", "7800"));
    set.write(u"title.id2"_qs, "short");
    QCOMPARE(findings(set), QStringList{u"title.id2: lunghezza errata: 5 byte"_qs});
}

void TestMemoryDamage::countsWhatWouldFillTheReport()
{
    const HandMadeSet set;
    set.addPlaylist(songRecord("00000002", "GONE", "7800").repeated(1003));
    const QStringList lines = findings(set);
    QCOMPARE(lines.size(), 1001);
    QCOMPARE(lines.at(999), u"playlist/play0007.dat, posto 999: la song non è nell'indice"_qs);
    QCOMPARE(lines.last(), u"... e altri 3"_qs);
}

BRISEL_TEST(QCoreApplication, TestMemoryDamage)
#include "tst_memorydamage.moc"
