#include "base/filefailure.h"
#include "index/recentmemories.h"
#include "tests/app/memorywindowtest.h"
#include "tests/smalldisk.h"
#include "tests/testprogram.h"

#include <QListView>
#include <QProcess>
#include <QPushButton>
#include <QTableView>

using namespace brisel;

/// The window of the memory, and the memories that are mounted and removed while it is open.
class TestMemoryWindow : public MemoryWindowTest
{
    Q_OBJECT

private slots:
    void init() { begin(); }
    void cleanup() { end(); }
    void opensOnce();
    void opensNothingDuringARun();
    void keepsItsPlace();
    void fitsASmallScreen();
    void closesWithTheMainWindow();
    void asksBeforeItCloses();
    void showsTheState();
    void showsHowIndexAndSongsDiffer();
    void speaksEnglish();
    void saysThatThereIsNoMemory();
    void saysThatAMemoryIsNotPrepared();
    void saysThatTheIndexCannotBeRead();
    void saysThatTheIndexIsIncomplete();
    void saysThatAnotherProgramWorks();
    void saysThatTheMemoryIsWriteProtected();
    void followsTheMemories();
    void readsAnotherMemoryInItsPlace();
    void readsWhatAnotherProgramWrote();
    void remembersTheLastMemory();
    void asksBeforeAnotherMemoryIsChosen();
    void waitsForTheEndOfARun();
    void keepsThePlaylistThatIsShown();

private:
    QStringList memories() const
    {
        QStringList names;
        const auto *box = find<QComboBox>("memoryComboBox");
        for (int i = 0; i < box->count(); ++i)
            names.append(box->itemText(i));
        return names;
    }
    void choose(const QString &name) const
    {
        auto *box = find<QComboBox>("memoryComboBox");
        box->setFocus();
        box->setCurrentText(name);
        emit box->activated(box->currentIndex());
    }
};

void TestMemoryWindow::opensOnce()
{
    open();
    QVERIFY(m_window->isWindow());
    QVERIFY(!m_window->isModal());
    m_sample->window->findChild<QAction *>(u"actionMemory"_qs)->trigger();
    QCOMPARE(m_sample->window->findChildren<MemoryWindow *>().size(), 1);
    DialogScript::click(m_window, u"closePushButton"_qs);
    QTRY_VERIFY(m_window == nullptr);
    open();
}

void TestMemoryWindow::opensNothingDuringARun()
{
    const RunGuard guard;
    m_sample->window->findChild<QAction *>(u"actionMemory"_qs)->trigger();
    QVERIFY(m_sample->window->findChild<MemoryWindow *>() == nullptr);
}

void TestMemoryWindow::keepsItsPlace()
{
    open();
    m_window->setGeometry(5, 40, 790, 530);
    QCoreApplication::processEvents();
    const QRect place = m_window->geometry();
    m_window->close();
    QTRY_VERIFY(m_window == nullptr);
    open();
    QCOMPARE(m_window->geometry(), place);
}

void TestMemoryWindow::fitsASmallScreen()
{
    open();
    const QSize least = m_window->minimumSizeHint();
    QVERIFY2(least.width() <= 1000 && least.height() <= 560,
             qPrintable(u"%1x%2"_qs.arg(least.width()).arg(least.height())));
}

void TestMemoryWindow::closesWithTheMainWindow()
{
    open();
    m_sample->window->close();
    QTRY_VERIFY(m_window == nullptr);
    QVERIFY(!m_sample->window->isVisible());
}

void TestMemoryWindow::asksBeforeItCloses()
{
    openWithChange();
    answerUnsaved(QMessageBox::Cancel);
    m_sample->window->close();
    QVERIFY(m_sample->window->isVisible());
    QVERIFY(m_window->isVisible());
    answerUnsaved(QMessageBox::Discard);
    m_window->close();
}

void TestMemoryWindow::showsTheState()
{
    open();
    QCOMPARE(text("stateLabel"), u"Indice e song concordano"_qs);
    QVERIFY2(text("songsLabel").startsWith(u"4 song, indice del "_qs),
             qPrintable(text("songsLabel")));
    const QString space = find<QProgressBar>("spaceProgressBar")->format();
    QVERIFY2(space.contains(u" liberi di "_qs), qPrintable(space));
    QCOMPARE(memories(), QStringList(u"CARD"_qs));
    QCOMPARE(m_window->root(), m_memory->root());
}

void TestMemoryWindow::showsHowIndexAndSongsDiffer()
{
    m_memory->remove(u"A.MID"_qs);
    m_memory->setDate(u"C.KAR"_qs, QDateTime({2010, 1, 1}, {0, 0}, QTimeZone::utc()));
    m_memory->write(u"NEW.MID"_qs, "12345");
    m_memory->write(u"NEW2.MID"_qs, "12345");
    open();
    QCOMPARE(text("stateLabel"), u"Da aggiornare: 2 nuove, 1 mancanti, 1 cambiate"_qs);
    m_memory->write(u"A.MID"_qs, m_memory->read(u"C.KAR"_qs));
    dateSongs(*m_memory);
    m_memory->remove(u"NEW2.MID"_qs);
    m_window->readAgain();
    waitForLook();
    QCOMPARE(text("stateLabel"), u"Da aggiornare: 1 nuove"_qs);
    m_sample->changeLanguage(u"it"_qs);
    QCOMPARE(text("stateLabel"), u"Da aggiornare: 1 nuova"_qs);
}

void TestMemoryWindow::speaksEnglish()
{
    m_memory->remove(u"A.MID"_qs);
    open();
    m_sample->changeLanguage(u"en"_qs);
    QCOMPARE(m_window->windowTitle(), u"Memory"_qs);
    QCOMPARE(text("stateLabel"), u"To be updated: 1 missing"_qs);
    QVERIFY(text("songsLabel").startsWith(u"4 songs, index of "_qs));
    QVERIFY(find<QProgressBar>("spaceProgressBar")->format().contains(u" free of "_qs));
    QCOMPARE(find<QComboBox>("listComboBox")->itemText(3), u"MP3 by title"_qs);
    QCOMPARE(songs()->model()->headerData(1, Qt::Horizontal).toString(), u"Path"_qs);
    QCOMPARE(column(songs(), 5).at(1), u"the file is missing"_qs);
    QCOMPARE(text("foldersLabel"), u"There are only the songs of the index on the memory"_qs);
    m_sample->changeLanguage(u"it"_qs);
    QCOMPARE(column(songs(), 5).at(1), u"il file non c'è"_qs);
}

void TestMemoryWindow::saysThatThereIsNoMemory()
{
    qputenv("BRISEL_VOLUMES", QFile::encodeName(m_memory->path(u"nothing"_qs)));
    open();
    QCOMPARE(text("stateLabel"), u"Nessuna memoria è collegata al computer"_qs);
    QVERIFY(!find<QComboBox>("memoryComboBox")->isEnabled());
    QVERIFY(!find<QWidget>("splitter")->isEnabled());
    QCOMPARE(m_window->root(), QString());
    QVERIFY(QDir().mkpath(m_memory->path(u"nothing/NEW"_qs)));
    QTRY_COMPARE(memories(), QStringList(u"NEW"_qs));
    QVERIFY(find<QWidget>("splitter")->isEnabled());
}

void TestMemoryWindow::saysThatAMemoryIsNotPrepared()
{
    const QStringList names = m_memory->rootFiles().keys();
    for (const QString &name : names) {
        if (name.endsWith(u".id2"_qs))
            m_memory->remove(name);
    }
    open();
    QCOMPARE(text("stateLabel"), u"La memoria non è preparata per Brisel"_qs);
    QCOMPARE(text("songsLabel"), QString());
    QTRY_COMPARE(column(folders(), 0).size(), 1);
    QCOMPARE(column(folders(), 0, group(folders(), 0)).size(), 4);
}

void TestMemoryWindow::saysThatTheIndexCannotBeRead()
{
    m_memory->remove(u"index.id2"_qs);
    QVERIFY(QFile::link(u"index.id2"_qs, m_memory->path(u"index.id2"_qs)));
    open();
    QCOMPARE(text("stateLabel"), u"L'indice della memoria non si può leggere"_qs);
    QCOMPARE(text("foldersLabel"), u"La memoria non è ancora letta"_qs);
}

void TestMemoryWindow::saysThatTheIndexIsIncomplete()
{
    m_memory->remove(u"fsinfos.id2"_qs);
    open();
    QCOMPARE(text("stateLabel"), u"L'indice è incompleto. Indice e song concordano"_qs);
}

void TestMemoryWindow::saysThatAnotherProgramWorks()
{
    // Locks of one process are shared; the child's is not.
    QProcess other;
    other.start(u"flock"_qs, {m_memory->root(), u"cat"_qs});
    if (!other.waitForStarted())
        QSKIP("there is no flock");
    other.write("x");
    QVERIFY(other.waitForReadyRead());
    open();
    QCOMPARE(text("stateLabel"),
             u"Un altro programma sta lavorando su questa memoria. Riprovare quando ha finito."_qs);
    other.closeWriteChannel();
    QVERIFY(other.waitForFinished());
    QTRY_COMPARE(text("stateLabel"), u"Indice e song concordano"_qs);
}

void TestMemoryWindow::saysThatTheMemoryIsWriteProtected()
{
    QVERIFY(QDir().mkpath(volumes() + u"/DISK"_qs));
    const SmallDisk disk(volumes() + u"/DISK"_qs, SmallDisk::memorySize);
    if (!disk.isMounted())
        QSKIP("only root can mount a file system");
    open();
    choose(u"DISK"_qs);
    QVERIFY(find<QPushButton>("transferPushButton")->isEnabled());
    QVERIFY(disk.setReadOnly(true));
    QTRY_COMPARE(text("stateLabel"),
                 u"La memoria non è preparata per Brisel. Non si può modificare: %1"_qs.arg(
                     FileReason::writeProtected.text()));
    QVERIFY(!find<QPushButton>("transferPushButton")->isEnabled());
    choose(u"CARD"_qs);
    QVERIFY(find<QPushButton>("transferPushButton")->isEnabled());
}

void TestMemoryWindow::followsTheMemories()
{
    open();
    QVERIFY(QDir().mkpath(volumes() + u"/MORE"_qs));
    QTRY_COMPARE(memories(), QStringList({u"CARD"_qs, u"MORE"_qs}));
    QCOMPARE(find<QComboBox>("memoryComboBox")->currentText(), u"CARD"_qs);
    QVERIFY(QDir().rename(m_memory->root(), m_sample->at(u"away"_qs)));
    QTRY_COMPARE(text("stateLabel"), u"La memoria non è più presente"_qs);
    QCOMPARE(memories(), QStringList({u"MORE"_qs, u"CARD"_qs}));
    QCOMPARE(find<QComboBox>("memoryComboBox")->currentText(), u"CARD"_qs);
    QVERIFY(!find<QWidget>("splitter")->isEnabled());
    QCOMPARE(songs()->model()->rowCount(), 0);
    QCOMPARE(m_window->contents()->size(), 0);
    QVERIFY(QDir().rename(m_sample->at(u"away"_qs), m_memory->root()));
    QTRY_COMPARE(text("stateLabel"), u"Indice e song concordano"_qs);
    QVERIFY(find<QWidget>("splitter")->isEnabled());
    QCOMPARE(songs()->model()->rowCount(), 4);
    QVERIFY(QDir().rmdir(volumes() + u"/MORE"_qs));
    QTRY_COMPARE(memories(), QStringList(u"CARD"_qs));
}

void TestMemoryWindow::readsAnotherMemoryInItsPlace()
{
    open();
    QVERIFY(QDir().mkpath(m_sample->at(u"other"_qs)));
    QVERIFY(QDir().rename(m_memory->root(), m_sample->at(u"away"_qs)));
    QVERIFY(QDir().rename(m_sample->at(u"other"_qs), m_memory->root()));
    QTRY_COMPARE(text("stateLabel"), u"La memoria non è preparata per Brisel"_qs);
    QCOMPARE(songs()->model()->rowCount(), 0);
    QVERIFY(QDir().rmdir(m_memory->root()));
    QVERIFY(QDir().rename(m_sample->at(u"away"_qs), m_memory->root()));
    QTRY_COMPARE(songs()->model()->rowCount(), 4);
}

void TestMemoryWindow::readsWhatAnotherProgramWrote()
{
    openWithChange();
    m_sample->window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_sample->window.get()));
    m_memory->cut(u"index.id2"_qs, 64);
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    QCOMPARE(m_window->contents()->size(), 4);
    m_sample->window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_sample->window.get()));
    find<QPushButton>("undoPushButton")->click();
    m_window->activateWindow();
    QTRY_COMPARE(m_window->contents()->size(), 3);
}

void TestMemoryWindow::remembersTheLastMemory()
{
    QVERIFY(QDir().mkpath(volumes() + u"/ALPHA"_qs));
    open();
    QCOMPARE(find<QComboBox>("memoryComboBox")->currentText(), u"ALPHA"_qs);
    choose(u"CARD"_qs);
    QCOMPARE(m_window->contents()->size(), 4);
    QCOMPARE(recentMemories(), QStringList(m_memory->root()));
    m_window->close();
    QTRY_VERIFY(m_window == nullptr);
    open();
    QCOMPARE(find<QComboBox>("memoryComboBox")->currentText(), u"CARD"_qs);
}

void TestMemoryWindow::asksBeforeAnotherMemoryIsChosen()
{
    QVERIFY(QDir().mkpath(volumes() + u"/MORE"_qs));
    openWithChange();
    answerUnsaved(QMessageBox::Cancel);
    choose(u"MORE"_qs);
    QCOMPARE(find<QComboBox>("memoryComboBox")->currentText(), u"CARD"_qs);
    QCOMPARE(m_window->contents()->size(), 4);
    answerUnsaved(QMessageBox::Discard);
    choose(u"MORE"_qs);
    QCOMPARE(m_window->contents()->size(), 0);
}

void TestMemoryWindow::waitsForTheEndOfARun()
{
    open();
    m_memory->cut(u"index.id2"_qs, 64);
    {
        const RunGuard guard;
        m_window->readAgain();
        QTest::qWait(50);
        QCOMPARE(m_window->contents()->size(), 4);
    }
    QTRY_COMPARE(m_window->contents()->size(), 3);
}

void TestMemoryWindow::keepsThePlaylistThatIsShown()
{
    m_memory->write(u"playlist/playlist.dat"_qs, Sample::hex("0700") + QByteArray(30, '\0') +
                                                     Sample::hex("0800") + QByteArray(30, '\0'));
    for (const QString &name : {u"playlist/play0007.dat"_qs, u"playlist/play0008.dat"_qs})
        m_memory->write(name, HandMadeSet::one());
    open();
    auto *list = find<QListView>("playlistsListView");
    QCOMPARE(list->currentIndex().row(), 0);
    list->setCurrentIndex(list->model()->index(1, 0));
    changePlaylist();
    DialogScript::click(m_window, u"savePushButton"_qs);
    QTRY_VERIFY(!playlists().isModified());
    QCOMPARE(m_memory->read(u"playlist/play0008.dat"_qs).size(), 128);
    QCOMPARE(list->currentIndex().row(), 1);
    QCOMPARE(find<QTableView>("entriesTableView")->model()->rowCount(), 2);
}

BRISEL_TEST(QApplication, TestMemoryWindow)
#include "tst_memorywindow.moc"
