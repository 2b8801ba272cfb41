#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "index/index.h"
#include "library/libraryimport.h"
#include "tests/scriptedindex.h"
#include "tests/scriptedrun.h"
#include "tests/smallsongs.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

void cutTo(const QString &path, off_t size)
{
    if (::truncate(QFile::encodeName(path).constData(), size) != 0)
        qFatal("can't cut %s", qPrintable(path));
}

/// The maximum memory of the process so far, in KiB.
long peakMemory()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

} // namespace

/// Files that are not valid songs, through the real import and the real walk over a memory.
class TestHostileFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void readsNoMoreOfAHugeFileThanItMust();
    void survivesFilesThatShrink();
    void takesOddNamesAsTheyAre();
    void passesNamesThatAreNoText();

private:
    QString at(const QString &name) const { return m_folder->filePath(name); }
    SongCounts import(const QStringList &files)
    {
        LibraryImport import(*m_database, *m_model, files);
        if (import.run(*m_run) != LibraryImport::Outcome::Done)
            return {};
        return import.counts();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Database> m_database;
    std::unique_ptr<UserSongsRelTableModel> m_model;
    std::unique_ptr<ScriptedRun> m_run;
};

void TestHostileFiles::init()
{
    makeFile(u"songsdb_debug"_s, {});
    m_folder = std::make_unique<QTemporaryDir>();
    m_database = std::make_unique<Database>();
    QVERIFY(m_database->init());
    m_model = std::make_unique<UserSongsRelTableModel>(nullptr, *m_database->userLibraryDb());
    m_run = std::make_unique<ScriptedRun>();
}

void TestHostileFiles::cleanup()
{
    m_run.reset();
    m_model.reset();
    m_database.reset();
    m_folder.reset();
}

void TestHostileFiles::readsNoMoreOfAHugeFileThanItMust()
{
    constexpr off_t size = off_t{5} << 30;
    const QStringList names{u"a.mid"_s, u"b.kar"_s, u"c.zb3"_s, u"d.mp3"_s, u"empty.mid"_s};
    const QByteArray starts[] = {smallMidi("Huge"), smallMidi("Huge"), "_ZB3", "ID3\3", {}};
    QStringList paths;
    for (int i = 0; i < names.size(); ++i) {
        paths.append(at(names.at(i)));
        makeFile(paths.last(), starts[i]);
        if (!starts[i].isEmpty())
            cutTo(paths.last(), size);
    }
    const long before = peakMemory();
    QElapsedTimer time;
    time.start();
    const SongCounts counts = import(paths);
    QCOMPARE(counts.songs + counts.unknown, 5);
    QVERIFY(counts.unknown >= 4);
    QVERIFY(ScriptedIndex().createIndex(m_folder->path()));
    QVERIFY2(time.elapsed() < 20000, "it reads what it does not need");
    constexpr long mostKiB = 256 * 1024;
    QVERIFY2(peakMemory() - before < mostKiB, "it holds what it does not need");
}

void TestHostileFiles::survivesFilesThatShrink()
{
    const QStringList paths{at(u"a.mid"_s), at(u"b.mid"_s), at(u"c.mid"_s)};
    for (const QString &path : paths)
        makeFile(path, smallMidi("Song"));
    m_run->onStep = [&paths](int value) {
        if (value < paths.size())
            cutTo(paths.at(value), value == 1 ? 3 : 0);
    };
    const SongCounts counts = import(paths);
    QCOMPARE(counts.songs, 1);
    QCOMPARE(counts.unknown, 2);
    QCOMPARE(m_model->goodRowCount(), 1);

    for (const QString &path : paths)
        makeFile(path, smallMidi("Song"));
    ScriptedIndex index;
    // Both passes show a file before they read it.
    connect(&index, &Index::currentPathChanged, this, [](const QString &path) {
        if (!path.isEmpty())
            cutTo(path, path.endsWith(u"a.mid"_s) ? 0 : 20);
    });
    QVERIFY(index.createIndex(m_folder->path()));
    QCOMPARE(QFileInfo(at(u"index.id2"_s)).size(), 3 * 64);
}

void TestHostileFiles::takesOddNamesAsTheyAre()
{
    const QStringList names{u"\"x\" or \"1.mid"_s,
                            u"%1 %2 %n.mid"_s,
                            u"a\nb\r.mid"_s,
                            u"'; drop table usersongs; --.mid"_s,
                            u"<b>bold<img src=x>.mid"_s,
                            QString(251, u'n') + u".mid"_s,
                            u" .mid"_s,
                            u"..mid"_s};
    QStringList paths;
    for (const QString &name : names) {
        paths.append(at(name));
        makeFile(paths.last(), smallMidi("Odd"));
    }
    QCOMPARE(import(paths).songs, int(names.size()));
    for (int row = 0; row < names.size(); ++row) {
        QCOMPARE(m_model->fileName(row), paths.at(row));
        QCOMPARE(m_model->shortName(row), names.at(row));
    }

    ScriptedIndex index;
    index.setRenameQuestion([](const QString &, const QString &) { return 1; });
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.createIndex(m_folder->path()));
    QCOMPARE(errors.size(), 0);
    const QDir folder(m_folder->path());
    // The renames lose no song, and only dot files are missing in the index.
    QCOMPARE(folder.entryList({u"*.mid"_s}, QDir::Files | QDir::Hidden).size(), names.size());
    const qsizetype visible = folder.entryList({u"*.mid"_s}, QDir::Files).size();
    QCOMPARE(QFileInfo(at(u"index.id2"_s)).size(), visible * 64);
}

void TestHostileFiles::passesNamesThatAreNoText()
{
    makeFile(at(u"good.mid"_s), smallMidi("Good"));
    const QByteArray odd = QFile::encodeName(m_folder->path()) + "/b\xFF\xFE\x80.mid";
    QCOMPARE(::rename(QFile::encodeName(at(u"good.mid"_s)).constData(), odd.constData()), 0);
    makeFile(at(u"good.mid"_s), smallMidi("Good"));
    const SongCounts counts = import({QFile::decodeName(odd), at(u"good.mid"_s)});
    QCOMPARE(counts.examined(), 2);
    QVERIFY(counts.songs >= 1);
    QVERIFY(ScriptedIndex().createIndex(m_folder->path()));
    QCOMPARE(::access(odd.constData(), F_OK), 0);
    ::unlink(odd.constData());
}

BRISEL_TEST(QCoreApplication, TestHostileFiles)
#include "tst_hostilefiles.moc"
