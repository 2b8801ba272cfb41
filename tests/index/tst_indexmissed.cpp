#include "index/memorycheck.h"
#include "tests/index/indexsamples.h"
#include "tests/scriptedindex.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace brisel;

using namespace Sample;

namespace
{

const QString unknownLetters = u"Il nome ha caratteri che Brisel non conosce e la song non si può "
                               "aprire, rinominare il file o la sua cartella: "_qs;
const QString leadsRound =
    u"File non importato, il collegamento porta a una cartella già importata: "_qs;
const QString outOfReach = u"File non importato, non è accessibile: "_qs;
const QString noFile = u"File non importato, non è un file: "_qs;

QStringList errorsOf(const SampleMemory &memory)
{
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    if (!index.createIndex(memory.root()))
        qFatal("no index");
    const QStringList built = texts(errors);
    ScriptedIndex next;
    next.setRenameQuestion(always(1));
    const QSignalSpy again(&next, &Index::errorFromIndex);
    if (!next.updateIndex(memory.root()))
        qFatal("no update");
    // Each run reports it again until it is changed.
    if (texts(again) != built)
        qFatal("the update says: %s", qPrintable(texts(again).join(u'\n')));
    return built;
}

void makeSocket(const QString &path)
{
    const QString folder = QDir::currentPath();
    QDir::setCurrent(QFileInfo(path).path()); // the path of a socket must be short
    sockaddr_un address{AF_UNIX, {}};
    qstrncpy(address.sun_path, QFile::encodeName(QFileInfo(path).fileName()).constData(),
             sizeof address.sun_path);
    const int handle = ::socket(AF_UNIX, SOCK_STREAM, 0);
    if (::bind(handle, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
        qFatal("no socket");
    ::close(handle);
    QDir::setCurrent(folder);
}

} // namespace

/// Entries of a memory that can't be songs of the index, although the user may expect it.
class TestIndexMissed : public QObject
{
    Q_OBJECT

private slots:
    void reportsNamesThatThePlayerCannotOpen();
    void reportsNothingOfNamesThatItCan();
    void reportsWhatIsNoFile();
    void reportsLinksThatLeadNowhere();
    void reportsLinksThatLeadRound();
    void reportsNamesThatAreNoText();
    void reportsEachOnce();
};

void TestIndexMissed::reportsNamesThatThePlayerCannotOpen()
{
    const SampleMemory memory;
    memory.write(u"\u042F.mid"_qs, anySong);
    memory.write(u"\u0416.mid"_qs, anySong);
    memory.write(u"\u20AC/A.MID"_qs, anySong);
    QCOMPARE(errorsOf(memory), QStringList({unknownLetters + memory.path(u"\u0416.mid"_qs),
                                            unknownLetters + memory.path(u"\u042F.mid"_qs),
                                            unknownLetters + memory.path(u"\u20AC/A.MID"_qs)}));
    QCOMPARE(indexedPaths(memory), QStringList({u"/?.mid"_qs, u"/?.mid"_qs, u"/?/A.MID"_qs}));
}

void TestIndexMissed::reportsNothingOfNamesThatItCan()
{
    const SampleMemory memory;
    memory.write(u"\u00E9.mid"_qs, anySong);
    memory.write(u"\u00DF\u00F1\u2591.mid"_qs, anySong);
    memory.write(u"a?b.mid"_qs, anySong);
    memory.write(u"a\u007F\u001Ab.mid"_qs, anySong);
    memory.write(u"\u042F.txt"_qs, "text");
    QCOMPARE(errorsOf(memory), QStringList());
}

void TestIndexMissed::reportsWhatIsNoFile()
{
    const SampleMemory memory;
    memory.write(u"B.MID"_qs, anySong);
    QCOMPARE(::mkfifo(QFile::encodeName(memory.path(u"A.MID"_qs)).constData(), 0600), 0);
    QCOMPARE(::mkfifo(QFile::encodeName(memory.path(u"MID"_qs)).constData(), 0600), 0);
    makeSocket(memory.path(u"C.Kar"_qs));
    QVERIFY(QFile::link(u"A.MID"_qs, memory.path(u"D.mp3"_qs)));
    QVERIFY(QFile::link(u"/dev/zero"_qs, memory.path(u"E.ZB3"_qs)));
    QCOMPARE(errorsOf(memory),
             QStringList({noFile + memory.path(u"A.MID"_qs), noFile + memory.path(u"C.Kar"_qs),
                          noFile + memory.path(u"D.mp3"_qs), noFile + memory.path(u"E.ZB3"_qs)}));
    QCOMPARE(indexedPaths(memory), QStringList{u"/B.MID"_qs});
}

void TestIndexMissed::reportsLinksThatLeadNowhere()
{
    const QString nowhere = u"File non importato, il collegamento non porta a nessun file: "_qs;
    const SampleMemory memory;
    memory.write(u"B.MID"_qs, anySong);
    QVERIFY(QFile::link(u"GONE.MID"_qs, memory.path(u"A.MID"_qs)));
    QVERIFY(QFile::link(u"GONE.TXT"_qs, memory.path(u"C.TXT"_qs)));
    QVERIFY(QFile::link(u"D.MID"_qs, memory.path(u"D.MID"_qs)));
    QVERIFY(QFile::link(u"E"_qs, memory.path(u"E"_qs)));
    QCOMPARE(errorsOf(memory),
             QStringList({nowhere + memory.path(u"A.MID"_qs), outOfReach + memory.path(u"D.MID"_qs),
                          outOfReach + memory.path(u"E"_qs)}));
    QCOMPARE(indexedPaths(memory), QStringList{u"/B.MID"_qs});
}

void TestIndexMissed::reportsLinksThatLeadRound()
{
    const SampleMemory memory;
    memory.write(u"A/B.MID"_qs, anySong);
    QVERIFY(QFile::link(u".."_qs, memory.path(u"A/A long way round"_qs)));
    QVERIFY(QFile::link(u"A"_qs, memory.path(u"C"_qs)));
    QCOMPARE(errorsOf(memory), QStringList({leadsRound + memory.path(u"A/A long way round"_qs),
                                            leadsRound + memory.path(u"C"_qs)}));
    QCOMPARE(indexedPaths(memory), QStringList{u"/A/B.MID"_qs});
}

void TestIndexMissed::reportsNamesThatAreNoText()
{
    const SampleMemory memory;
    memory.write(u"B.MID"_qs, anySong);
    const QByteArray root = QFile::encodeName(memory.root());
    for (const char *name : {"/\xE9.MID", "/\xE9.TXT"}) {
        const int handle = ::creat((root + name).constData(), 0600);
        if (handle < 0)
            QSKIP("this disk takes only names that are text");
        ::close(handle);
    }
    QCOMPARE(::mkdir((root + "/\xE8").constData(), 0700), 0);
    const QString invalid = u"File non importato, il nome non è valido: "_qs;
    QCOMPARE(errorsOf(memory), QStringList({invalid + memory.path(u"\uFFFD"_qs),
                                            invalid + memory.path(u"\uFFFD.MID"_qs)}));
    QCOMPARE(indexedPaths(memory), QStringList{u"/B.MID"_qs});
}

/// The check finds nothing more.
void TestIndexMissed::reportsEachOnce()
{
    const SampleMemory memory;
    memory.write(u"B.MID"_qs, anySong);
    memory.write(u"\u042F.mid"_qs, anySong);
    QVERIFY(QFile::link(u"."_qs, memory.path(u"A"_qs)));
    QVERIFY(QFile::link(u"D.MID"_qs, memory.path(u"D.MID"_qs)));
    QCOMPARE(::mkfifo(QFile::encodeName(memory.path(u"F.MID"_qs)).constData(), 0600), 0);
    QCOMPARE(errorsOf(memory).size(), 4);
    ScriptedCheck check;
    QVERIFY(check.run(memory.root()));
    QCOMPARE(check.findings(), QStringList());
}

BRISEL_TEST(QCoreApplication, TestIndexMissed)
#include "tst_indexmissed.moc"
