#include "history/history.h"
#include "tests/history/keptsongs.h"
#include "tests/testprogram.h"

#include <QTemporaryDir>
#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;

/// What the history keeps and gives back.
class TestHistory : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { m_folder.reset(); }
    void createsNothingBeforeTheFirstChange();
    void keepsSongsWithTheirFields();
    void storesFieldsAsJson();
    void ignoresDamagedFields();
    void listsTheNewestRunFirst();
    void findsTheLastChangeOfAPath();
    void deletesEntriesOfUnwrittenSongs();
    void forgetsARunWithoutSongs();
    void keepsEmptyAndIncompressibleBytes();
    void clearsEverything();
    void usesNoNumberTwice();

private:
    QString path() const { return m_folder->filePath(u"data/history.sqlite"_s); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace
{

/// Adds a run with one entry for each song, and returns its number.
qint64 addRun(History &history, const QList<PackedSong> &songs, RunKind kind = RunKind::Edit)
{
    qint64 run = 0;
    QList<qint64> ids;
    return history.add(run, kind, songs, ids) && ids.size() == songs.size() ? run : 0;
}

} // namespace

void TestHistory::createsNothingBeforeTheFirstChange()
{
    History history(path());
    QVERIFY(history.runs().isEmpty());
    QVERIFY(history.songs(1).isEmpty());
    QVERIFY(!history.oldBytes(1).has_value());
    QVERIFY(!history.whyUnusable().has_value());
    QVERIFY(history.clear());
    QVERIFY(QDir(m_folder->path()).isEmpty());
    QCOMPARE(history.bytesUsed(), 0);
}

void TestHistory::keepsSongsWithTheirFields()
{
    const KeptSong song = keptSong(u"/songs/à.mid"_s, QByteArray(9000, 'a'), "new");
    qint64 run = 0;
    {
        History history(path());
        run = addRun(history, {song}, RunKind::Synchronisation);
        QVERIFY(run != 0);
        QVERIFY(!history.runs().first().hasReport);
        QVERIFY(history.finish(run, {}, u"the report"_s));
    }
    History history(path());
    const QList<HistoryRun> runs = history.runs();
    QCOMPARE(runs.size(), 1);
    QCOMPARE(runs.first().id, run);
    QVERIFY(runs.first().kind == RunKind::Synchronisation);
    QCOMPARE(runs.first().songs, 1);
    QVERIFY(runs.first().hasReport);
    QVERIFY(runs.first().time.isValid());
    QCOMPARE(history.report(run), u"the report"_s);
    const QList<HistorySong> songs = history.songs(run);
    QCOMPARE(songs.size(), 1);
    QCOMPARE(songs.first().path, song.path);
    QCOMPARE(songs.first().format, u"MIDI"_s);
    QVERIFY(songs.first().before == song.before);
    QVERIFY(songs.first().after == song.after);
    QCOMPARE(history.fields(songs.first().id), song.fields);
    QVERIFY(history.oldBytes(songs.first().id) == song.oldBytes);
    QVERIFY(history.bytesUsed() > 0);
}

/// As docs/formats/history.md has them, written by hand.
void TestHistory::storesFieldsAsJson()
{
    const QString text = u"[[1,\"Title\",\"Another \\\"title\\\"\"],[6,\"\",\"120\"]]"_s;
    const QList<FieldChange> fields{{FieldChange::Field::Title, u"Title"_s, u"Another \"title\""_s},
                                    {FieldChange::Field::Bpm, QString(), u"120"_s}};
    QCOMPARE(fieldsText(fields), text);
    QVERIFY(fieldsIn(text) == fields);
    QVERIFY(fieldsIn(u"[ [ 8, \"\\u00e0\", \"\" ] ]"_s) ==
            QList<FieldChange>({{FieldChange::Field::Markers, u"à"_s, QString()}}));
}

void TestHistory::ignoresDamagedFields()
{
    for (const QString &text :
         {u""_s, u"["_s, u"{}"_s, u"[1]"_s, u"[[1,\"a\"]]"_s, u"[[1,\"a\",\"b\",\"c\"]]"_s,
          u"[[0,\"a\",\"b\"]]"_s, u"[[9,\"a\",\"b\"]]"_s, u"[[\"1\",\"a\",\"b\"]]"_s,
          u"[[1,\"a\",2]]"_s, u"[[1,null,\"b\"]]"_s})
        QVERIFY2(fieldsIn(text).isEmpty(), qPrintable(text));
}

void TestHistory::listsTheNewestRunFirst()
{
    History history(path());
    const qint64 first = addRun(history, {keptSong(u"/a"_s, "1", "2")});
    const qint64 second = addRun(history, {keptSong(u"/a"_s, "2", "3")});
    QCOMPARE(history.runs().value(0).id, second);
    QCOMPARE(history.runs().value(1).id, first);
}

void TestHistory::findsTheLastChangeOfAPath()
{
    History history(path());
    QVERIFY(addRun(history, {keptSong(u"/a"_s, "1", "2"), keptSong(u"/b"_s, "x", "y")}) != 0);
    const qint64 second = addRun(history, {keptSong(u"/a"_s, "2", "3")});
    QCOMPARE(history.lastChange(u"/a"_s).value().run, second);
    QVERIFY(history.song(history.lastChange(u"/b"_s).value().id).value().after ==
            Fingerprint::ofWhole("y"));
    QVERIFY(!history.lastChange(u"/c"_s).has_value());
}

void TestHistory::deletesEntriesOfUnwrittenSongs()
{
    History history(path());
    qint64 run = 0;
    QList<qint64> ids;
    QVERIFY(history.add(run, RunKind::Edit,
                        {keptSong(u"/a"_s, "1", "2"), keptSong(u"/b"_s, "1", "2")}, ids));
    QVERIFY(history.finish(run, {ids.first()}, {}));
    QCOMPARE(history.runs().value(0).songs, 1);
    QVERIFY(history.fields(ids.first()).isEmpty());
    QVERIFY(!history.oldBytes(ids.first()).has_value());
    QVERIFY(history.oldBytes(ids.last()).has_value());
}

void TestHistory::forgetsARunWithoutSongs()
{
    History history(path());
    qint64 run = 0;
    QList<qint64> ids;
    QVERIFY(history.add(run, RunKind::Edit, {keptSong(u"/a"_s, "1", "2")}, ids));
    QVERIFY(history.finish(run, ids, u"nothing"_s));
    QVERIFY(history.runs().isEmpty());
}

void TestHistory::keepsEmptyAndIncompressibleBytes()
{
    History history(path());
    QByteArray noise;
    for (int i = 0; i < 256; ++i)
        noise.append(static_cast<char>(i * 167));
    const qint64 run = addRun(history, {keptSong(u"/a"_s, "", "2"), keptSong(u"/b"_s, noise, "2"),
                                        keptSong(u"/c"_s, QByteArray(1 << 20, '\0'), "2")});
    const QList<HistorySong> songs = history.songs(run);
    QCOMPARE(songs.size(), 3);
    QVERIFY(history.oldBytes(songs.at(0).id) == QByteArray(""));
    QVERIFY(history.oldBytes(songs.at(1).id) == noise);
    QVERIFY(history.oldBytes(songs.at(2).id) == QByteArray(1 << 20, '\0'));
}

void TestHistory::clearsEverything()
{
    History history(path());
    const QByteArray old = QByteArray(9000, 'a');
    const qint64 run = addRun(history, {keptSong(u"/a"_s, old, "2")});
    QVERIFY(history.clear());
    QVERIFY(history.runs().isEmpty());
    QVERIFY(history.songs(run).isEmpty());
    QVERIFY(addRun(history, {keptSong(u"/a"_s, old, "2")}) != 0);
}

void TestHistory::usesNoNumberTwice()
{
    History history(path());
    const qint64 first = addRun(history, {keptSong(u"/a"_s, "1", "2")});
    const qint64 song = history.songs(first).value(0).id;
    QVERIFY(history.clear());
    const qint64 second = addRun(history, {keptSong(u"/a"_s, "1", "2")});
    QVERIFY(second > first);
    QVERIFY(history.songs(second).value(0).id > song);
}

BRISEL_TEST(QCoreApplication, TestHistory)
#include "tst_history.moc"
