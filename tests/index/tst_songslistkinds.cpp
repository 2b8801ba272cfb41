#include "index/index.h"
#include "tests/index/handmadeset.h"
#include "tests/index/indexsamples.h"
#include "tests/scriptedindex.h"

#include <QTranslator>

using namespace brisel;

using namespace Sample;

namespace
{

/// A translation of the page's texts.
class EnglishPage : public QTranslator
{
public:
    QString translate(const char * /*context*/, const char *source, const char * /*comment*/,
                      int /*number*/) const override
    {
        if (qstrcmp(source, "it") == 0)
            return u"en"_qs;
        return qstrcmp(source, "Elenco delle song") == 0 ? u"Song list"_qs : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

/// The lists of MP3s, and lists as pages to print.
class TestSongsListKinds : public QObject
{
    Q_OBJECT

    using Format = SongsListKind::Format;

private slots:
    void writesOnlyMp3s();
    void countsOnlyTheSongsOfTheList();
    void writesAPage();
    void groupsByArtist();
    void groupsMp3sByGenre();
    void escapesTexts();
    void hasNoHeadingsByTitle();
    void isInTheLanguageOfTheProgram();

private:
    static QByteArray list(const SampleMemory &memory, const SongsListKind &kind)
    {
        ScriptedIndex index;
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"list"_qs);
        if (index.saveSongsList(memory.root(), path, kind) != 1)
            return "<failed>";
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "<missing>";
    }
    /// The rows of a page, between "<tbody>" and "</table>".
    static QByteArray rows(const QByteArray &page)
    {
        const qsizetype start = page.indexOf("<tbody>\n") + 8;
        return page.mid(start, page.indexOf("</tbody>\n</table>") - start);
    }
};

void TestSongsListKinds::writesOnlyMp3s()
{
    const HandMadeSet memory;
    QCOMPARE(list(memory, {SortByTitle, true, Format::Csv}),
             QByteArray("TITOLO;ARTISTA;GENERE;FILE;\n"
                        "FOUR;BRUNO;POP;/BASI/D.MP3;\n"
                        "TWO;BRUNO;ROCK;/BASI/B.MP3;\n"));
    QCOMPARE(list(memory, {SortByArtist, false, Format::Csv}),
             QByteArray("TITOLO;ARTISTA;GENERE;FILE;\n"
                        "ONE;ANNA;POP;/A.MID;\n"
                        "THREE;ANNA;ROCK;/C.KAR;\n"
                        "FOUR;BRUNO;POP;/BASI/D.MP3;\n"
                        "TWO;BRUNO;ROCK;/BASI/B.MP3;\n"));
}

void TestSongsListKinds::countsOnlyTheSongsOfTheList()
{
    const HandMadeSet memory;
    ScriptedIndex index;
    const QSignalSpy maximum(&index, &Index::progressMaxSetup);
    const QSignalSpy value(&index, &Index::progressValueChanged);
    const QTemporaryDir folder;
    QCOMPARE(index.saveSongsList(memory.root(), folder.filePath(u"list"_qs),
                                 SongsListKind{SortByTitle, true}),
             1);
    QCOMPARE(values(maximum).last(), 2);
    QCOMPARE(values(value).last(), 2);
}

void TestSongsListKinds::writesAPage()
{
    const HandMadeSet memory;
    const QByteArray page = list(memory, {SortByTitle, false, Format::Html});
    QVERIFY(page.startsWith("<!DOCTYPE html>\n<html lang=\"it\">\n<head>\n"
                            "<meta charset=\"utf-8\">\n<title>Elenco delle song</title>\n"));
    QVERIFY(page.contains("<h1>Elenco delle song</h1>\n<p>4 song</p>\n<table>\n<thead>\n"
                          "<tr><th>TITOLO</th><th>ARTISTA</th><th>GENERE</th><th>FILE</th></tr>\n"
                          "</thead>\n"));
    QCOMPARE(rows(page),
             QByteArray("<tr><td>FOUR</td><td>BRUNO</td><td>POP</td><td>/BASI/D.MP3</td></tr>\n"
                        "<tr><td>ONE</td><td>ANNA</td><td>POP</td><td>/A.MID</td></tr>\n"
                        "<tr><td>THREE</td><td>ANNA</td><td>ROCK</td><td>/C.KAR</td></tr>\n"
                        "<tr><td>TWO</td><td>BRUNO</td><td>ROCK</td><td>/BASI/B.MP3</td></tr>\n"));
    QVERIFY(page.endsWith("</tbody>\n</table>\n</body>\n</html>\n"));
}

void TestSongsListKinds::groupsByArtist()
{
    const HandMadeSet memory;
    const QByteArray heading = "</tbody>\n<tbody>\n<tr class=\"group\"><th colspan=\"4\" "
                               "scope=\"rowgroup\">";
    QCOMPARE(rows(list(memory, {SortByArtist, false, Format::Html})),
             heading +
                 "ANNA</th></tr>\n"
                 "<tr><td>ONE</td><td>ANNA</td><td>POP</td><td>/A.MID</td></tr>\n"
                 "<tr><td>THREE</td><td>ANNA</td><td>ROCK</td><td>/C.KAR</td></tr>\n" +
                 heading +
                 "BRUNO</th></tr>\n"
                 "<tr><td>FOUR</td><td>BRUNO</td><td>POP</td><td>/BASI/D.MP3</td></tr>\n"
                 "<tr><td>TWO</td><td>BRUNO</td><td>ROCK</td><td>/BASI/B.MP3</td></tr>\n");
}

void TestSongsListKinds::groupsMp3sByGenre()
{
    const HandMadeSet memory;
    const QByteArray page = list(memory, {SortByGenre, true, Format::Html});
    QVERIFY(page.contains("<h1>Elenco delle song MP3</h1>\n<p>2 song</p>"));
    QCOMPARE(page.count("<td>"), 8);
    QVERIFY(page.indexOf(">POP</th>") < page.indexOf(">FOUR<"));
    QVERIFY(page.indexOf(">FOUR<") < page.indexOf(">ROCK</th>"));
    QVERIFY(page.indexOf(">ROCK</th>") < page.indexOf(">TWO<"));
}

void TestSongsListKinds::escapesTexts()
{
    const SampleMemory memory;
    memory.write(u"A&B <i>.MID"_qs, midiSong("<b>\x01 \"Caff\xE8\" & co", "<u>", "\x80x"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    const QByteArray page = list(memory, {SortByArtist, false, Format::Html});
    QVERIFY2(page.contains("<th colspan=\"4\" scope=\"rowgroup\">&lt;U&gt;</th>"), page);
    QVERIFY2(page.contains("<td>&lt;B&gt;  &quot;CAFF\xC3\x88&quot; &amp; CO</td>"
                           "<td>&lt;U&gt;</td><td> X</td>"),
             page);
    QVERIFY2(page.contains("&amp;B"), page);
}

void TestSongsListKinds::hasNoHeadingsByTitle()
{
    const HandMadeSet memory;
    QCOMPARE(list(memory, {SortByArtist, false, Format::Html}).count("rowgroup"), 2);
    QCOMPARE(list(memory, {SortByTitle, false, Format::Html}).count("rowgroup"), 0);
}

void TestSongsListKinds::isInTheLanguageOfTheProgram()
{
    const HandMadeSet memory;
    EnglishPage english;
    QCoreApplication::installTranslator(&english);
    const QByteArray page = list(memory, {SortByTitle, false, Format::Html});
    QCoreApplication::removeTranslator(&english);
    QVERIFY(page.contains("<html lang=\"en\">"));
    QVERIFY(page.contains("<title>Song list</title>"));
}

BRISEL_TEST(QApplication, TestSongsListKinds)
#include "tst_songslistkinds.moc"
