#include "base/folderlock.h"
#include "index/dialogs/rundialog.h"
#include "memory/dialogs/memoryactions.h"
#include "tests/app/memorywindowtest.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QTableView>
#include <QToolBar>
#include <QUrl>

using namespace brisel;

namespace
{

/// A service that has not answered yet.
class WaitingService : public UnmountService
{
public:
    void unmount(const QString & /*root*/) override {}
};

} // namespace

/// The lists, the actions and the playlists of the memory window together, through the real main
/// window.
class TestMemoryParts : public MemoryWindowTest
{
    Q_OBJECT

private slots:
    void init() { begin(); }
    void cleanup() { end(); }
    void addsChosenSongsToThePlaylist();
    void keepsUndoAndChoiceAfterASave();
    void keepsChangesWhileTheMemoryIsAway();
    void asksBeforeAnActionWhatBecomesOfChanges();
    void removesTheChosenSong();
    void offersTheActionsInAMenu();
    void marksPlaylistsWithFaults();
    void exportsTheListThatIsShown();
    void keepsUnsavedChangesOverATransfer();
    void keepsUnsavedChangesIfTheIndexIsWrittenElsewhere();
    void leavesAMemoryAloneThatIsPulledOut();
    void transfersTheSongsOfTheTable();
    void transfersNothingFromAnEmptyTable();
    void transfersDroppedFiles();
    void keepsTheOrderOfFilesWithoutARefusedOne();
    void writesNothingToAMemoryInUse();

private:
    /// Copies the songs of the table to the memory.
    void transfer()
    {
        m_sample->script.expect("brisel::TransferPlanDialog", [](QWidget *dialog) {
            DialogScript::click(dialog, u"copyPushButton"_qs);
        });
        m_sample->script.expectMessage(u"Trasferimento"_qs,
                                       u"Tutti i file sono stati copiati correttamente"_qs,
                                       QMessageBox::Ok);
        button("transferPushButton")->click();
    }
    /// Makes a song on the computer.
    QString makeSong(const QString &name, const QByteArray &title) const
    {
        makeFile(m_sample->at(name), Sample::midiSong(title, "X", "POP"));
        return m_sample->at(name);
    }
    /// Drops files on the playlist, before its first song.
    void dropFiles(const QStringList &paths) const
    {
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls.append(QUrl::fromLocalFile(path));
        QMimeData data;
        data.setUrls(urls);
        find<QTableView>("entriesTableView")
            ->model()
            ->dropMimeData(&data, Qt::CopyAction, 0, 0, {});
    }
    /// Of the songs of the playlist.
    QStringList titles() const
    {
        const QAbstractItemModel *entries = find<QTableView>("entriesTableView")->model();
        QStringList texts;
        for (int row = 0; row < entries->rowCount(); ++row)
            texts.append(entries->index(row, 1).data().toString());
        return texts;
    }
    QPushButton *button(const char *name) const { return find<QPushButton>(name); }
    QAction *actionOf(const char *toolBar, const QString &text) const
    {
        for (QAction *action : find<QToolBar>(toolBar)->actions()) {
            if (action->text().remove(u'&') == text)
                return action;
        }
        qFatal("no action %s", qPrintable(text));
    }
    QAction *action(const QString &text) const { return actionOf("songActionsToolBar", text); }
    QAction *memoryAction(const QString &text) const
    {
        return actionOf("memoryActionsToolBar", text);
    }
    void choose(int row) const { songs()->setCurrentIndex(songs()->model()->index(row, 0)); }
    QByteArray playlist() const { return m_memory->read(u"playlist/play0007.dat"_qs); }
};

void TestMemoryParts::addsChosenSongsToThePlaylist()
{
    openWithChange();
    button("undoPushButton")->click();
    choose(0); // "FOUR"
    button("addToPlaylistPushButton")->click();
    button("savePushButton")->click();
    QCOMPARE(playlist(), HandMadeSet::one() + HandMadeSet::four());
    QVERIFY(!playlists().isModified());
}

void TestMemoryParts::keepsUndoAndChoiceAfterASave()
{
    openWithChange();
    choose(2);
    button("savePushButton")->click();
    const QByteArray saved = playlist();
    QCOMPARE(saved.size(), 128);
    QCOMPARE(songs()->currentIndex().row(), 2);
    QVERIFY(button("undoPushButton")->isEnabled());
    button("undoPushButton")->click();
    button("savePushButton")->click();
    QCOMPARE(playlist(), HandMadeSet::one());
}

void TestMemoryParts::keepsChangesWhileTheMemoryIsAway()
{
    openWithChange();
    const QString away = m_sample->at(u"away"_qs);
    QVERIFY(QDir().rename(m_memory->root(), away));
    QTRY_COMPARE(text("stateLabel"), u"La memoria non è più presente"_qs);
    QVERIFY(!playlists().isEnabled());
    QVERIFY(playlists().isModified());
    QVERIFY(QDir().rename(away, m_memory->root()));
    QTRY_VERIFY(playlists().isEnabled());
    waitForLook();
    QVERIFY(playlists().isModified());
    button("savePushButton")->click();
    QCOMPARE(playlist().size(), 128);
}

void TestMemoryParts::asksBeforeAnActionWhatBecomesOfChanges()
{
    openWithChange();
    choose(0);
    answerUnsaved(QMessageBox::Cancel);
    action(u"Rimuovi dalla memoria..."_qs)->trigger();
    QVERIFY(playlists().isModified());
    QVERIFY(m_memory->has(u"BASI/D.MP3"_qs));
}

void TestMemoryParts::removesTheChosenSong()
{
    m_memory->write(u"playlist/playlist.dat"_qs, Sample::hex("0700") + QByteArray(30, '\x55'));
    m_memory->write(u"playlist/play0007.dat"_qs, HandMadeSet::four() + HandMadeSet::one());
    open();
    choose(0);
    m_sample->script.expect("QMessageBox", [](QWidget *widget) {
        qobject_cast<QMessageBox *>(widget)->button(QMessageBox::Yes)->click();
    });
    m_sample->script.expect("QMessageBox", [](QWidget *widget) {
        QVERIFY(qobject_cast<QMessageBox *>(widget)->text().startsWith(u"1 song rimoss"_qs));
        widget->close();
    });
    action(u"Rimuovi dalla memoria..."_qs)->trigger();
    QVERIFY(!m_memory->has(u"BASI/D.MP3"_qs));
    QCOMPARE(playlist().size(), 64);
    QCOMPARE(playlist().mid(4, 3), QByteArray("ONE"));
    QTRY_COMPARE(m_window->contents()->size(), 3);
}

void TestMemoryParts::offersTheActionsInAMenu()
{
    openWithChange();
    button("undoPushButton")->click();
    choose(0);
    m_sample->script.expectMenu([](QMenu *menu) {
        QStringList texts;
        for (const QAction *entry : menu->actions())
            texts.append(entry->text().remove(u'&'));
        QCOMPARE(texts, QStringList({u"Rimuovi dalla memoria..."_qs, u"Rinomina..."_qs,
                                     u"Copia sul computer..."_qs, QString(),
                                     u"Aggiungi le song scelte"_qs}));
        menu->actions().constLast()->trigger();
    });
    emit songs()->customContextMenuRequested({3, 4});
    QVERIFY(playlists().isModified());
}

void TestMemoryParts::marksPlaylistsWithFaults()
{
    m_memory->write(u"playlist/playlist.dat"_qs, Sample::hex("0700") + QByteArray(30, '\x55'));
    m_memory->write(u"playlist/play0007.dat"_qs,
                    HandMadeSet::one() + Sample::songRecord("00000777", "GONE", "7800"));
    open();
    const auto *table = find<QTableView>("entriesTableView");
    QVERIFY(!table->model()->index(0, 1).data(Qt::DecorationRole).isValid());
    QVERIFY(table->model()->index(1, 1).data(Qt::DecorationRole).isValid());
    m_memory->remove(u"A.MID"_qs); // the song 0, "ONE"
    m_window->readAgain();
    waitForLook();
    QVERIFY(table->model()->index(0, 1).data(Qt::DecorationRole).isValid());
}

void TestMemoryParts::transfersTheSongsOfTheTable()
{
    m_sample->import({u"new.mid"_qs});
    open();
    transfer();
    QVERIFY(m_memory->has(u"songs/new.mid"_qs));
    QCOMPARE(m_window->contents()->size(), 5);
}

void TestMemoryParts::leavesAMemoryAloneThatIsPulledOut()
{
    m_memory->addPlaylist(HandMadeSet::one());
    open();
    auto service = std::make_unique<WaitingService>();
    UnmountService &answer = *service;
    m_window->findChild<MemoryActions *>()->setUnmountService(std::move(service));
    memoryAction(u"Rimozione sicura"_qs)->trigger();
    QCOMPARE(text("stateLabel"), u"Preparo la rimozione della memoria..."_qs);
    QVERIFY(!button("transferPushButton")->isEnabled());
    QVERIFY(!find<QWidget>("splitter")->isEnabled());
    m_window->readAgain();
    QVERIFY(QTest::qWaitForWindowActive(m_sample->window.get()));
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    QCOMPARE(m_window->contents()->size(), 0);
    m_sample->script.expect("QMessageBox", [](QWidget *dialog) { dialog->close(); });
    emit answer.finished(SafeRemoval::Outcome::Busy, {});
    QCOMPARE(m_window->contents()->size(), 4);
    QVERIFY(button("transferPushButton")->isEnabled());
}

void TestMemoryParts::exportsTheListThatIsShown()
{
    open();
    find<QComboBox>("listComboBox")->setCurrentIndex(4);
    m_sample->script.expect("brisel::ExportListDialog", [](QWidget *dialog) {
        QCOMPARE(dialog->findChild<QComboBox *>(u"orderComboBox"_qs)->currentIndex(), 1);
        QCOMPARE(dialog->findChild<QComboBox *>(u"songsComboBox"_qs)->currentIndex(), 1);
        dialog->close();
    });
    memoryAction(u"Esporta elenco..."_qs)->trigger();
    QVERIFY(m_sample->script.isDone());
}

void TestMemoryParts::keepsUnsavedChangesOverATransfer()
{
    m_sample->import({u"new.mid"_qs});
    openWithChange();
    transfer();
    QCOMPARE(m_window->contents()->size(), 5);
    QVERIFY(playlists().isModified());
    button("savePushButton")->click();
    QCOMPARE(playlist(), HandMadeSet::one() + HandMadeSet::three());
}

void TestMemoryParts::keepsUnsavedChangesIfTheIndexIsWrittenElsewhere()
{
    openWithChange();
    // Before the window has seen it, the memory gets an index without the song 1, "TWO".
    const QByteArray paths = m_memory->read(u"index.id2"_qs);
    m_memory->write(u"index.id2"_qs, paths.first(64) + paths.sliced(128));
    m_memory->write(u"title.id2"_qs,
                    HandMadeSet::four() + HandMadeSet::one() + HandMadeSet::three());
    m_sample->script.expectMessage(
        u"Playlist"_qs,
        u"Le playlist non sono state salvate: nel frattempo la memoria è stata cambiata, e ora "
        u"viene letta di nuovo."_qs,
        QMessageBox::Ok);
    QVERIFY(!playlists().save());
    QCOMPARE(m_window->contents()->size(), 3);
    QCOMPARE(playlist(), HandMadeSet::one());
    QVERIFY(playlists().isModified());
    button("savePushButton")->click();
    QCOMPARE(playlist(), HandMadeSet::one() + HandMadeSet::three());
}

void TestMemoryParts::transfersNothingFromAnEmptyTable()
{
    open();
    m_sample->script.expectMessage(u"Trasferimento"_qs, u"Non ci sono song da trasferire"_qs,
                                   QMessageBox::Ok);
    button("transferPushButton")->click();
    QCOMPARE(m_window->contents()->size(), 4);
}

void TestMemoryParts::transfersDroppedFiles()
{
    openWithChange();
    button("undoPushButton")->click();
    const QString song = makeSong(u"dropped.mid"_qs, "DROPPED");
    m_sample->script.expectMessage(
        u"Trasferimento"_qs, u"Tutti i file sono stati copiati correttamente"_qs, QMessageBox::Ok);
    dropFiles({song});
    QTRY_COMPARE(m_window->contents()->size(), 5);
    QTRY_VERIFY(playlists().isModified());
    button("savePushButton")->click();
    QCOMPARE(playlist().size(), 128);
    QCOMPARE(playlist().mid(4, 7), QByteArray("DROPPED"));
}

/// Another song with the name of the second file stays on the memory.
void TestMemoryParts::keepsTheOrderOfFilesWithoutARefusedOne()
{
    m_memory->write(u"songs/second.mid"_qs, Sample::midiSong("OTHER", "X", "POP"));
    openWithChange();
    button("undoPushButton")->click();
    m_sample->script.expect("NoCopyrightDialog", [](QWidget *dialog) {
        DialogScript::click(dialog, u"noPushButton"_qs);
    });
    m_sample->script.expectMessage(
        u"Trasferimento"_qs, u"Tutti i file sono stati copiati correttamente"_qs, QMessageBox::Ok);
    m_sample->script.expectMessage(u"Playlist"_qs, u"Song aggiunte alla playlist: 3 di 4."_qs,
                                   QMessageBox::Ok);
    dropFiles({makeSong(u"first.mid"_qs, "FIRST"), makeSong(u"second.mid"_qs, "SECOND"),
               m_memory->path(u"A.MID"_qs), makeSong(u"third.mid"_qs, "THIRD")});
    QTRY_VERIFY(m_sample->script.isDone());
    QCOMPARE(titles(), QStringList({u"FIRST"_qs, u"ONE"_qs, u"THIRD"_qs, u"ONE"_qs}));
}

void TestMemoryParts::writesNothingToAMemoryInUse()
{
    openWithChange();
    button("undoPushButton")->click();
    const FolderLock lock(m_memory->root(), FolderLock::Kind::Shared);
    m_sample->script.expectMessage(u"Trasferimento"_qs, RunDialog::inUseText(), QMessageBox::Ok);
    m_sample->script.expectMessage(u"Playlist"_qs, u"Song aggiunte alla playlist: 0 di 1."_qs,
                                   QMessageBox::Ok);
    dropFiles({makeSong(u"dropped.mid"_qs, "DROPPED")});
    QTRY_VERIFY(m_sample->script.isDone());
    QVERIFY(!QFileInfo::exists(m_memory->path(u"songs"_qs)));
}

BRISEL_TEST(QApplication, TestMemoryParts)
#include "tst_memoryparts.moc"
