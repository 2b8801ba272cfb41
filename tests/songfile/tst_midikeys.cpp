#include "songfile/rawmidifile.h"
#include "tests/logcapture.h"
#include "tests/songfile/loadedmidi.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QtTest>

using namespace brisel;

using namespace Qt::StringLiterals;
using Samples::metaEvent;
using Samples::midi;

class TestMidiKeys : public QObject
{
    Q_OBJECT

private slots:
    void namesAll30Keys();
    void acceptsThreeMoreKeyNames();
    void writesGSharpAsE();
    void removesBlanksFromKeyNames();
    void writesCForANameOfBlanks();
    void removesTheKeyForAnEmptyName();
    void warnsOfAnUnknownKeyName();
    void warnsOfAnUnknownSignature();
    void listsTheKeysByValue();
};

void TestMidiKeys::namesAll30Keys()
{
    const QStringList major{u"Cb"_s, u"Gb"_s, u"Db"_s, u"Ab"_s, u"Eb"_s, u"Bb"_s, u"F"_s, u"C"_s,
                            u"G"_s,  u"D"_s,  u"A"_s,  u"E"_s,  u"B"_s,  u"F#"_s, u"C#"_s};
    const QStringList minor{u"Ab-"_s, u"Eb-"_s, u"Bb-"_s, u"F-"_s,  u"C-"_s,
                            u"G-"_s,  u"D-"_s,  u"A-"_s,  u"E-"_s,  u"B-"_s,
                            u"F#-"_s, u"C#-"_s, u"G#-"_s, u"D#-"_s, u"A#-"_s};
    for (int sharps = -7; sharps <= 7; ++sharps) {
        for (const int mode : {0, 1}) {
            const QString name = (mode == 0 ? major : minor).at(sharps + 7);
            RawMidiFile file = loaded(midi());
            file.setKey(name);
            const QByteArray event = metaEvent('\x59', QByteArray(1, static_cast<char>(sharps)) +
                                                           static_cast<char>(mode));
            QCOMPARE(file.stream(), midi(event));
            QCOMPARE(file.key(), name);
        }
    }
}

void TestMidiKeys::acceptsThreeMoreKeyNames()
{
    RawMidiFile file = loaded(midi());
    file.setKey(u"Db-"_s);
    QCOMPARE(file.stream(), midi(keyEvent("\x04\x01")));
    file.setKey(u"D#"_s);
    QCOMPARE(file.stream(), midi(metaEvent('\x59', Samples::bytes("\xFD\0"))));
    QCOMPARE(file.key(), u"Eb"_s);
}

void TestMidiKeys::writesGSharpAsE()
{
    RawMidiFile file = loaded(midi());
    file.setKey(u"G#"_s);
    QCOMPARE(file.stream(), midi(metaEvent('\x59', Samples::bytes("\x04\0"))));
    QCOMPARE(file.key(), u"E"_s);
}

void TestMidiKeys::removesBlanksFromKeyNames()
{
    RawMidiFile file = loaded(midi(keyEvent("\x01\x01")));
    file.setKey(u"A -"_s);
    QCOMPARE(file.stream(), midi(metaEvent('\x59', Samples::bytes("\0\x01"))));
}

void TestMidiKeys::writesCForANameOfBlanks()
{
    LogCapture log;
    RawMidiFile file = loaded(midi(keyEvent("\x01\x01")));
    file.setKey(u"   "_s);
    QCOMPARE(file.stream(), midi(metaEvent('\x59', Samples::bytes("\0\0"))));
    QVERIFY(log.messages().isEmpty());
}

void TestMidiKeys::removesTheKeyForAnEmptyName()
{
    RawMidiFile file = loaded(midi(keyEvent("\x01\x01") + keyEvent("\x02\x01")));
    file.setKey(QString());
    QCOMPARE(file.stream(), midi());
    QVERIFY(!file.hasKey());
}

void TestMidiKeys::warnsOfAnUnknownKeyName()
{
    LogCapture log;
    RawMidiFile file = loaded(midi(keyEvent("\x01\x01")));
    file.setKey(u"H"_s);
    QCOMPARE(file.stream(), midi());
    QCOMPARE(log.messages(), QStringList{u"[RawMidiFile::setKey] WARNING: unknown key: \"H\" . "
                                         "Metaevent not added !!! "_s});
}

void TestMidiKeys::warnsOfAnUnknownSignature()
{
    LogCapture log;
    const QByteArray event = metaEvent('\x59', Samples::bytes("\x08\0"));
    const RawMidiFile file = loaded(midi(event));
    QVERIFY(file.key().isEmpty());
    QCOMPARE(log.messages(),
             QStringList{u"[RawMidiFile::extractKey] WARNING: unknown key metaevent "
                         "\"[sf=08|mi=00]\" in MIDI file. "_s});
    QVERIFY(file.hasKey());
    log.clear();
    QVERIFY(loaded(midi(keyEvent("\xAB\xCD"))).key().isEmpty());
    QVERIFY(log.messages().first().contains(u"\"[sf=ab|mi=CD]\""_s));
}

void TestMidiKeys::listsTheKeysByValue()
{
    const QStringList keys = RawMidiFile::getKeysList();
    QCOMPARE(keys.join(u' '),
             u"C A- G E- D B- A F#- E C#- B G#- F# D#- C# A#- Cb Ab- Gb Eb- Db Bb- "
             "Ab F- Eb C- Bb G- F D-"_s);
}

BRISEL_TEST(QCoreApplication, TestMidiKeys)
#include "tst_midikeys.moc"
