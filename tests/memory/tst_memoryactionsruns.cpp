#include "base/settings.h"
#include "tests/index/setreader.h"
#include "tests/memory/memoryactionstest.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLabel>

#include <sys/file.h>

using namespace brisel;

using namespace Sample;

namespace
{

/// A service that unmounts the memory, or fails, after a while.
class SlowService : public UnmountService
{
public:
    void unmount(const QString &root) override
    {
        QTimer::singleShot(0, this, [this, root] {
            if (outcome == SafeRemoval::Outcome::Removable && !QDir(root).removeRecursively())
                qFatal("can't remove the folder");
            emit finished(outcome, detail);
        });
    }
    SafeRemoval::Outcome outcome = SafeRemoval::Outcome::Removable;
    QString detail;
};

} // namespace

/// The actions on a whole memory, and the copies of its songs.
class TestMemoryActionsRuns : public MemoryActionsTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void copiesSongsToAFolder();
    void refusesAFolderOnTheMemory();
    void copiesNothingWithoutAFolder();
    void copiesWhatWasChosenBefore();
    void copiesNothingFromAnExchangedMemory();
    void reportsWhatWasNotCopied();
    void updatesTheIndex();
    void rebuildsTheIndex();
    void showsErrorsOfAnUpdate();
    void showsThatAnUpdateFailed();
    void showsThatTheMemoryIsInUse();
    void findsNothingWrong();
    void showsFindings();
    void showsThatNothingWasChecked();
    void exportsAList();
    void exportsAPageOfMp3s();
    void proposesTheListThatIsShown();
    void exportsNothingAfterCancel();
    void pullsTheMemoryOut();
    void saysThatTheMemoryIsStillMounted();
    void keepsTheWindowOpenUntilTheOutcome();
    void restoresTheCursorAtItsEnd();
    void doesNothingDuringAnotherRun();

private:
    void expectFolder(DialogScript &script, const QString &folder)
    {
        script.expect("QFileDialog", [folder](QWidget *widget) {
            auto *dialog = qobject_cast<QFileDialog *>(widget);
            QCOMPARE(dialog->windowTitle(), u"Scegli la cartella delle copie"_qs);
            DialogScript::chooseFiles(dialog, {folder});
        });
    }
    static void expectExport(DialogScript &script, int order, int songs, int format)
    {
        script.expect("brisel::ExportListDialog", [=](QWidget *dialog) {
            QCOMPARE(dialog->windowTitle(), u"Esporta elenco"_qs);
            dialog->findChild<QComboBox *>(u"orderComboBox"_qs)->setCurrentIndex(order);
            dialog->findChild<QComboBox *>(u"songsComboBox"_qs)->setCurrentIndex(songs);
            dialog->findChild<QComboBox *>(u"formatComboBox"_qs)->setCurrentIndex(format);
            DialogScript::click(dialog, u"savePushButton"_qs);
        });
    }
    QTemporaryDir m_folder;
};

void TestMemoryActionsRuns::copiesSongsToAFolder()
{
    choose({u"A.MID"_qs, u"BASI/B.MP3"_qs});
    makeFile(m_folder.filePath(u"A.MID"_qs), "mine");
    DialogScript script;
    expectFolder(script, m_folder.path());
    script.expectMessage(u"Copia sul computer"_qs, u"2 song copiate"_qs, QMessageBox::Ok);
    trigger(u"Copia sul computer..."_qs);
    QVERIFY(script.isDone());
    QCOMPARE(fileContent(m_folder.filePath(u"A.MID"_qs)), QByteArray("mine"));
    QCOMPARE(fileContent(m_folder.filePath(u"A (2).MID"_qs)), m_memory->read(u"A.MID"_qs));
    QCOMPARE(Settings::copyBackFolder.in(openSettings()), m_folder.path());
    QCOMPARE(m_changes, 0);
}

void TestMemoryActionsRuns::refusesAFolderOnTheMemory()
{
    choose({u"A.MID"_qs});
    DialogScript script;
    expectFolder(script, m_memory->path(u"BASI"_qs));
    script.expectMessage(u"Copia sul computer"_qs,
                         u"La cartella è sulla memoria stessa: sceglierne una del computer"_qs,
                         QMessageBox::Ok);
    trigger(u"Copia sul computer..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(!m_memory->has(u"BASI/A.MID"_qs));
}

void TestMemoryActionsRuns::copiesNothingWithoutAFolder()
{
    choose({u"A.MID"_qs});
    DialogScript script;
    script.expectFilesCancelled();
    trigger(u"Copia sul computer..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(Settings::copyBackFolder.in(openSettings()).isEmpty());
}

/// The choice changes while the folder is chosen.
void TestMemoryActionsRuns::copiesWhatWasChosenBefore()
{
    choose({u"A.MID"_qs});
    const QTemporaryDir folder;
    DialogScript script;
    script.expect("QFileDialog", [this, &folder](QWidget *widget) {
        m_actions->setFiles({});
        DialogScript::chooseFiles(qobject_cast<QFileDialog *>(widget), {folder.path()});
    });
    script.expectMessage(u"Copia sul computer"_qs, u"1 song copiate"_qs, QMessageBox::Ok);
    trigger(u"Copia sul computer..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(QFile::exists(folder.filePath(u"A.MID"_qs)));
}

void TestMemoryActionsRuns::copiesNothingFromAnExchangedMemory()
{
    choose({u"A.MID"_qs});
    const QTemporaryDir folder;
    DialogScript script;
    script.expect("QFileDialog", [this, &folder](QWidget *widget) {
        QVERIFY(QDir().rename(m_memory->root(), m_memory->root() + u'1'));
        m_memory->write(u"A.MID"_qs, "another song");
        DialogScript::chooseFiles(qobject_cast<QFileDialog *>(widget), {folder.path()});
    });
    script.expectMessage(u"Copia sul computer"_qs,
                         u"Impossibile proseguire: la memoria non è più presente."_qs,
                         QMessageBox::Ok);
    trigger(u"Copia sul computer..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(QDir(folder.path()).isEmpty());
}

void TestMemoryActionsRuns::reportsWhatWasNotCopied()
{
    choose({u"A.MID"_qs});
    m_memory->remove(u"A.MID"_qs);
    const QTemporaryDir folder;
    DialogScript script;
    expectFolder(script, folder.path());
    script.expectMessage(u"Copia sul computer"_qs,
                         u"Non tutto è riuscito. Il report dice che cosa manca."_qs,
                         QMessageBox::Ok);
    expectReport(script, m_memory->path(u"A.MID"_qs));
    trigger(u"Copia sul computer..."_qs);
    QVERIFY(script.isDone());
}

void TestMemoryActionsRuns::updatesTheIndex()
{
    m_memory->write(u"NEW.MID"_qs, midiSong("New", "Anna", "Pop"));
    DialogScript script;
    script.expectMessage(u"Ottimizza memoria"_qs, u"Operazione completata con successo"_qs,
                         QMessageBox::Ok);
    trigger(u"Aggiorna"_qs);
    QVERIFY(script.isDone());
    const SetReader reader(*m_memory);
    QCOMPARE(reader.songCount(), 5);
    QCOMPARE(reader.pathOf(8), QByteArray("/NEW.MID"));
    QCOMPARE(m_changes, 1);
}

void TestMemoryActionsRuns::rebuildsTheIndex()
{
    DialogScript script;
    script.expectMessage(u"Ottimizza memoria"_qs, u"Operazione completata con successo"_qs,
                         QMessageBox::Ok);
    trigger(u"Rigenera"_qs);
    QVERIFY(script.isDone());
    QVERIFY(SetReader(*m_memory).pathOf(7).isEmpty()); // the ids are 0 to 3 now
    QCOMPARE(m_changes, 1);
}

void TestMemoryActionsRuns::showsErrorsOfAnUpdate()
{
    m_memory->write(u"12345678/12345678/12345678/12345678/12345678/A.MID"_qs, "song");
    DialogScript script;
    script.expectMessage(u"Ottimizza memoria"_qs,
                         u"Durante l'operazione si sono verificati alcuni errori.\n"
                         u"Consultare il report per maggiori informazioni."_qs,
                         QMessageBox::Ok);
    expectReport(script, u"File non importato, path troppo lungo: "_qs);
    trigger(u"Aggiorna"_qs);
    QVERIFY(script.isDone());
}

void TestMemoryActionsRuns::showsThatAnUpdateFailed()
{
    for (const QString &song : {u"A.MID"_qs, u"BASI/B.MP3"_qs, u"C.KAR"_qs, u"BASI/D.MP3"_qs})
        m_memory->remove(song);
    DialogScript script;
    script.expectMessage(u"Ottimizza memoria"_qs,
                         u"Operazione non riuscita.\nAssicurarsi che il disco abbia "
                         u"sufficiente spazio libero e che non sia protetto da scrittura."_qs,
                         QMessageBox::Ok);
    expectReport(script, u"gli archivi della memoria non sono completi"_qs);
    trigger(u"Rigenera"_qs);
    QVERIFY(script.isDone());
    QCOMPARE(m_changes, 1);
}

void TestMemoryActionsRuns::showsThatTheMemoryIsInUse()
{
    const FileDescriptor folder = FileDescriptor::openFolder(m_memory->root());
    QCOMPARE(::flock(folder.get(), LOCK_EX), 0);
    const QString text = u"Un altro programma sta lavorando su questa memoria.\n"
                         u"Riprovare quando ha finito."_qs;
    DialogScript script;
    script.expectMessage(u"Ottimizza memoria"_qs, text, QMessageBox::Ok);
    expectReport(script, m_memory->root());
    trigger(u"Aggiorna"_qs);
    QVERIFY(script.isDone());
    script.expectMessage(u"Rimozione sicura"_qs, text, QMessageBox::Ok);
    trigger(u"Rimozione sicura"_qs);
    QVERIFY(script.isDone());
}

void TestMemoryActionsRuns::findsNothingWrong()
{
    DialogScript script;
    script.expectMessage(u"Controllo memoria"_qs, u"Nessun errore trovato"_qs, QMessageBox::Ok);
    trigger(u"Controlla"_qs);
    QVERIFY(script.isDone());
    QCOMPARE(m_changes, 0);
}

void TestMemoryActionsRuns::showsFindings()
{
    m_memory->remove(u"C.KAR"_qs);
    DialogScript script;
    expectReport(script, u"index.id2, record 2: la song non c'è: /C.KAR"_qs);
    trigger(u"Controlla"_qs);
    QVERIFY(script.isDone());
}

void TestMemoryActionsRuns::showsThatNothingWasChecked()
{
    QVERIFY(QDir(m_memory->root()).removeRecursively());
    DialogScript script;
    script.expectMessage(u"Controllo memoria"_qs, u"Controllo memoria non eseguito!"_qs,
                         QMessageBox::Ok);
    trigger(u"Controlla"_qs);
    QVERIFY(script.isDone());
}

void TestMemoryActionsRuns::exportsAList()
{
    const QString file = m_folder.filePath(u"list.csv"_qs);
    DialogScript script;
    expectExport(script, 1, 0, 0);
    script.expectFiles({file});
    script.expectMessage(u"Salva lista song"_qs, u"Operazione completata"_qs, QMessageBox::Ok);
    trigger(u"Esporta elenco..."_qs);
    QVERIFY(script.isDone());
    QCOMPARE(fileContent(file), QByteArray("TITOLO;ARTISTA;GENERE;FILE;\n"
                                           "ONE;ANNA;POP;/A.MID;\n"
                                           "THREE;ANNA;ROCK;/C.KAR;\n"
                                           "FOUR;BRUNO;POP;/BASI/D.MP3;\n"
                                           "TWO;BRUNO;ROCK;/BASI/B.MP3;\n"));
    QCOMPARE(Settings::reportFolder.in(openSettings()), m_folder.path());
}

void TestMemoryActionsRuns::exportsAPageOfMp3s()
{
    const QString file = m_folder.filePath(u"list.html"_qs);
    DialogScript script;
    expectExport(script, 0, 1, 1);
    script.expect("QFileDialog", [file](QWidget *widget) {
        auto *dialog = qobject_cast<QFileDialog *>(widget);
        QCOMPARE(dialog->nameFilters(), QStringList{u"File (*.html)"_qs});
        DialogScript::chooseFiles(dialog, {file});
    });
    script.expectMessage(u"Salva lista song"_qs, u"Operazione completata"_qs, QMessageBox::Ok);
    trigger(u"Esporta elenco..."_qs);
    QVERIFY(script.isDone());
    const QByteArray page = fileContent(file);
    QVERIFY(page.startsWith("<!DOCTYPE html>"));
    QVERIFY(page.contains("/BASI/D.MP3"));
    QVERIFY(!page.contains("/A.MID"));
}

void TestMemoryActionsRuns::proposesTheListThatIsShown()
{
    m_actions->setList(SetFiles::Artists3);
    DialogScript script;
    script.expect("brisel::ExportListDialog", [](QWidget *dialog) {
        QCOMPARE(dialog->findChild<QComboBox *>(u"orderComboBox"_qs)->currentIndex(), 1);
        QCOMPARE(dialog->findChild<QComboBox *>(u"songsComboBox"_qs)->currentIndex(), 1);
        dialog->close();
    });
    trigger(u"Esporta elenco..."_qs);
    QVERIFY(script.isDone());
}

void TestMemoryActionsRuns::exportsNothingAfterCancel()
{
    DialogScript script;
    script.expect("brisel::ExportListDialog",
                  [](QWidget *dialog) { DialogScript::click(dialog, u"cancelPushButton"_qs); });
    trigger(u"Esporta elenco..."_qs);
    QVERIFY(script.isDone());
    expectExport(script, 0, 0, 0);
    script.expectFilesCancelled();
    trigger(u"Esporta elenco..."_qs);
    QVERIFY(script.isDone());
}

void TestMemoryActionsRuns::pullsTheMemoryOut()
{
    m_actions->setUnmountService(std::make_unique<SlowService>());
    int announced = 0;
    connect(m_actions, &MemoryActions::aboutToUnmount, this, [&announced] { ++announced; });
    DialogScript script;
    script.expectMessage(u"Rimozione sicura"_qs,
                         u"La memoria è stata smontata: ora si può togliere."_qs, QMessageBox::Ok);
    trigger(u"Rimozione sicura"_qs);
    QCOMPARE(announced, 1);
    QCOMPARE(enabled(), QStringList());
    QVERIFY(QGuiApplication::overrideCursor() != nullptr);
    QTRY_VERIFY(script.isDone());
    QTRY_COMPARE(m_changes, 1);
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

void TestMemoryActionsRuns::saysThatTheMemoryIsStillMounted()
{
    auto service = std::make_unique<SlowService>();
    service->outcome = SafeRemoval::Outcome::Busy;
    service->detail = u"target is <b>busy</b>"_qs;
    m_actions->setUnmountService(std::move(service));
    DialogScript script;
    script.expect("QMessageBox", [](QWidget *dialog) {
        const auto *box = qobject_cast<QMessageBox *>(dialog);
        QCOMPARE(box->text(), u"La memoria è in uso da un programma e non è stata smontata.\n"
                              u"Chiudere i file aperti e riprovare."_qs);
        QCOMPARE(box->informativeText(), u"target is <b>busy</b>"_qs);
        QCOMPARE(box->icon(), QMessageBox::Warning);
        for (const QLabel *label : box->findChildren<QLabel *>()) {
            if (label->text().contains(u"busy"_qs))
                QCOMPARE(label->textFormat(), Qt::PlainText);
        }
        dialog->close();
    });
    trigger(u"Rimozione sicura"_qs);
    QTRY_VERIFY(script.isDone());
    QTRY_COMPARE(enabled(), memoryTexts);
}

void TestMemoryActionsRuns::keepsTheWindowOpenUntilTheOutcome()
{
    m_actions->setUnmountService(std::make_unique<SlowService>());
    DialogScript script;
    script.expectMessage(u"Rimozione sicura"_qs,
                         u"La memoria è stata smontata: ora si può togliere."_qs, QMessageBox::Ok);
    trigger(u"Rimozione sicura"_qs);
    QVERIFY(!m_window->close());
    QVERIFY(m_window->isVisible());
    QTRY_VERIFY(script.isDone());
    QTRY_COMPARE(m_changes, 1);
    QVERIFY(m_window->close());
}

void TestMemoryActionsRuns::restoresTheCursorAtItsEnd()
{
    m_actions->setUnmountService(std::make_unique<SlowService>());
    trigger(u"Rimozione sicura"_qs);
    QVERIFY(QGuiApplication::overrideCursor() != nullptr);
    m_window.reset();
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

void TestMemoryActionsRuns::doesNothingDuringAnotherRun()
{
    choose({u"A.MID"_qs});
    const ScriptedRun run;
    for (QAction *found : actions())
        found->trigger();
    QVERIFY(m_memory->has(u"A.MID"_qs));
    QCOMPARE(m_changes, 0);
}

BRISEL_TEST(QApplication, TestMemoryActionsRuns)

#include "tst_memoryactionsruns.moc"
