#include "songfile/fieldchange.h"
#include "songfile/songinfo.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;

class TestFieldChange : public QObject
{
    Q_OBJECT

private slots:
    void namesNoFieldOfEqualSongs();
    void namesEachField();
    void showsLengthsInMinutes();
};

void TestFieldChange::namesNoFieldOfEqualSongs()
{
    SongInfo song;
    song.title = u"Title"_s;
    SongInfo other = song;
    other.fileName = u"/elsewhere"_s;
    QVERIFY(fieldChanges(song, other).isEmpty());
}

void TestFieldChange::namesEachField()
{
    using Field = FieldChange::Field;
    SongInfo after;
    after.title = u"T"_s;
    after.artist = u"A"_s;
    after.genre = u"G"_s;
    after.author = u"W"_s;
    after.length = 65;
    after.userBpm = 120;
    after.key = u"C"_s;
    after.markers = {{u"Intro"_s, 1}, {u"Coro"_s, 17}};
    const QList<FieldChange> expected = {
        {Field::Title, {}, u"T"_s},      {Field::Artist, {}, u"A"_s},
        {Field::Genre, {}, u"G"_s},      {Field::Author, {}, u"W"_s},
        {Field::Length, {}, u"01:05"_s}, {Field::Bpm, {}, u"120"_s},
        {Field::Key, {}, u"C"_s},        {Field::Markers, {}, u"1 Intro; 17 Coro"_s}};
    QCOMPARE(fieldChanges(SongInfo(), after), expected);
}

void TestFieldChange::showsLengthsInMinutes()
{
    SongInfo before;
    SongInfo after;
    before.length = 6000;
    after.length = -3;
    const QList<FieldChange> changes = fieldChanges(before, after);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.first().before, u"100:00"_s);
    QCOMPARE(changes.first().after, u"-3"_s);
}

BRISEL_TEST(QCoreApplication, TestFieldChange)
#include "tst_fieldchange.moc"
