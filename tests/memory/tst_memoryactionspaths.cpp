#include "tests/index/setreader.h"
#include "tests/memory/memoryactionstest.h"
#include "tests/scriptedindex.h"
#include "tests/testprogram.h"

#include <QFileDialog>
#include <QLineEdit>

using namespace brisel;

using namespace Sample;

/// The actions on songs whose paths in the index are not those of their files.
class TestMemoryActionsPaths : public MemoryActionsTest
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        setUp();
        m_memory->write(ja, midiSong("Ja", "Anna", "Pop"));
        QVERIFY(ScriptedIndex().updateIndex(m_memory->root()));
        m_memory->addPlaylist(HandMadeSet::one() + songRecord("00000008", "JA", "7800"));
        read();
        choose({u"POP/?.MID"_qs});
    }
    void cleanup() { tearDown(); }
    void removesTheFile();
    void removesNothingIfItIsUnclear();
    void renamesTheFile();
    void renamesNothingIfItIsUnclear();
    void copiesTheFile();
    void copiesNothingIfItIsUnclear();

private:
    void addAnotherFile() const
    {
        m_memory->write(u"POP/\u0416.MID"_qs, midiSong("Zhe", "Anna", "Pop"));
    }
    void copy(DialogScript &script) const
    {
        script.expect("QFileDialog", [this](QWidget *widget) {
            DialogScript::chooseFiles(qobject_cast<QFileDialog *>(widget), {m_folder->path()});
        });
    }
    static void expectTrouble(DialogScript &script, const QString &title)
    {
        script.expectMessage(title, u"Non tutto è riuscito. Il report dice che cosa manca."_qs,
                             QMessageBox::Ok);
    }

    static inline const QString ja = u"POP/\u042F.MID"_qs;
    static inline const QString songs = u"playlist/play0007.dat"_qs;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestMemoryActionsPaths::removesTheFile()
{
    DialogScript script;
    script.expect("QMessageBox", [](QWidget *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        QVERIFY(box->informativeText().startsWith(u"1 playlist le contengono"_qs));
        box->button(QMessageBox::Yes)->click();
    });
    script.expectMessage(u"Rimuovi dalla memoria"_qs, u"1 song rimosse"_qs, QMessageBox::Ok);
    trigger(u"Rimuovi dalla memoria..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(!m_memory->has(ja));
    QCOMPARE(m_memory->read(songs), HandMadeSet::one());
}

void TestMemoryActionsPaths::removesNothingIfItIsUnclear()
{
    addAnotherFile();
    DialogScript script;
    expectYes(script);
    expectTrouble(script, u"Rimuovi dalla memoria"_qs);
    expectReport(script, u"Non cancellata (più file o più song hanno questo percorso)"_qs);
    trigger(u"Rimuovi dalla memoria..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(m_memory->has(ja));
    QCOMPARE(m_memory->read(songs).size(), 2 * 64);
}

void TestMemoryActionsPaths::renamesTheFile()
{
    DialogScript script;
    script.expect("brisel::RenameSongDialog", [](QWidget *dialog) {
        auto *name = dialog->findChild<QLineEdit *>(u"nameLineEdit"_qs);
        QCOMPARE(name->text(), u"\u042F"_qs);
        DialogScript::type(name, u"JA"_qs);
        DialogScript::click(dialog, u"renamePushButton"_qs);
    });
    trigger(u"Rinomina..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(m_memory->has(u"POP/JA.MID"_qs));
    QVERIFY(!m_memory->has(ja));
    QCOMPARE(SetReader(*m_memory).playlist(songs), (QList<QByteArray>{"/A.MID", "/POP/JA.MID"}));
}

void TestMemoryActionsPaths::renamesNothingIfItIsUnclear()
{
    addAnotherFile();
    DialogScript script;
    script.expectMessage(u"Rinomina"_qs,
                         u"Impossibile proseguire: più file o più song hanno questo percorso."_qs,
                         QMessageBox::Ok);
    trigger(u"Rinomina..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(m_memory->has(ja));
    QVERIFY(!m_memory->has(u".brisel2pc/mark"_qs));
}

void TestMemoryActionsPaths::copiesTheFile()
{
    DialogScript script;
    copy(script);
    script.expectMessage(u"Copia sul computer"_qs, u"1 song copiate"_qs, QMessageBox::Ok);
    trigger(u"Copia sul computer..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(QFile::exists(m_folder->filePath(u"\u042F.MID"_qs)));
}

void TestMemoryActionsPaths::copiesNothingIfItIsUnclear()
{
    addAnotherFile();
    DialogScript script;
    copy(script);
    expectTrouble(script, u"Copia sul computer"_qs);
    expectReport(script, u"Non copiata (più file o più song hanno questo percorso)"_qs);
    trigger(u"Copia sul computer..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

BRISEL_TEST(QApplication, TestMemoryActionsPaths)

#include "tst_memoryactionspaths.moc"
