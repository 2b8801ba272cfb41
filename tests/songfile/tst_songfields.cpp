#include "songfile/metasong.h"
#include "tests/logcapture.h"
#include "tests/songfile/songs.h"
#include "tests/testprogram.h"

#include <QtTest>

#include <array>

using namespace brisel;

using namespace Qt::StringLiterals;
using Samples::fullInfo;
using Samples::infoOf;
using Samples::kordiaEvent;
using Samples::metaEvent;
using Samples::midi;
using Samples::opened;

namespace
{

using Field = SongFields::Field;

constexpr std::array fieldsOfASong{Field::Title,  Field::Artist, Field::Genre, Field::Author,
                                   Field::Length, Field::Bpm,    Field::Key,   Field::Markers};

/// \a before with those fields of \a after that are in \a fields.
SongInfo mixed(SongInfo before, const SongInfo &after, SongFields fields)
{
    const auto take = [&](Field field, auto SongInfo::*member) {
        if (fields.holds(field))
            before.*member = after.*member;
    };
    take(Field::Title, &SongInfo::title);
    take(Field::Artist, &SongInfo::artist);
    take(Field::Genre, &SongInfo::genre);
    take(Field::Author, &SongInfo::author);
    take(Field::Length, &SongInfo::length);
    take(Field::Bpm, &SongInfo::userBpm);
    take(Field::Key, &SongInfo::key);
    take(Field::Markers, &SongInfo::markers);
    return before;
}

/// The set number \a number of 256.
SongFields someFields(size_t number)
{
    SongFields fields = SongFields::none();
    for (size_t i = 0; i < fieldsOfASong.size(); ++i) {
        if ((number >> i & 1) != 0)
            fields.insert(fieldsOfASong[i]);
    }
    return fields;
}

} // namespace

class TestSongFields : public QObject
{
    Q_OBJECT

private slots:
    void holdsWhatWasInserted();
    void writesChosenFieldsOnly_data();
    void writesChosenFieldsOnly();
    void keepsTheBytesWithoutFields_data() { writesChosenFieldsOnly_data(); }
    void keepsTheBytesWithoutFields();
    void appliesChosenFieldsAgainToAChangedFile();
};

void TestSongFields::holdsWhatWasInserted()
{
    SongFields fields = SongFields::none();
    QVERIFY(!fields.holds(Field::Markers));
    fields.insert(Field::Markers);
    fields.insert(Field::Title);
    fields.remove(Field::Title);
    QVERIFY(fields.holds(Field::Markers) && !fields.holds(Field::Title));
    for (const Field field : fieldsOfASong)
        QVERIFY(SongFields::all().holds(field));
}

void TestSongFields::writesChosenFieldsOnly_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    const QByteArray published = metaEvent(2, "(c) Kordia");
    QTest::newRow("empty MIDI") << u"a.mid"_s << midi(published);
    // Markers that are written replace the author.
    QTest::newRow("MIDI with author")
        << u"a.mid"_s << midi(kordiaEvent(3, "Old author") + published);
    QTest::newRow("MIDI with texts") << u"a.mid"_s
                                     << midi(metaEvent(3, "New") + kordiaEvent(2, "Old artist") +
                                             kordiaEvent(1, "Old genre") + published);
    QTest::newRow("container") << u"a.zb3"_s
                               << Samples::container(Samples::header(Samples::titleField, "-"),
                                                     midi(kordiaEvent(3, "Inner author")));
    QTest::newRow("MP3") << u"a.mp3"_s
                         << Samples::tag(Samples::frame("TPE1", "Old artist") +
                                         Samples::frame("TCOP", "Kordia")) +
                                Samples::audio(500);
}

void TestSongFields::writesChosenFieldsOnly()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    const LogCapture log;
    for (const bool manual : {false, true}) {
        const MetaSong song = opened(name, content);
        const SongInfo before = infoOf(song);
        const SongInfo wanted = fullInfo(true);
        MetaSong whole = song;
        whole.setSongInfo(wanted, manual);
        const SongInfo after = infoOf(whole);
        QVERIFY(!fieldChanges(before, after).isEmpty());
        for (size_t number = 0; number < 256; ++number) {
            const SongFields fields = someFields(number);
            MetaSong part = song;
            part.setSongInfo(wanted, manual, fields);
            QVERIFY2(fieldChanges(mixed(before, after, fields), infoOf(part)).isEmpty(),
                     qPrintable(u"%1 %2"_s.arg(manual).arg(number)));
        }
    }
}

void TestSongFields::keepsTheBytesWithoutFields()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    if (name == u"a.mp3"_s)
        content = Samples::tag(Samples::frame("MEDT", QByteArray(3, '\0')) +
                               Samples::frame("TPE1", "Old artist"));
    const LogCapture log;
    MetaSong song = opened(name, content);
    song.setSongInfo(fullInfo(true), false, SongFields::none());
    const SongInfo before = infoOf(song);
    QVERIFY(song.saveToFile(name));
    if (name == u"a.zb3"_s) // its sizes were wrong
        QVERIFY(fieldChanges(before, infoOf(opened(name, Samples::read(name)))).isEmpty());
    else
        QCOMPARE(Samples::read(name), content);
}

void TestSongFields::appliesChosenFieldsAgainToAChangedFile()
{
    const LogCapture log;
    MetaSong song = opened(u"a.mid"_s, midi());
    SongFields fields = SongFields::all();
    fields.remove(Field::Title);
    song.setSongInfo(fullInfo(true), false, fields);
    Samples::write(u"a.mid"_s, midi(kordiaEvent(1, "Genre of another program")));
    QVERIFY(song.saveToFile(u"a.mid"_s));
    const SongInfo info = infoOf(opened(u"a.mid"_s, Samples::read(u"a.mid"_s)));
    QCOMPARE(info.title, QString());
    QCOMPARE(info.genre, u"Genre of another program"_s);
    QCOMPARE(info.artist, u"New artist"_s);
}

BRISEL_TEST(QCoreApplication, TestSongFields)

#include "tst_songfields.moc"
