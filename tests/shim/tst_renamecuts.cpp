#include "index/givennames.h"
#include "tests/index/indexsamples.h"
#include "tests/index/setreader.h"
#include "tests/scriptedindex.h"
#include "tests/shim/faultyrun.h"

using namespace brisel;

using namespace Sample;

namespace
{

const QList<std::pair<QString, QByteArray>> longNames{
    {u"A long name.mid"_qs, "A"}, {u"A long night.mid"_qs, "B"}, {u"C long name.mid"_qs, "C"}};

/// A memory with remembered names, a song that was moved by hand after that, and new long names.
void fillLong(const SampleMemory &memory)
{
    memory.write(u"Long folder/"_qs + longNames.at(0).first, midiSong("A", "Artist", "Genre"));
    memory.write(u"D long name.mid"_qs, anySong);
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    if (!index.updateIndex(memory.root()))
        qFatal("no index");
    memory.remove(u"Dlongn-1.mid"_qs);
    for (const auto &[name, title] : longNames.mid(1))
        memory.write(u"Longfo-1/"_qs + name, midiSong(title, "Artist", "Genre"));
}

bool shorten(ScriptedIndex &index, const QString &root)
{
    index.setRenameQuestion(always(1));
    return index.updateIndex(root);
}

} // namespace

/// The long names that a memory remembers when a run that gives short names is cut or fails.
class TestRenameCuts : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }
    void knowsEachNameAfterAFault_data();
    void knowsEachNameAfterAFault();
};

void TestRenameCuts::knowsEachNameAfterAFault_data()
{
    QTest::addColumn<int>("fault");
    QTest::newRow("killed") << int(Shim::Kill);
    QTest::newRow("torn") << int(Shim::Torn);
    QTest::newRow("broken") << int(Shim::IoError);
    QTest::newRow("short") << int(Shim::Short);
    QTest::newRow("full") << int(Shim::NoSpace);
    QTest::newRow("read-only") << int(Shim::ReadOnly);
}

/// A full disk accepts renames but can't store the long names: that is the only loss.
void TestRenameCuts::knowsEachNameAfterAFault()
{
    QFETCH(const int, fault);
    bool reached = true;
    int number = 0;
    int forgotten = 0;
    while (reached) {
        const QByteArray where = "step " + QByteArray::number(++number);
        const SampleMemory memory;
        fillLong(memory);
        runWithFault(memory, shorten, number, static_cast<Shim::Action>(fault), reached);
        ScriptedIndex index;
        QVERIFY2(shorten(index, memory.root()), where);
        QCOMPARE(SetReader(memory).problem(), QString());
        QCOMPARE(indexedPaths(memory).size(), longNames.size());
        GivenNames names;
        names.setRoot(memory.root());
        QVERIFY2(names.load(), where);
        for (const auto &[name, title] : longNames) {
            const QString wanted = memory.path(u"Longfo-1/"_qs + name);
            const QString place = names.placeOf(wanted);
            if (place == wanted)
                ++forgotten;
            else
                QCOMPARE(memory.read(place.mid(memory.root().size() + 1)),
                         midiSong(title, "Artist", "Genre"));
        }
        QCOMPARE(names.follow(u"/Long folder"_qs), u"/Longfo-1"_qs);
        QCOMPARE(QDir(memory.path(u".brisel2pc"_qs)).entryList(QDir::Files | QDir::Hidden),
                 QStringList{GivenNames::fileName()});
    }
    QVERIFY(number > 100);
    std::printf("%s: %d steps, %d forgotten\n", QTest::currentDataTag(), number - 1, forgotten);
    if (fault != Shim::NoSpace)
        QCOMPARE(forgotten, 0);
}

BRISEL_TEST(QApplication, TestRenameCuts)
#include "tst_renamecuts.moc"
