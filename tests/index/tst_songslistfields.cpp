#include "tests/index/indexsamples.h"
#include "tests/scriptedindex.h"

#include <QTemporaryDir>

using namespace brisel;

using namespace Sample;

namespace
{

/// The records of a list for a reader that accepts every kind of line break.
QList<QList<QByteArray>> recordsOf(QByteArray content)
{
    for (const char *lineBreak :
         {"\r", "\v", "\f", "\x1C", "\x1D", "\x1E", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"})
        content.replace(lineBreak, "\n");
    QList<QList<QByteArray>> records;
    for (const QByteArray &line : content.split('\n')) {
        if (!line.isEmpty())
            records.append(line.split(';'));
    }
    return records;
}

/// Builds the index of \a memory and returns the records of its list.
QList<QList<QByteArray>> listOf(const SampleMemory &memory)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(u"list.csv"_qs);
    if (!ScriptedIndex().createIndex(memory.root()) ||
        ScriptedIndex().saveSongsList(memory.root(), name, SortByTitle) != 1)
        qFatal("no list");
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? recordsOf(file.readAll()) : QList<QList<QByteArray>>();
}

const QList<QByteArray> headings{"TITOLO", "ARTISTA", "GENERE", "FILE", ""};

} // namespace

/// The fields of the list of songs, read back.
class TestSongsListFields : public QObject
{
    Q_OBJECT

private slots:
    void readsPathsInTheCodePageOfTheIndex();
    void endsNoRecordWithinAField_data();
    void endsNoRecordWithinAField();
};

void TestSongsListFields::readsPathsInTheCodePageOfTheIndex()
{
    const SampleMemory memory;
    memory.write(u"\u00C0\u00E9\u00F1\u00F8/\u0416.MID"_qs, midiSong("\xC0\xE9", "Duo", "Pop"));
    const QList<QList<QByteArray>> records = listOf(memory);
    QVERIFY(memory.read(u"index.id2"_qs).contains(QByteArray("/\xB7\x82\xA4\x9B/?.MID", 11)));
    const QList<QByteArray> song{"\xC3\x80\xC3\x89", "DUO", "POP",
                                 "/\xC3\x80\xC3\xA9\xC3\xB1\xC3\xB8/?.MID", ""};
    QCOMPARE(records, QList<QList<QByteArray>>({headings, song}));
}

void TestSongsListFields::endsNoRecordWithinAField_data()
{
    QTest::addColumn<char>("character");
    for (const char *character : {"\n", "\v", "\f", "\r", "\x1C", "\x1D", "\x1E", "\x85"})
        QTest::addRow("%02X", static_cast<quint8>(*character)) << *character;
}

void TestSongsListFields::endsNoRecordWithinAField()
{
    QFETCH(const char, character);
    const SampleMemory memory;
    const QByteArray field = QByteArray("AA") + character + "BB";
    memory.write(QString::fromLatin1(field) + u".MID"_qs, midiSong(field, field, field));
    // The page of the index has no U+0085.
    const QByteArray path = character == '\x85' ? "/AA?BB.MID" : "/AA BB.MID";
    QCOMPARE(listOf(memory),
             QList<QList<QByteArray>>({headings, {"AA BB", "AA BB", "AA BB", path, ""}}));
}

BRISEL_TEST(QCoreApplication, TestSongsListFields)
#include "tst_songslistfields.moc"
