#include "tests/memory/cutreplacement.h"
#include "tests/memory/memoryactionstest.h"
#include "tests/testprogram.h"

#include <QFileDialog>

using namespace brisel;

using namespace Sample;

/// What the actions ask and say when a memory is not as it should be.
class TestMemoryQuestions : public MemoryActionsTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void saysThatPlaylistsCannotBeRead();
    void saysNothingAboutPlaylistsThatDoNotMatter();
    void showsTheIndexThatWasFinished();
    void countsCopiedFiles();

private:
    const QString m_removeText = u"Rimuovi dalla memoria..."_qs;
    const QString m_songs = u"playlist/play0007.dat"_qs;

    /// The question has \a text as its explanation, and is declined.
    static void decline(DialogScript &script, const QString &text)
    {
        script.expect("QMessageBox", [text](QWidget *dialog) {
            auto *box = qobject_cast<QMessageBox *>(dialog);
            QCOMPARE(box->informativeText(),
                     text + u"\nI file vengono cancellati e non si possono riavere."_qs);
            box->button(QMessageBox::No)->click();
        });
    }
};

void TestMemoryQuestions::saysThatPlaylistsCannotBeRead()
{
    m_memory->write(u"playlist/playlist.dat"_qs, field("\x07", 32) + field("\x08", 32));
    m_memory->write(m_songs + u"/x"_qs, "x");
    m_memory->write(u"playlist/play0008.dat"_qs, HandMadeSet::one());
    read();
    DialogScript script;
    choose({u"C.KAR"_qs});
    decline(script, u"1 playlist non si possono leggere: forse le contengono."_qs);
    trigger(m_removeText);
    QVERIFY(script.isDone());
    choose({u"A.MID"_qs});
    decline(script, u"1 playlist le contengono, e le perderanno.\n"
                    u"1 playlist non si possono leggere: forse le contengono."_qs);
    trigger(m_removeText);
    QVERIFY(script.isDone());
}

void TestMemoryQuestions::saysNothingAboutPlaylistsThatDoNotMatter()
{
    // One without its file has no entries, and no entry can name what is not in the index.
    m_memory->write(u"playlist/playlist.dat"_qs, field("\x07", 32));
    m_memory->write(u"NEW.MID"_qs, "a song");
    read();
    DialogScript script;
    choose({u"A.MID"_qs});
    decline(script, u"Nessuna playlist le contiene."_qs);
    trigger(m_removeText);
    QVERIFY(script.isDone());
    m_memory->write(m_songs + u"/x"_qs, "x");
    m_actions->setFiles({m_memory->path(u"NEW.MID"_qs)});
    decline(script, u"Nessuna playlist le contiene."_qs);
    trigger(m_removeText);
    QVERIFY(script.isDone());
}

/// A replacement that was cut is finished before the question, and changes what the window shows.
void TestMemoryQuestions::showsTheIndexThatWasFinished()
{
    m_memory->addPlaylist(HandMadeSet::one());
    DialogScript script;
    choose({u"C.KAR"_qs});
    cutReplacement(*m_memory, m_songs);
    decline(script, u"Nessuna playlist le contiene."_qs);
    trigger(m_removeText);
    QVERIFY(script.isDone());
    QVERIFY(m_memory->has(u"fsinfos.id2"_qs));
    QCOMPARE(m_changes, 1);
    cutReplacement(*m_memory, m_songs);
    script.expect("brisel::RenameSongDialog", [](QWidget *dialog) { dialog->close(); });
    trigger(u"Rinomina..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(m_memory->has(u"fsinfos.id2"_qs));
    QCOMPARE(m_changes, 2);
}

void TestMemoryQuestions::countsCopiedFiles()
{
    m_memory->write(u"X.CDG"_qs, "graphics");
    const QTemporaryDir folder;
    m_actions->setFiles({m_memory->path(u"X.CDG"_qs), m_memory->path(u"A.MID"_qs)});
    DialogScript script;
    script.expect("QFileDialog", [&folder](QWidget *widget) {
        DialogScript::chooseFiles(qobject_cast<QFileDialog *>(widget), {folder.path()});
    });
    script.expectMessage(u"Copia sul computer"_qs, u"2 file copiati"_qs, QMessageBox::Ok);
    trigger(u"Copia sul computer..."_qs);
    QVERIFY(script.isDone());
    QVERIFY(QFile::exists(folder.filePath(u"X.CDG"_qs)));
}

BRISEL_TEST(QApplication, TestMemoryQuestions)

#include "tst_memoryquestions.moc"
