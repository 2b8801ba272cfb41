#include "memory/dialogs/playlistspanel.h"

#include "base/runguard.h"
#include "base/settingsstore.h"
#include "tests/dialogscript.h"
#include "tests/memory/openpanel.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QTranslator>

using namespace brisel;

using namespace Sample;

/// The playlists of a memory as the user changes them.
class TestPlaylistsPanel : public QObject
{
    Q_OBJECT

private slots:
    void showsPlaylistsAndEntries();
    void movesAndRemovesByKeys();
    void undoesAndRedoes();
    void showsThePlaylistThatUndoChanges();
    void showsThePlaylistThatUndoEmpties();
    void addsSongsAtTheEnd();
    void savesAndStaysSaved();
    void showsWhyNothingWasSaved();
    void showsThatARunPreventsASave();
    void asksBeforeChangesAreLost();
    void marksMissingSongsAfterDiscardedChanges();
    void changesNothingThatIsReadOnly();
    void writesASetList();
    void showsWhyNoSetListWasWritten();
    void asksForAPrinter();
    void speaksBothLanguages();
    void hasAccessibleNames();
};

void TestPlaylistsPanel::showsPlaylistsAndEntries()
{
    const OpenPanel open(volare + deadSong + wrongSong);
    QCOMPARE(open.nameOf(0), u"Playlist 7 (3) - da riparare: 2"_qs);
    QCOMPARE(open.nameOf(1), u"Playlist 8 (il file manca)"_qs);
    QCOMPARE(open.column(0), u"1 2 3"_qs);
    QCOMPARE(open.titles(), u"VOLARE ANCORA AZZURRO"_qs);
    QCOMPARE(open.column(2), u"120 97 "_qs);
    QCOMPARE(open.column(3), u"MIDI MIDI MP3"_qs);
    const QAbstractItemModel *entries = open.table()->model();
    QCOMPARE(entries->index(0, 4).data().toString(), QString());
    QCOMPARE(entries->index(1, 4).data().toString(), u"la song non è nell'indice della memoria"_qs);
    QCOMPARE(entries->index(2, 4).data().toString(), u"il player suona un'altra song: VOLARE"_qs);
    open.list()->setCurrentIndex(open.list()->model()->index(1, 0));
    QCOMPARE(open.titles(), QString());
    for (const char *name :
         {"up", "down", "remove", "repair", "undo", "redo", "print", "pdf", "save"})
        QVERIFY2(!open.button(name)->isEnabled(), name);
}

void TestPlaylistsPanel::movesAndRemovesByKeys()
{
    const OpenPanel open(volare + azzurro + nessuno);
    open.table()->setFocus();
    open.table()->selectRow(0);
    QVERIFY(!open.button("up")->isEnabled());
    QTest::keyClick(open.table(), Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(open.table(), Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(open.titles(), u"AZZURRO NESSUNO VOLARE"_qs);
    QVERIFY(!open.button("down")->isEnabled());
    QTest::keyClick(open.table(), Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(open.titles(), u"AZZURRO VOLARE NESSUNO"_qs);
    QCOMPARE(open.nameOf(0), u"Playlist 7 * (3)"_qs);
    QTest::keyClick(open.table(), Qt::Key_Delete);
    QCOMPARE(open.titles(), u"AZZURRO NESSUNO"_qs);
    QCOMPARE(open.table()->currentIndex().row(), 1);
}

void TestPlaylistsPanel::undoesAndRedoes()
{
    OpenPanel open(volare + azzurro);
    const QSignalSpy modified(&open.panel, &PlaylistsPanel::modifiedChanged);
    open.table()->setFocus();
    open.table()->selectRow(0);
    open.click("remove");
    QVERIFY(open.panel.isModified());
    QTest::keySequence(open.table(), QKeySequence(QKeySequence::Undo));
    QCOMPARE(open.titles(), u"VOLARE AZZURRO"_qs);
    QVERIFY(!open.panel.isModified());
    QTest::keySequence(open.table(), QKeySequence(QKeySequence::Redo));
    QCOMPARE(open.titles(), u"AZZURRO"_qs);
    QCOMPARE(modified.size(), 3);
    open.click("undo");
    QVERIFY(!open.button("undo")->isEnabled());
    open.click("redo");
    QVERIFY(!open.button("redo")->isEnabled());
}

void TestPlaylistsPanel::showsThePlaylistThatUndoChanges()
{
    OpenPanel open(volare + azzurro);
    open.table()->selectRow(1);
    open.click("remove");
    open.list()->setCurrentIndex(open.list()->model()->index(1, 0));
    open.click("undo");
    QCOMPARE(open.list()->currentIndex().row(), 0);
    QCOMPARE(open.titles(), u"VOLARE AZZURRO"_qs);
    QVERIFY(open.table()->selectionModel()->isRowSelected(1));
}

/// No entry can be selected then.
void TestPlaylistsPanel::showsThePlaylistThatUndoEmpties()
{
    OpenPanel open(QByteArray(""));
    const auto showOther = [&open] {
        open.list()->setCurrentIndex(open.list()->model()->index(1, 0));
    };
    open.panel.addSongs({9});
    showOther();
    open.click("undo");
    QCOMPARE(open.list()->currentIndex().row(), 0);
    open.click("redo");
    open.table()->selectRow(0);
    open.click("remove");
    open.click("undo");
    showOther();
    open.click("redo");
    QCOMPARE(open.list()->currentIndex().row(), 0);
    QCOMPARE(open.titles(), QString());
}

void TestPlaylistsPanel::addsSongsAtTheEnd()
{
    OpenPanel open(volare);
    open.panel.addSongs({9, 5});
    QCOMPARE(open.titles(), u"VOLARE NESSUNO AZZURRO"_qs);
    open.list()->setCurrentIndex(open.list()->model()->index(1, 0));
    DialogScript script;
    script.expectMessage(u"Playlist"_qs, u"Scegli prima una playlist che si può modificare."_qs,
                         QMessageBox::Ok);
    open.panel.addSongs({9});
    QVERIFY(script.isDone());
}

void TestPlaylistsPanel::savesAndStaysSaved()
{
    OpenPanel open(volare + azzurro);
    QObject::connect(&open.panel, &PlaylistsPanel::saved, &open.panel,
                     [&open] { open.panel.setContents(readContents(open.memory)); });
    open.table()->selectRow(0);
    open.click("remove");
    open.click("save");
    QCOMPARE(open.memory.read(songsOf7), azzurro);
    QCOMPARE(open.memory.read(pathsOf7), azzurroPath);
    QVERIFY(!open.panel.isModified());
    QVERIFY(!open.button("save")->isEnabled());
    open.click("undo");
    QVERIFY(open.panel.save());
    QCOMPARE(open.memory.read(songsOf7), volare + azzurro);
}

void TestPlaylistsPanel::showsWhyNothingWasSaved()
{
    OpenPanel open(volare + azzurro);
    open.panel.addSongs({9});
    open.memory.write(songsOf7, azzurro);
    DialogScript script;
    script.expectMessage(
        u"Playlist"_qs,
        u"Le playlist non sono state salvate: nel frattempo la memoria è stata cambiata, e "
        "ora viene letta di nuovo."_qs,
        QMessageBox::Ok);
    QVERIFY(!open.panel.save());
    QVERIFY(script.isDone());
    QVERIFY(open.panel.isModified());
}

void TestPlaylistsPanel::showsThatARunPreventsASave()
{
    OpenPanel open(volare);
    open.panel.addSongs({9});
    DialogScript script;
    script.expectMessage(u"Playlist"_qs,
                         u"Le playlist non sono state salvate: un'altra operazione è in corso."_qs,
                         QMessageBox::Ok);
    const RunGuard run;
    QVERIFY(!open.panel.save());
    QVERIFY(script.isDone());
}

void TestPlaylistsPanel::asksBeforeChangesAreLost()
{
    OpenPanel open(volare + azzurro);
    QVERIFY(open.panel.mayDiscard());
    open.panel.addSongs({9});
    const QString question = u"Le playlist sono state modificate. Salvarle sulla memoria?"_qs;
    DialogScript script;
    script.expectMessage(u"Playlist"_qs, question, QMessageBox::Cancel);
    QVERIFY(!open.panel.mayDiscard());
    script.expectMessage(u"Playlist"_qs, question, QMessageBox::Discard);
    QVERIFY(open.panel.mayDiscard());
    QVERIFY(!open.panel.isModified());
    QCOMPARE(open.memory.read(songsOf7), volare + azzurro);
    open.panel.addSongs({9});
    script.expectMessage(u"Playlist"_qs, question, QMessageBox::Save);
    QVERIFY(open.panel.mayDiscard());
    QCOMPARE(open.memory.read(songsOf7), volare + azzurro + nessuno);
    QVERIFY(script.isDone());
}

void TestPlaylistsPanel::marksMissingSongsAfterDiscardedChanges()
{
    OpenPanel open(volare + azzurro);
    open.table()->selectRow(1);
    open.panel.setMissing({0});
    QVERIFY(open.table()->selectionModel()->isRowSelected(1));
    QCOMPARE(open.column(4), u"il file della song manca "_qs);
    QCOMPARE(open.nameOf(0), u"Playlist 7 (2) - da riparare: 1"_qs);
    open.panel.addSongs({9});
    DialogScript script;
    script.expect("QMessageBox", [](QWidget *box) {
        qobject_cast<QMessageBox *>(box)->button(QMessageBox::Discard)->click();
    });
    QVERIFY(open.panel.mayDiscard());
    QCOMPARE(open.column(4), u"il file della song manca "_qs);
    open.memory.write(u"title.id2"_qs, azzurro + volare);
    open.panel.setContents(readContents(open.memory));
    QCOMPARE(open.column(4), u" "_qs);
}

void TestPlaylistsPanel::changesNothingThatIsReadOnly()
{
    OpenPanel open(volare + azzurro);
    open.panel.addSongs({9});
    open.panel.setReadOnly(u"la memoria è protetta da scrittura"_qs);
    open.table()->selectRow(0);
    for (const char *name : {"up", "down", "remove", "repair", "undo", "redo", "save"})
        QVERIFY2(!open.button(name)->isEnabled(), name);
    QVERIFY(open.button("pdf")->isEnabled());
    open.dropSongs({2}, 0);
    QCOMPARE(open.titles(), u"VOLARE AZZURRO NESSUNO"_qs);
    DialogScript script;
    script.expectMessage(
        u"Playlist"_qs,
        u"Le playlist non sono state salvate: la memoria è protetta da scrittura."_qs,
        QMessageBox::Ok);
    QVERIFY(!open.panel.save());
    QVERIFY(script.isDone());
    QCOMPARE(open.memory.read(songsOf7), volare + azzurro);
    open.panel.setReadOnly({});
    QVERIFY(open.button("save")->isEnabled());
}

void TestPlaylistsPanel::writesASetList()
{
    const OpenPanel open(volare);
    const QString path = open.memory.path(u"list.pdf"_qs);
    DialogScript script;
    script.expect("QFileDialog", [&](QWidget *dialog) {
        DialogScript::chooseFiles(qobject_cast<QFileDialog *>(dialog), {path.chopped(4)});
    });
    open.click("pdf");
    QVERIFY(script.isDone());
    QVERIFY(fileContent(path).startsWith("%PDF-"));
}

void TestPlaylistsPanel::showsWhyNoSetListWasWritten()
{
    const OpenPanel open(volare);
    const QString path = open.memory.path(u"list.pdf"_qs);
    QVERIFY(QFile::link(u"/dev/full"_qs, path));
    DialogScript script;
    script.expect("QFileDialog", [&](QWidget *dialog) {
        DialogScript inner;
        inner.expect("QMessageBox", [](QWidget *question) {
            qobject_cast<QMessageBox *>(question)->button(QMessageBox::Yes)->click();
        });
        DialogScript::chooseFiles(qobject_cast<QFileDialog *>(dialog), {path});
    });
    script.expectMessage(
        u"Playlist"_qs,
        u"La scaletta non è stata salvata: non è stato possibile scrivere il file."_qs,
        QMessageBox::Ok);
    open.click("pdf");
    QVERIFY(script.isDone());
}

void TestPlaylistsPanel::asksForAPrinter()
{
    const OpenPanel open(volare);
    DialogScript script;
    script.expect("QPrintDialog", [](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    open.click("print");
    QVERIFY(script.isDone());
}

void TestPlaylistsPanel::speaksBothLanguages()
{
    OpenPanel open(deadSong);
    QTranslator english;
    QVERIFY(english.load(u":/trans/brisel2pc_en.qm"_qs));
    QVERIFY(QCoreApplication::installTranslator(&english));
    QCoreApplication::processEvents();
    QCOMPARE(open.button("save")->text().remove(u'&'), u"Save"_qs);
    QCOMPARE(open.nameOf(0), u"Playlist 7 (1) - to be repaired: 1"_qs);
    QCOMPARE(open.column(4), u"the song is not in the memory's index"_qs);
    QCoreApplication::removeTranslator(&english);
    QCoreApplication::processEvents();
    QCOMPARE(open.button("save")->text().remove(u'&'), u"Salva"_qs);
}

void TestPlaylistsPanel::hasAccessibleNames()
{
    const OpenPanel open(volare);
    QCOMPARE(open.list()->accessibleName(), u"Playlist della memoria"_qs);
    QCOMPARE(open.table()->accessibleName(), u"Song della playlist"_qs);
    QSet<QString> keys;
    for (const QPushButton *button : open.panel.findChildren<QPushButton *>()) {
        const qsizetype at = button->text().indexOf(u'&');
        QVERIFY2(at >= 0, qPrintable(button->text()));
        const QString key = button->text().mid(at + 1, 1).toLower();
        QVERIFY2(!keys.contains(key), qPrintable(button->text()));
        keys.insert(key);
    }
}

BRISEL_TEST(QApplication, TestPlaylistsPanel)

#include "tst_playlistspanel.moc"
