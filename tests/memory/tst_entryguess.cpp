#include "memory/entryguess.h"

#include "memory/playlistdocument.h"
#include "tests/memory/playlistmemory.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Sample;

namespace
{

const QString atPath = u"è al percorso che il programma aveva annotato"_qs;
const QString sameRecord = u"ha lo stesso titolo, tempo e formato"_qs;
const QString sameTitle = u"ha lo stesso titolo"_qs;
const QString similarTitle = u"ha un titolo simile"_qs;

/// The guesses for the only entry of a playlist, each as "position: why".
QStringList guessesFor(const SampleMemory &memory, const QByteArray &entry, const QByteArray &path)
{
    memory.write(u"playlist/playlist.dat"_qs, listRecord("0700"));
    memory.write(songsOf7, entry);
    memory.write(pathsOf7, path);
    PlaylistDocument document;
    document.setContents(readContents(memory));
    QStringList guesses;
    for (const EntryGuess &guess : EntryGuess::of(document, 0, 0))
        guesses.append(QString::number(guess.song) + u": "_qs + guess.why);
    return guesses;
}

/// An index of songs with these records and paths.
void writeSongs(const SampleMemory &memory, const QByteArrayList &records,
                const QByteArrayList &paths)
{
    writeIndex(memory);
    QByteArray index;
    for (qsizetype i = 0; i < records.size(); ++i)
        index += records.at(i).first(4) + field(paths.at(i), 46) + QByteArray(14, '0');
    memory.write(u"index.id2"_qs, index);
    memory.write(u"title.id2"_qs, records.join());
}

} // namespace

/// The songs that an entry without a song may mean, in their order.
class TestEntryGuess : public QObject
{
    Q_OBJECT

private slots:
    void ranksPathRecordTitleAndWords();
    void findsPathsInAnyCaseAndForm();
    void knowsAccentsAndCase();
    void offersNoSongWithoutARecord();
    void guessesNothingWithoutAHint();
};

void TestEntryGuess::ranksPathRecordTitleAndWords()
{
    const SampleMemory memory;
    writeSongs(memory,
               {songRecord("00000001", "LA NOTTE VOLA", "7800"),
                songRecord("00000002", "VOLA", "6400"), songRecord("00000003", "VOLA", "7800"),
                songRecord("00000004", "MARE", "7800"),
                songRecord("00000005", "VOLA COLOMBA", "7800")},
               {"/A.MID", "/B.MID", "/C.MID", "/OLD/VOLA.MID", "/E.MID"});
    QCOMPARE(guessesFor(memory, songRecord("00000099", "VOLA", "7800"), field("/OLD/VOLA.MID", 64)),
             (QStringList{u"3: "_qs + atPath, u"2: "_qs + sameRecord, u"1: "_qs + sameTitle,
                          u"4: "_qs + similarTitle, u"0: "_qs + similarTitle}));
}

void TestEntryGuess::findsPathsInAnyCaseAndForm()
{
    const SampleMemory memory;
    writeSongs(memory,
               {songRecord("00000001", "UNO", "7800"), songRecord("00000002", "DUE", "7800"),
                songRecord("00000003", "TRE", "7800")},
               {"/basi/uno.mid", "/\x85.MID", "/VOLARE-1.MID"});
    const QByteArray entry = songRecord("00000099", "QUATTRO", "6400");
    QCOMPARE(guessesFor(memory, entry, field("/BASI/UNO.MID", 64)),
             QStringList(u"0: "_qs + atPath));
    // Written in Latin-1.
    QCOMPARE(guessesFor(memory, entry, field("/\xE0.MID", 64)), QStringList(u"1: "_qs + atPath));
    memory.write(u"VOLARE-1.MID"_qs, "song");
    GivenNames names;
    names.setRoot(memory.root());
    QVERIFY(names.add({}, u"VOLARE NEL BLU.MID"_qs, u"VOLARE-1.MID"_qs));
    QCOMPARE(guessesFor(memory, entry, field("/Volare nel blu.mid", 64)),
             QStringList(u"2: "_qs + atPath));
}

void TestEntryGuess::knowsAccentsAndCase()
{
    const SampleMemory memory;
    writeSongs(memory, {songRecord("00000001", "PERCH\xC9 NO", "7800")}, {"/A.MID"});
    QCOMPARE(guessesFor(memory, songRecord("00000099", "Perche' (no)", "7800"), {}),
             QStringList(u"0: "_qs + similarTitle));
}

void TestEntryGuess::offersNoSongWithoutARecord()
{
    const SampleMemory memory;
    writeSongs(memory, {songRecord("00000001", "VOLA", "7800")}, {"/OLD/VOLA.MID"});
    memory.write(u"title.id2"_qs, {});
    QCOMPARE(guessesFor(memory, songRecord("00000099", "VOLA", "7800"), field("/OLD/VOLA.MID", 64)),
             QStringList());
}

void TestEntryGuess::guessesNothingWithoutAHint()
{
    const SampleMemory memory;
    writeSongs(memory, {songRecord("00000001", "VOLA", "7800")}, {"/A.MID"});
    QCOMPARE(guessesFor(memory, songRecord("00000099", "MARE", "7800"), {}), QStringList());
    QCOMPARE(guessesFor(memory, songRecord("00000099", "", "0000"), {}), QStringList());
}

BRISEL_TEST(QCoreApplication, TestEntryGuess)

#include "tst_entryguess.moc"
