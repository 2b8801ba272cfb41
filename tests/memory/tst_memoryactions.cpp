#include "memory/dialogs/memoryactions.h"

#include "base/settings.h"
#include "index/memoryreasons.h"
#include "tests/index/setreader.h"
#include "tests/memory/memoryactionstest.h"
#include "tests/testprogram.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <sys/file.h>

using namespace brisel;

using namespace Sample;

/// The actions on the songs of a memory, through their dialogs.
class TestMemoryActions : public MemoryActionsTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void isEnabledByWhatIsChosen();
    void isDisabledWithoutAMemory();
    void isDisabledOnAReadOnlyMemory();
    void asksBeforeItRemoves();
    void removesChosenSongs();
    void removesASongOfNoPlaylist();
    void removesGraphicsAndMissingSongs();
    void reportsWhatWasNotRemoved();
    void refusesABusyMemory();
    void refusesAMemoryThatWasPulled();
    void refusesAnExchangedMemory();
    void asksForUnsavedPlaylistsFirst();
    void keepsTheChoiceWhilePlaylistsAreSaved();
    void keepsTheChoiceDuringTheQuestion();
    void doesNothingWithoutAChoice();
    void leavesAnExchangedMemoryAlone();
    void renamesASong();
    void validatesWhileItIsTyped();
    void joinsALetterAndItsAccent();
    void leavesTheNameAfterCancel();
    void showsWhyASongWasNotRenamed();
    void followsTheLanguage();
    void remembersTheMemory();
};

void TestMemoryActions::isEnabledByWhatIsChosen()
{
    QCOMPARE(enabled(), memoryTexts);
    choose({u"A.MID"_qs});
    QCOMPARE(enabled(), songTexts + memoryTexts);
    choose({u"A.MID"_qs, u"C.KAR"_qs});
    QCOMPARE(enabled(), QStringList({songTexts.at(0), songTexts.at(2)}) + memoryTexts);
    m_actions->setFiles({m_memory->path(u"BASI/B.cdg"_qs)});
    QCOMPARE(enabled(), QStringList({songTexts.at(0), songTexts.at(2)}) + memoryTexts);
    m_actions->setFiles({});
    QCOMPARE(enabled(), memoryTexts);
}

void TestMemoryActions::isDisabledWithoutAMemory()
{
    choose({u"A.MID"_qs});
    m_actions->setMemory({});
    QCOMPARE(enabled(), QStringList());
    m_actions->setMemory(m_memory->root());
    QStringList withoutIndex = memoryTexts;
    withoutIndex.removeOne(u"Esporta elenco..."_qs);
    QCOMPARE(enabled(), withoutIndex);
    m_actions->setContents(nullptr);
    QCOMPARE(enabled(), withoutIndex);
}

void TestMemoryActions::isDisabledOnAReadOnlyMemory()
{
    choose({u"A.MID"_qs});
    m_actions->setReadOnly(u"La memoria <è> protetta"_qs);
    QCOMPARE(enabled(), (QStringList{u"Copia sul computer..."_qs, u"Controlla"_qs,
                                     u"Esporta elenco..."_qs, u"Rimozione sicura"_qs}));
    QCOMPARE(action(u"Rinomina..."_qs)->toolTip(), u"La memoria &lt;è&gt; protetta"_qs);
    QVERIFY(!action(u"Controlla"_qs)->toolTip().contains(u"protetta"_qs));
    m_actions->setReadOnly({});
    QCOMPARE(enabled(), songTexts + memoryTexts);
    QVERIFY(!action(u"Rinomina..."_qs)->toolTip().contains(u"protetta"_qs));
}

void TestMemoryActions::asksBeforeItRemoves()
{
    m_memory->addPlaylist(HandMadeSet::one() + HandMadeSet::two());
    read();
    choose({u"A.MID"_qs, u"C.KAR"_qs});
    DialogScript script;
    script.expect("QMessageBox", [](QWidget *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        QCOMPARE(box->windowTitle(), u"Rimuovi dalla memoria"_qs);
        QCOMPARE(box->text(), u"Rimuovere 2 song dalla memoria?"_qs);
        QCOMPARE(box->informativeText(), u"1 playlist le contengono, e le perderanno.\n"
                                         u"I file vengono cancellati e non si possono riavere."_qs);
        QCOMPARE(box->defaultButton(), box->button(QMessageBox::No));
        box->button(QMessageBox::No)->click();
    });
    trigger(u"Rimuovi dalla memoria..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(m_memory->has(u"A.MID"_qs));
    QCOMPARE(m_changes, 0);
    QVERIFY(!m_memory->has(u".brisel2pc"_qs));
}

void TestMemoryActions::removesChosenSongs()
{
    m_memory->addPlaylist(HandMadeSet::one() + HandMadeSet::two());
    read();
    choose({u"A.MID"_qs});
    DialogScript script;
    expectYes(script);
    script.expectMessage(u"Rimuovi dalla memoria"_qs, u"1 song rimosse"_qs, QMessageBox::Ok);
    trigger(u"Rimuovi dalla memoria..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(!m_memory->has(u"A.MID"_qs));
    QCOMPARE(SetReader(*m_memory).songCount(), 3);
    QCOMPARE(m_memory->read(u"playlist/play0007.dat"_qs), HandMadeSet::two());
    QCOMPARE(m_changes, 1);
}

void TestMemoryActions::removesASongOfNoPlaylist()
{
    m_actions->setFiles({m_memory->path(u"C.KAR"_qs)});
    DialogScript script;
    script.expect("QMessageBox", [](QWidget *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        QVERIFY(box->informativeText().startsWith(u"Nessuna playlist le contiene.\n"_qs));
        box->button(QMessageBox::No)->click();
    });
    trigger(u"Rimuovi dalla memoria..."_qs);
    QVERIFY(script.isDone());
}

void TestMemoryActions::removesGraphicsAndMissingSongs()
{
    const QString title = u"Rimuovi dalla memoria"_qs;
    m_memory->write(u"X.CDG"_qs, "graphics");
    m_actions->setFiles({m_memory->path(u"X.CDG"_qs)});
    DialogScript script;
    script.expect("QMessageBox", [](QWidget *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        QCOMPARE(box->text(), u"Rimuovere 1 file dalla memoria?"_qs);
        box->button(QMessageBox::Yes)->click();
    });
    script.expectMessage(title, u"1 file rimossi"_qs, QMessageBox::Ok);
    trigger(u"Rimuovi dalla memoria..."_qs);
    QVERIFY(script.isDone());
    read();
    choose({u"A.MID"_qs});
    m_memory->remove(u"A.MID"_qs);
    expectYes(script);
    script.expectMessage(title, u"1 song rimosse"_qs, QMessageBox::Ok);
    trigger(u"Rimuovi dalla memoria..."_qs);
    QVERIFY(script.isDone());
    QCOMPARE(SetReader(*m_memory).songCount(), 3);
}

void TestMemoryActions::reportsWhatWasNotRemoved()
{
    choose({u"A.MID"_qs});
    m_memory->remove(u"A.MID"_qs);
    m_memory->write(u"A.MID/x"_qs, "x");
    DialogScript script;
    expectYes(script);
    script.expectMessage(u"Rimuovi dalla memoria"_qs,
                         u"Non tutto è riuscito. Il report dice che cosa manca."_qs,
                         QMessageBox::Ok);
    expectReport(script, u"A.MID"_qs);
    trigger(u"Rimuovi dalla memoria..."_qs);
    QVERIFY(script.isDone());
}

void TestMemoryActions::refusesABusyMemory()
{
    choose({u"A.MID"_qs});
    const FileDescriptor folder = FileDescriptor::openFolder(m_memory->root());
    QCOMPARE(::flock(folder.get(), LOCK_EX), 0);
    const QString text = u"Un altro programma sta lavorando su questa memoria.\n"
                         u"Riprovare quando ha finito."_qs;
    for (const auto &[name, title] :
         {std::pair(u"Rimuovi dalla memoria..."_qs, u"Rimuovi dalla memoria"_qs),
          std::pair(u"Rinomina..."_qs, u"Rinomina"_qs)}) {
        DialogScript script;
        script.expectMessage(title, text, QMessageBox::Ok);
        trigger(name);
        QVERIFY(script.isDone());
    }
    QVERIFY(m_memory->has(u"A.MID"_qs));
}

void TestMemoryActions::refusesAMemoryThatWasPulled()
{
    choose({u"A.MID"_qs});
    QVERIFY(QDir(m_memory->root()).removeRecursively());
    DialogScript script;
    script.expectMessage(u"Rimuovi dalla memoria"_qs,
                         u"Impossibile proseguire: la memoria non è più presente."_qs,
                         QMessageBox::Ok);
    trigger(u"Rimuovi dalla memoria..."_qs);
    QVERIFY(script.isDone());
    QCOMPARE(m_changes, 1);
}

/// Another memory is inserted while the question is open.
void TestMemoryActions::refusesAnExchangedMemory()
{
    choose({u"A.MID"_qs});
    DialogScript script;
    script.expect("QMessageBox", [this](QWidget *dialog) {
        QVERIFY(m_memory->has(u".brisel2pc/mark"_qs));
        m_memory->write(u".brisel2pc/mark"_qs, "0123456789abcdef0123456789abcdef");
        qobject_cast<QMessageBox *>(dialog)->button(QMessageBox::Yes)->click();
    });
    script.expectMessage(u"Rimuovi dalla memoria"_qs,
                         u"Non tutto è riuscito. Il report dice che cosa manca."_qs,
                         QMessageBox::Ok);
    expectReport(script, MemoryReason::gone.text());
    trigger(u"Rimuovi dalla memoria..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(m_memory->has(u"A.MID"_qs));
}

void TestMemoryActions::asksForUnsavedPlaylistsFirst()
{
    choose({u"A.MID"_qs});
    int asked = 0;
    m_actions->setMayWrite([&asked] {
        ++asked;
        return false;
    });
    for (const QString &name : {u"Rimuovi dalla memoria..."_qs, u"Rinomina..."_qs, u"Aggiorna"_qs,
                                u"Rigenera"_qs, u"Rimozione sicura"_qs})
        trigger(name);
    QCOMPARE(asked, 5);
    QVERIFY(m_memory->has(u"A.MID"_qs));
}

/// The window reads the memory again after the save, and then nothing is chosen.
void TestMemoryActions::keepsTheChoiceWhilePlaylistsAreSaved()
{
    m_actions->setMayWrite([this] {
        read();
        return true;
    });
    choose({u"A.MID"_qs});
    DialogScript script;
    script.expect("brisel::RenameSongDialog", [](QWidget *dialog) {
        DialogScript::type(dialog->findChild<QLineEdit *>(u"nameLineEdit"_qs), u"NEW"_qs);
        DialogScript::click(dialog, u"renamePushButton"_qs);
    });
    trigger(u"Rinomina..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(m_memory->has(u"NEW.MID"_qs));
    choose({u"C.KAR"_qs, u"BASI/B.MP3"_qs});
    script.expect("QMessageBox", [](QWidget *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        QCOMPARE(box->text(), u"Rimuovere 2 song dalla memoria?"_qs);
        box->button(QMessageBox::Yes)->click();
    });
    script.expectMessage(u"Rimuovi dalla memoria"_qs, u"2 song rimosse"_qs, QMessageBox::Ok);
    trigger(u"Rimuovi dalla memoria..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(!m_memory->has(u"C.KAR"_qs));
}

void TestMemoryActions::keepsTheChoiceDuringTheQuestion()
{
    choose({u"A.MID"_qs});
    DialogScript script;
    script.expect("QMessageBox", [this](QWidget *dialog) {
        m_actions->setFiles({m_memory->path(u"C.KAR"_qs), m_memory->path(u"BASI/B.MP3"_qs)});
        qobject_cast<QMessageBox *>(dialog)->button(QMessageBox::Yes)->click();
    });
    script.expectMessage(u"Rimuovi dalla memoria"_qs, u"1 song rimosse"_qs, QMessageBox::Ok);
    trigger(u"Rimuovi dalla memoria..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(!m_memory->has(u"A.MID"_qs));
    QVERIFY(m_memory->has(u"C.KAR"_qs));
}

/// A menu that is open keeps its enabled actions.
void TestMemoryActions::doesNothingWithoutAChoice()
{
    m_actions->setFiles({});
    for (QAction *found : m_actions->songActions()) {
        found->setEnabled(true);
        found->trigger();
    }
    QCOMPARE(m_changes, 0);
    QVERIFY(!m_memory->has(u".brisel2pc"_qs));
}

/// Another memory is inserted while the question for unsaved playlists is open.
void TestMemoryActions::leavesAnExchangedMemoryAlone()
{
    int exchanges = 0;
    m_actions->setMayWrite([this, &exchanges] {
        const bool isMoved =
            QDir().rename(m_memory->root(), m_memory->root() + QString::number(++exchanges));
        m_memory->write(u"A.MID"_qs, "another song");
        return isMoved;
    });
    for (const auto &[name, title] :
         {std::pair(u"Rimuovi dalla memoria..."_qs, u"Rimuovi dalla memoria"_qs),
          std::pair(u"Rinomina..."_qs, u"Rinomina"_qs),
          std::pair(u"Aggiorna"_qs, u"Ottimizza memoria"_qs),
          std::pair(u"Rigenera"_qs, u"Ottimizza memoria"_qs),
          std::pair(u"Rimozione sicura"_qs, u"Rimozione sicura"_qs)}) {
        m_actions->setFiles({m_memory->path(u"A.MID"_qs)});
        DialogScript script;
        script.expectMessage(title, u"Impossibile proseguire: la memoria non è più presente."_qs,
                             QMessageBox::Ok);
        trigger(name);
        QVERIFY(script.isDone());
        QCOMPARE(m_memory->rootFiles().keys(), QStringList{u"A.MID"_qs});
        QVERIFY(!m_memory->has(u".brisel2pc"_qs));
    }
    QCOMPARE(m_changes, 5);
}

void TestMemoryActions::renamesASong()
{
    m_memory->addPlaylist(HandMadeSet::one());
    read();
    choose({u"A.MID"_qs});
    DialogScript script;
    script.expect("brisel::RenameSongDialog", [](QWidget *dialog) {
        QCOMPARE(dialog->windowTitle(), u"Rinomina song"_qs);
        QCOMPARE(dialog->findChild<QLabel *>(u"suffixLabel"_qs)->text(), u".MID"_qs);
        auto *name = dialog->findChild<QLineEdit *>(u"nameLineEdit"_qs);
        QCOMPARE(name->text(), u"A"_qs);
        QCOMPARE(name->selectedText(), u"A"_qs);
        DialogScript::type(name, u"VOLARE"_qs);
        DialogScript::click(dialog, u"renamePushButton"_qs);
    });
    trigger(u"Rinomina..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(m_memory->has(u"VOLARE.MID"_qs));
    QCOMPARE(SetReader(*m_memory).playlist(u"playlist/play0007.dat"_qs),
             QList<QByteArray>{"/VOLARE.MID"});
    QCOMPARE(m_changes, 1);
}

void TestMemoryActions::validatesWhileItIsTyped()
{
    choose({u"A.MID"_qs});
    DialogScript script;
    script.expect("brisel::RenameSongDialog", [](QWidget *dialog) {
        auto *name = dialog->findChild<QLineEdit *>(u"nameLineEdit"_qs);
        const auto *problem = dialog->findChild<QLabel *>(u"problemLabel"_qs);
        const auto *rename = dialog->findChild<QPushButton *>(u"renamePushButton"_qs);
        QVERIFY(!rename->isEnabled());
        QCOMPARE(problem->text(), QString());
        DialogScript::type(name, u"VO?"_qs);
        QVERIFY(!rename->isEnabled());
        QCOMPARE(problem->text(), u"In un nome non è permesso il carattere «?»"_qs);
        QCOMPARE(name->accessibleDescription(), problem->text());
        QTest::keyClick(name, Qt::Key_Backspace);
        QVERIFY(rename->isEnabled());
        QCOMPARE(problem->text(), QString());
        DialogScript::type(name, u"LARE123"_qs);
        QCOMPARE(problem->text(), u"Il nome può avere al massimo 8 caratteri"_qs);
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
    trigger(u"Rinomina..."_qs);
    QVERIFY(script.isDone());
}

void TestMemoryActions::joinsALetterAndItsAccent()
{
    choose({u"A.MID"_qs});
    DialogScript script;
    script.expect("brisel::RenameSongDialog", [](QWidget *dialog) {
        dialog->findChild<QLineEdit *>(u"nameLineEdit"_qs)->setText(u"Caffe\u0300"_qs);
        DialogScript::click(dialog, u"renamePushButton"_qs);
    });
    trigger(u"Rinomina..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(m_memory->has(u"Caff\u00E8.MID"_qs));
}

void TestMemoryActions::leavesTheNameAfterCancel()
{
    choose({u"A.MID"_qs});
    DialogScript script;
    script.expect("brisel::RenameSongDialog", [](QWidget *dialog) { dialog->close(); });
    trigger(u"Rinomina..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(m_memory->has(u"A.MID"_qs));
    QCOMPARE(m_changes, 0);
}

void TestMemoryActions::showsWhyASongWasNotRenamed()
{
    choose({u"A.MID"_qs});
    DialogScript script;
    script.expect("brisel::RenameSongDialog", [this](QWidget *dialog) {
        DialogScript::type(dialog->findChild<QLineEdit *>(u"nameLineEdit"_qs), u"NEW"_qs);
        m_memory->remove(u"A.MID"_qs);
        DialogScript::click(dialog, u"renamePushButton"_qs);
    });
    script.expectMessage(u"Rinomina"_qs, u"Non tutto è riuscito. Il report dice che cosa manca."_qs,
                         QMessageBox::Ok);
    expectReport(script, u"Non rinominata (il file non esiste)"_qs);
    trigger(u"Rinomina..."_qs);
    QVERIFY(script.isDone());
}

void TestMemoryActions::followsTheLanguage()
{
    QAction *rename = action(u"Rinomina..."_qs);
    EnglishActions english;
    QCoreApplication::installTranslator(&english);
    QCoreApplication::processEvents();
    QCOMPARE(rename->text(), u"Rename..."_qs);
    QCoreApplication::removeTranslator(&english);
    QCoreApplication::processEvents();
    QCOMPARE(plain(rename->text()), u"Rinomina..."_qs);
}

void TestMemoryActions::remembersTheMemory()
{
    DialogScript script;
    script.expectMessage(u"Ottimizza memoria"_qs, u"Operazione completata con successo"_qs,
                         QMessageBox::Ok);
    trigger(u"Aggiorna"_qs);
    QVERIFY(script.isDone());
    QCOMPARE(Settings::recentMemories.in(openSettings()), QStringList{m_memory->root()});
}

BRISEL_TEST(QApplication, TestMemoryActions)

#include "tst_memoryactions.moc"
