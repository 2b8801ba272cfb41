#include "index/index.h"
#include "tests/index/samplememory.h"
#include "tests/scriptedindex.h"
#include "tests/testprogram.h"

#include <QSignalSpy>
#include <QTest>

using namespace brisel;

using namespace Sample;

/// A full index: as many songs as there are 16-bit record numbers.
class TestIndexGrowth : public QObject
{
    Q_OBJECT

private slots:
    void refusesSong65536();
};

void TestIndexGrowth::refusesSong65536()
{
    const SampleMemory memory;
    memory.write(u"ZZ.MID"_qs, midiSong("One more", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    constexpr int full = 65535;
    QByteArray paths;
    QByteArray songs;
    for (int id = 0; id < full; ++id) {
        const QByteArray number = QByteArray::number(id, 16).rightJustified(8, '0');
        paths += pathRecord(number.constData(), "/F/" + number + ".MID", "20100101000000");
        songs += songRecord(number.constData(), "T", "0000");
    }
    memory.write(u"index.id2"_qs, paths);
    memory.write(u"title.id2"_qs, songs);
    memory.write(u"artist.id2"_qs, groupHeader("0000FFFF", "A") + songs);
    memory.write(u"genre.id2"_qs, groupHeader("0000FFFF", "G") + songs);

    ScriptedIndex index;
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    const QSignalSpy found(&index, &Index::fileFoundChanged);
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.first().first().toString(),
             u"File non importato, memoria piena: "_qs + memory.path(u"ZZ.MID"_qs));
    QCOMPARE(found.size(), 1);
    // All other songs were removed: now there is room, and the numbers start at the beginning.
    QCOMPARE(memory.read(u"index.id2"_qs), QByteArray());
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(memory.read(u"index.id2"_qs).mid(4, 8), QByteArray("/ZZ.MID\0", 8));
    QCOMPARE(memory.read(u"fsinfos.id2"_qs).left(6), hex("010001000100"));
}

BRISEL_TEST(QCoreApplication, TestIndexGrowth)
#include "tst_indexgrowth.moc"
