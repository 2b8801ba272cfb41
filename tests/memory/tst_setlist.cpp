#include "memory/setlist.h"

#include "memory/playlistdocument.h"
#include "tests/memory/playlistmemory.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QGuiApplication>
#include <QTest>
#include <QTextDocument>

using namespace brisel;

using namespace Sample;

namespace
{

/// The set list of a memory whose song "VOLARE" is a file, and the others are not.
struct SampleSetList {
    SampleSetList()
    {
        const QByteArray hostile = songRecord("00000778", "<b>A & \"B\"</b>%1</td>", "0000");
        writePlaylist(memory, azzurro + volare + hostile + wrongSong, {});
        memory.write(u"BASI/VOLARE.MID"_qs,
                     midiSong("Nel blu dipinto di blu", "Domenico & Co.", "Pop"));
        document.setContents(readContents(memory));
    }

    SampleMemory memory;
    PlaylistDocument document;
    ScriptedRun run;
    SetList list;
};

} // namespace

/// A playlist as a page.
class TestSetList : public QObject
{
    Q_OBJECT

private slots:
    void readsSongsInPlayingOrder();
    void stopsIfInterrupted();
    void showsEachTextAsItIs();
    void writesAPdf();
};

void TestSetList::readsSongsInPlayingOrder()
{
    SampleSetList sample;
    QVERIFY(sample.list.read(sample.document, 0, sample.run));
    const QList<SetList::Song> &songs = sample.list.songs();
    QCOMPARE(songs.size(), 4);
    QCOMPARE(songs.at(0).title, u"AZZURRO"_qs);
    QCOMPARE(songs.at(0).artist, u"MODUGNO"_qs);
    QCOMPARE(songs.at(0).bpm, 0);
    QCOMPARE(songs.at(0).length, 0);
    QCOMPARE(songs.at(1).title, u"Nel blu dipinto di blu"_qs);
    QCOMPARE(songs.at(1).artist, u"Domenico & Co."_qs);
    QCOMPARE(songs.at(1).bpm, 120);
    QCOMPARE(songs.at(2).artist, QString());
    // The player shows this title, and the artist is another song's.
    QCOMPARE(songs.at(3).title, u"AZZURRO"_qs);
    QCOMPARE(songs.at(3).artist, QString());
    QCOMPARE(sample.run.steps, (QList<int>{1, 2, 3, 4}));
}

void TestSetList::stopsIfInterrupted()
{
    SampleSetList sample;
    sample.run.onStep = [&sample](int step) { sample.run.isStopped = step == 2; };
    QVERIFY(!sample.list.read(sample.document, 0, sample.run));
    QCOMPARE(sample.list.songs().size(), 2);
}

void TestSetList::showsEachTextAsItIs()
{
    SampleSetList sample;
    QVERIFY(sample.list.read(sample.document, 0, sample.run));
    const QString html = sample.list.html();
    QVERIFY(html.contains(u"<h1>Playlist 7</h1>"_qs));
    QVERIFY(html.contains(u"<td>Domenico &amp; Co.</td>"_qs));
    QVERIFY(!html.contains(u"<b>"_qs));
    QTextDocument page;
    page.setHtml(html);
    const QString text = page.toPlainText();
    qsizetype at = 0;
    for (const QString &title : {u"Titolo"_qs, u"AZZURRO"_qs, u"Nel blu dipinto di blu"_qs,
                                 u"120"_qs, u"<b>A & \"B\"</b>%1</td>"_qs, u"AZZURRO"_qs}) {
        at = text.indexOf(title, at) + 1;
        QVERIFY2(at > 0, qPrintable(title));
    }
}

void TestSetList::writesAPdf()
{
    SampleSetList sample;
    QVERIFY(sample.list.read(sample.document, 0, sample.run));
    const QString path = sample.memory.path(u"list.pdf"_qs);
    makeFile(path, "old");
    QVERIFY(sample.list.writePdf(path));
    const QByteArray pdf = fileContent(path);
    QVERIFY(pdf.startsWith("%PDF-") && pdf.trimmed().endsWith("%%EOF"));
    QVERIFY(pdf.contains("/Title"));
    QVERIFY(!sample.list.writePdf(sample.memory.path(u"nothing/list.pdf"_qs)));
}

BRISEL_TEST(QGuiApplication, TestSetList)

#include "tst_setlist.moc"
