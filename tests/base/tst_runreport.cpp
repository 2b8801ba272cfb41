#include "base/runreport.h"

#include "tests/testprogram.h"

#include <QTest>

#include <utility>

using Lack = RunReport::Lack;
using Reason = RunReport::Reason;
using Run = RunReport::Run;
using Success = RunReport::Success;

class TestRunReport : public QObject
{
    Q_OBJECT

private slots:
    void namesAPulledMemoryOnce();
    void isEmptyAtFirst();
    void countsWhatWentWell();
    void tellsSkippedFromFailed_data();
    void tellsSkippedFromFailed();
    void hasALineForEachFile();
    void repeatsMessagesAsTheyAre();
    void listsNoticesBehindTheFiles();
    void namesAThousandNotices();
    void joinsItsParts();
    void namesCannotForgeALine_data();
    void namesCannotForgeALine();
    void hasAReasonForEverything();
    void tellsOfFilesThatCannotBeTrusted();
    void namesAThousandOfAKind();
    void saysWhichMessagesHaveALine();
    void namesAThousandOfItsParts();
};

void TestRunReport::isEmptyAtFirst()
{
    const RunReport report(Run::Import);
    QVERIFY(report.isEmpty());
    QCOMPARE(report.summary(), QString());
    QCOMPARE(report.text(), QStringLiteral("\n"));
}

void TestRunReport::countsWhatWentWell()
{
    RunReport report(Run::Synchronisation);
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

void TestRunReport::tellsSkippedFromFailed_data()
{
    QTest::addColumn<int>("reason");
    QTest::addColumn<bool>("isSkipped");
    for (int reason = 0; reason <= static_cast<int>(Reason::ListFailed); ++reason) {
        const bool isSkipped = reason == static_cast<int>(Reason::Declined) ||
                               reason == static_cast<int>(Reason::Kept) ||
                               reason == static_cast<int>(Reason::Interrupted);
        QTest::addRow("%d", reason) << reason << isSkipped;
    }
}

void TestRunReport::tellsSkippedFromFailed()
{
    QFETCH(int, reason);
    QFETCH(bool, isSkipped);
    RunReport report;
    report.add(Lack::Copied, QStringLiteral("/a.mid"), static_cast<Reason>(reason));
    QVERIFY(!report.isEmpty());
    QCOMPARE(report.skipped(), isSkipped ? 1 : 0);
    QCOMPARE(report.failed(), isSkipped ? 0 : 1);
    QCOMPARE(report.summary(),
             isSkipped ? QStringLiteral("1 saltate") : QStringLiteral("1 non riuscite"));
}

void TestRunReport::hasALineForEachFile()
{
    RunReport report(Run::Import);
    report.add(Lack::Read, QStringLiteral("/a %1 %2.mid"), Reason::Empty);
    report.add(Lack::Found, QStringLiteral("/b.mid"), Reason::NotInCatalogue);
    report.add(Lack::Changed, QStringLiteral("/c.mid"), Reason::Declined);
    report.add(Lack::Saved, QStringLiteral("/d.mid"), Reason::Unwritable);
    report.add(Lack::Copied, QStringLiteral("/e.mid"), Reason::NoSpace);
    report.add(Lack::Indexed, QStringLiteral("/f"), Reason::IndexIncomplete);
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
    RunReport report(Run::Index);
    report.addMessage(QStringLiteral("File non importato, path troppo lungo: /%1/b.mid"));
    QCOMPARE(report.failed(), 1);
    QCOMPARE(report.text(), QStringLiteral("Ottimizzazione memoria: 1 non riuscite\n"
                                           "File non importato, path troppo lungo: /%1/b.mid\n"));
}

void TestRunReport::listsNoticesBehindTheFiles()
{
    RunReport part(Run::Index);
    part.addNotice(QStringLiteral("Rinominato: /a\nb.mid"));
    QVERIFY(!part.isEmpty());
    QCOMPARE(part.failed(), 0);
    QCOMPARE(part.skipped(), 0);
    QCOMPARE(part.summary(), QString());
    RunReport report(Run::Index);
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
    RunReport report(Run::Import);
    report.add(Lack::Read, QStringLiteral("/a.mid"), Reason::Missing);
    RunReport part(Run::Synchronisation);
    part.count(Success::Updated);
    part.count(Success::Copied);
    part.count(Success::Edited);
    part.add(Lack::Found, QStringLiteral("/b.mid"), Reason::NotInCatalogue);
    report.append(part);
    report.append(RunReport(Run::Import));
    QCOMPARE(report.text(), QStringLiteral("Importazione, Sincronizzazione: 1 aggiornate, 1 "
                                           "modificate, 1 copiate, 2 non riuscite\n"
                                           "Non letta (il file non esiste): /a.mid\n"
                                           "Non trovata (il database Kordia non la "
                                           "contiene): /b.mid\n"));
}

void TestRunReport::namesCannotForgeALine_data()
{
    QTest::addColumn<QChar>("character");
    for (const char16_t code :
         {u'\n', u'\r', u'\0', u'\t', u'\v', u'\f', u'\x85', u'\u2028', u'\u2029'})
        QTest::addRow("U+%04X", static_cast<unsigned>(code)) << QChar(code);
}

void TestRunReport::namesCannotForgeALine()
{
    QFETCH(QChar, character);
    const QString name = QStringLiteral("/a") + character + QStringLiteral("b.mid");
    RunReport report;
    report.add(Lack::Read, name, Reason::Empty);
    report.addMessage(name);
    QCOMPARE(report.text(), QStringLiteral("2 non riuscite\n"
                                           "Non letta (il file è vuoto): /a\uFFFDb.mid\n"
                                           "/a\uFFFDb.mid\n"));
}

void TestRunReport::hasAReasonForEverything()
{
    QSet<QString> texts;
    for (int reason = 0; reason <= static_cast<int>(Reason::ListFailed); ++reason)
        texts.insert(RunReport::reasonText(static_cast<Reason>(reason)));
    QVERIFY(!texts.contains(QString()));
    QCOMPARE(texts.size(), static_cast<int>(Reason::ListFailed) + 1);
}

void TestRunReport::tellsOfFilesThatCannotBeTrusted()
{
    RunReport report(Run::Edit);
    report.add(Lack::Read, QStringLiteral("/a.mid"), Reason::CutShort);
    report.add(Lack::Saved, QStringLiteral("/b.mid"), Reason::ChangedMeanwhile);
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
    RunReport report(Run::Index);
    QStringList lines{QStringLiteral("Ottimizzazione memoria: 4003 non riuscite, 1000 saltate")};
    for (int i = 0; i < empty; ++i) {
        report.add(Lack::Read, QStringLiteral("/%1.mid").arg(i), Reason::Empty);
        if (i < 1000)
            lines.append(QStringLiteral("Non letta (il file è vuoto): /%1.mid").arg(i));
    }
    for (int i = 0; i < kept; ++i) {
        report.add(Lack::Copied, QStringLiteral("/%1.mid").arg(i), Reason::Kept);
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
            report.add(Lack::Saved, QStringLiteral("/%1-%2.mid").arg(part).arg(i),
                       Reason::Unwritable);
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
    RunReport part(RunReport::Run::Transfer);
    part.addPulled(Lack::Copied, QStringLiteral("/media/A"));
    part.addPulled(Lack::Copied, QStringLiteral("/media/B"));
    RunReport report;
    QVERIFY(report.isEmpty());
    report.append(part);
    report.append(part);
    report.addPulled(Lack::Read, QStringLiteral("/media/A"));
    QVERIFY(!report.isEmpty());
    QCOMPARE(report.failed(), 5);
    QCOMPARE(report.text(), QStringLiteral("Trasferimento: 5 non riuscite\n"
                                           "Non copiata (la memoria non è più presente): /media/A "
                                           "(3 song)\n"
                                           "Non copiata (la memoria non è più presente): /media/B "
                                           "(2 song)\n"));
}

BRISEL_TEST(QCoreApplication, TestRunReport)
#include "tst_runreport.moc"
