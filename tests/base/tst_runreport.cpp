#include "base/filefailure.h"
#include "base/run.h"
#include "base/runreport.h"
#include "index/memoryreasons.h"
#include "library/backuplist.h"
#include "library/backuprestore.h"
#include "library/filecopier.h"
#include "library/libraryimport.h"
#include "library/songfailure.h"
#include "library/synchroniser.h"
#include "tests/testprogram.h"

#include <QTest>

#include <utility>

using namespace brisel;

using Step = RunReport::Step;
using Operation = RunReport::Operation;
using Success = RunReport::Success;

static const QList<Reason> allReasons{FileReason::missing,
                                      FileReason::unreachable,
                                      FileReason::notAFile,
                                      FileReason::empty,
                                      FileReason::tooLarge,
                                      FileReason::folderMissing,
                                      FileReason::writeProtected,
                                      FileReason::notAllowed,
                                      FileReason::noSpace,
                                      FileReason::unwritable,
                                      FileReason::truncated,
                                      FileReason::changed,
                                      SongReason::unknownFormat,
                                      SongReason::wouldBeTooLarge,
                                      LibraryImport::notInTable,
                                      Synchroniser::notInCatalogue,
                                      Synchroniser::declined,
                                      FileCopier::kept,
                                      FileCopier::alreadyThere,
                                      FileCopier::pickedToo,
                                      BackupList::unreadable,
                                      BackupList::damagedLine,
                                      BackupList::unsafeLine,
                                      BackupList::twice,
                                      BackupRestore::asInBackup,
                                      BackupRestore::damagedCopy,
                                      BackupRestore::changedSince,
                                      MemoryReason::gone,
                                      MemoryReason::inUse,
                                      MemoryReason::indexIncomplete,
                                      MemoryReason::notPrepared,
                                      MemoryReason::listFailed,
                                      Run::interrupted};

class TestRunReport : public QObject
{
    Q_OBJECT

private slots:
    void namesAPulledMemoryOnce();
    void isEmptyAtFirst();
    void noticesWhatTouchesIt();
    void countsWhatWentWell();
    void distinguishesSkippedFromFailed_data();
    void distinguishesSkippedFromFailed();
    void hasALineForEachFile();
    void repeatsMessagesAsTheyAre();
    void listsNoticesBehindTheFiles();
    void namesAThousandNotices();
    void joinsItsParts();
    void hasAReasonForEverything();
    void reportsFilesThatCannotBeTrusted();
    void namesAThousandOfAKind();
    void saysWhichMessagesHaveALine();
    void namesAThousandOfItsParts();
    void listsChangedSongsAtTheEnd();
    void listsEveryChangedSong();
};

static const char *const title = "Titolo";
static const char *const artist = "Artista";

void TestRunReport::isEmptyAtFirst()
{
    const RunReport report(Operation::Import);
    QVERIFY(report.isUntouched());
    QVERIFY(report.isEmpty());
    QCOMPARE(report.summary(), QString());
    QCOMPARE(report.text(), QStringLiteral("\n"));
}

void TestRunReport::noticesWhatTouchesIt()
{
    RunReport counted(Operation::Backup);
    counted.count(Success::Copied);
    QVERIFY(!counted.isUntouched());
    RunReport listed(Operation::Backup);
    (void)listed.addNotice(QStringLiteral("done"));
    QVERIFY(!listed.isUntouched());
    RunReport joined(Operation::Synchronisation);
    joined.addOperation(Operation::Backup);
    QVERIFY(!joined.isUntouched());
}

void TestRunReport::countsWhatWentWell()
{
    RunReport report(Operation::Synchronisation);
    report.count(Success::Updated);
    report.count(Success::Updated);
    report.count(Success::Edited);
    report.count(Success::Copied);
    QVERIFY(report.isEmpty());
    QCOMPARE(report.counted(Success::Updated), 2);
    QCOMPARE(report.counted(Success::Edited), 1);
    QCOMPARE(report.counted(Success::Copied), 1);
    QCOMPARE(report.summary(),
             QStringLiteral("Sincronizzazione: 2 aggiornate, 1 modificate, 1 copiate"));
}

void TestRunReport::distinguishesSkippedFromFailed_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("isSkipped");
    for (int i = 0; i < allReasons.size(); ++i) {
        const Reason &reason = allReasons.at(i);
        const bool isSkipped = reason == Synchroniser::declined || reason == FileCopier::kept ||
                               reason == BackupRestore::asInBackup ||
                               reason == BackupRestore::changedSince || reason == Run::interrupted;
        QTest::addRow("%d", i) << i << isSkipped;
    }
}

void TestRunReport::distinguishesSkippedFromFailed()
{
    QFETCH(int, number);
    QFETCH(bool, isSkipped);
    RunReport report;
    report.add(Step::Copy, QStringLiteral("/a.mid"), allReasons.at(number));
    QVERIFY(!report.isEmpty());
    QCOMPARE(report.skipped(), isSkipped ? 1 : 0);
    QCOMPARE(report.failed(), isSkipped ? 0 : 1);
    QCOMPARE(report.summary(),
             isSkipped ? QStringLiteral("1 saltate") : QStringLiteral("1 non riuscite"));
}

void TestRunReport::hasALineForEachFile()
{
    RunReport report(Operation::Import);
    report.add(Step::Read, QStringLiteral("/a %1 %2.mid"), FileReason::empty);
    report.add(Step::Find, QStringLiteral("/b.mid"), Synchroniser::notInCatalogue);
    report.add(Step::Change, QStringLiteral("/c.mid"), Synchroniser::declined);
    report.add(Step::Save, QStringLiteral("/d.mid"), FileReason::unwritable);
    report.add(Step::Copy, QStringLiteral("/e.mid"), FileReason::noSpace);
    report.add(Step::Index, QStringLiteral("/f"), MemoryReason::indexIncomplete);
    QCOMPARE(report.text(),
             QStringLiteral("Importazione: 5 non riuscite, 1 saltate\n"
                            "Non letta (il file è vuoto): /a %1 %2.mid\n"
                            "Non trovata (il database Kordia non la contiene): /b.mid\n"
                            "Non modificata (la modifica è stata rifiutata): /c.mid\n"
                            "Non salvata (non è stato possibile scrivere il file): /d.mid\n"
                            "Non copiata (spazio insufficiente sul disco): /e.mid\n"
                            "Non indicizzata (gli archivi della memoria non sono completi): /f\n"));
}

void TestRunReport::repeatsMessagesAsTheyAre()
{
    RunReport report(Operation::Index);
    report.addMessage(QStringLiteral("File non importato, path troppo lungo: /%1/b.mid"));
    QCOMPARE(report.failed(), 1);
    QCOMPARE(report.text(), QStringLiteral("Ottimizzazione memoria: 1 non riuscite\n"
                                           "File non importato, path troppo lungo: /%1/b.mid\n"));
}

void TestRunReport::listsNoticesBehindTheFiles()
{
    RunReport part(Operation::Index);
    part.addNotice(QStringLiteral("Rinominato: /a\nb.mid"));
    QVERIFY(!part.isEmpty());
    QCOMPARE(part.failed(), 0);
    QCOMPARE(part.skipped(), 0);
    QCOMPARE(part.summary(), QString());
    RunReport report(Operation::Index);
    report.append(part);
    report.addMessage(QStringLiteral("Rinominato: /c.mid"));
    QCOMPARE(report.failed(), 1);
    QCOMPARE(report.text(), QStringLiteral("Ottimizzazione memoria: 1 non riuscite\n"
                                           "Rinominato: /c.mid\n"
                                           "Rinominato: /a\uFFFDb.mid\n"));
}

void TestRunReport::namesAThousandNotices()
{
    RunReport part;
    for (int i = 0; i < 1000; ++i)
        QVERIFY(part.addNotice(QStringLiteral("Rinominato: /%1").arg(i)));
    QVERIFY(!part.addNotice(QStringLiteral("Rinominato: /a")));
    QVERIFY(part.addMessage(QStringLiteral("Rinominato: /b")));
    RunReport report;
    report.append(part);
    QCOMPARE(report.rest(), QStringList{QStringLiteral("Rinominato: e altri 1")});
    QCOMPARE(report.failed(), 1);
}

void TestRunReport::joinsItsParts()
{
    RunReport report(Operation::Import);
    report.add(Step::Read, QStringLiteral("/a.mid"), FileReason::missing);
    RunReport part(Operation::Synchronisation);
    part.count(Success::Updated);
    part.count(Success::Copied);
    part.count(Success::Edited);
    part.add(Step::Find, QStringLiteral("/b.mid"), Synchroniser::notInCatalogue);
    report.append(part);
    report.append(RunReport(Operation::Import));
    QCOMPARE(report.text(), QStringLiteral("Importazione, Sincronizzazione: 1 aggiornate, 1 "
                                           "modificate, 1 copiate, 2 non riuscite\n"
                                           "Non letta (il file non esiste): /a.mid\n"
                                           "Non trovata (il database Kordia non la "
                                           "contiene): /b.mid\n"));
}

void TestRunReport::hasAReasonForEverything()
{
    QSet<QString> texts;
    for (const Reason &reason : allReasons)
        texts.insert(reason.text());
    QVERIFY(!texts.contains(QString()));
    QCOMPARE(texts.size(), allReasons.size());
}

void TestRunReport::reportsFilesThatCannotBeTrusted()
{
    RunReport report(Operation::Edit);
    report.add(Step::Read, QStringLiteral("/a.mid"), FileReason::truncated);
    report.add(Step::Save, QStringLiteral("/b.mid"), FileReason::changed);
    QCOMPARE(
        report.text(),
        QStringLiteral("Modifica: 2 non riuscite\n"
                       "Non letta (non è stato possibile leggere il file fino alla fine): /a.mid\n"
                       "Non salvata (nel frattempo un altro programma l'ha cambiata): /b.mid\n"));
}

void TestRunReport::namesAThousandOfAKind()
{
    constexpr int empty = 1002;
    constexpr int kept = 1000;
    constexpr int tooLong = 3000;
    RunReport report(Operation::Index);
    QStringList lines{QStringLiteral("Ottimizzazione memoria: 4003 non riuscite, 1000 saltate")};
    for (int i = 0; i < empty; ++i) {
        report.add(Step::Read, QStringLiteral("/%1.mid").arg(i), FileReason::empty);
        if (i < 1000)
            lines.append(QStringLiteral("Non letta (il file è vuoto): /%1.mid").arg(i));
    }
    for (int i = 0; i < kept; ++i) {
        report.add(Step::Copy, QStringLiteral("/%1.mid").arg(i), FileCopier::kept);
        lines.append(QStringLiteral("Non copiata (esiste già e non doveva essere sostituita): "
                                    "/%1.mid")
                         .arg(i));
    }
    for (int i = 0; i < tooLong; ++i) {
        report.addMessage(QStringLiteral("Troppo lungo: /%1/A.MID").arg(i));
        if (i < 1000)
            lines.append(QStringLiteral("Troppo lungo: /%1/A.MID").arg(i));
    }
    report.addMessage(QStringLiteral("Memoria piena: /B.MID"));
    lines.append(QStringLiteral("Memoria piena: /B.MID"));
    const QStringList rest{QStringLiteral("Non letta (il file è vuoto): e altri 2"),
                           QStringLiteral("Troppo lungo: e altri 2000")};
    QCOMPARE(report.rest(), rest);
    QCOMPARE(report.failed(), empty + tooLong + 1);
    QCOMPARE(report.skipped(), kept);
    lines += rest;
    QCOMPARE(report.text().split(u'\n', Qt::SkipEmptyParts), lines);
}

void TestRunReport::saysWhichMessagesHaveALine()
{
    RunReport report;
    for (int i = 0; i < 1000; ++i)
        QVERIFY(report.addMessage(QStringLiteral("Troppo lungo: /a")));
    QVERIFY(!report.addMessage(QStringLiteral("Troppo lungo: /b")));
    QVERIFY(report.addMessage(QStringLiteral("Memoria piena: /b")));
}

void TestRunReport::namesAThousandOfItsParts()
{
    RunReport whole;
    for (int part = 0; part < 3; ++part) {
        RunReport report;
        for (int i = 0; i < 1200; ++i)
            report.add(Step::Save, QStringLiteral("/%1-%2.mid").arg(part).arg(i),
                       FileReason::unwritable);
        whole.append(report);
    }
    QCOMPARE(whole.failed(), 3600);
    const QStringList lines = whole.text().split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 1002);
    QCOMPARE(lines.at(1000),
             QStringLiteral("Non salvata (non è stato possibile scrivere il file): /0-999.mid"));
    QCOMPARE(lines.at(1001),
             QStringLiteral("Non salvata (non è stato possibile scrivere il file): e altri 2600"));
}

void TestRunReport::namesAPulledMemoryOnce()
{
    RunReport part(RunReport::Operation::Transfer);
    part.addShared(Step::Copy, QStringLiteral("/media/A"), MemoryReason::gone);
    part.addShared(Step::Copy, QStringLiteral("/media/B"), MemoryReason::gone);
    RunReport report;
    QVERIFY(report.isEmpty());
    report.append(part);
    report.append(part);
    report.addShared(Step::Read, QStringLiteral("/media/A"), MemoryReason::gone);
    QVERIFY(!report.isEmpty());
    QCOMPARE(report.failed(), 5);
    QCOMPARE(report.text(), QStringLiteral("Trasferimento: 5 non riuscite\n"
                                           "Non copiata (la memoria non è più presente): /media/A "
                                           "(3 song)\n"
                                           "Non copiata (la memoria non è più presente): /media/B "
                                           "(2 song)\n"));
}

/// After the files that were left out, which are fewer and matter more.
void TestRunReport::listsChangedSongsAtTheEnd()
{
    RunReport part(Operation::Synchronisation);
    part.count(Success::Updated);
    part.addChanges(QStringLiteral("/%1.mid"), {});
    QVERIFY(part.isEmpty());
    part.addChanges(QStringLiteral("/%1.mid"), {{title, QStringLiteral("one"), u"%2 ONE"_qs},
                                                {artist, QString(), QStringLiteral("ARTIST")}});
    QVERIFY(!part.isEmpty());
    QVERIFY(part.hasChanges());
    RunReport report;
    report.append(part);
    report.addChanges(QStringLiteral("/b.mid"), {{artist, QStringLiteral("x"), QString()}});
    (void)report.addNotice(QStringLiteral("Rinominato: /c.mid"));
    report.add(Step::Read, QStringLiteral("/d.mid"), FileReason::empty);
    QCOMPARE(report.failed(), 1);
    QCOMPARE(report.text(), QStringLiteral("Sincronizzazione: 1 aggiornate, 1 non riuscite\n"
                                           "Non letta (il file è vuoto): /d.mid\n"
                                           "Rinominato: /c.mid\n"
                                           "Modificata: /%1.mid\n"
                                           "    Titolo: «one» → «%2 ONE»\n"
                                           "    Artista: (vuoto) → «ARTIST»\n"
                                           "Modificata: /b.mid\n"
                                           "    Artista: «x» → (vuoto)\n"));
}

void TestRunReport::listsEveryChangedSong()
{
    constexpr int count = 65535;
    RunReport part;
    for (int i = 0; i < count; ++i)
        part.addChanges(u"/%1.mid"_qs.arg(i), {{title, u"old"_qs, u"new"_qs}});
    RunReport report;
    report.append(part);
    QCOMPARE(report.text().count(u'\n'), 1 + 2 * count);
    QVERIFY(report.text().contains(u"Modificata: /65534.mid\n"_qs));
}

BRISEL_TEST(QCoreApplication, TestRunReport)
#include "tst_runreport.moc"
