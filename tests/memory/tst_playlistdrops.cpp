#include "tests/memory/openpanel.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QUrl>

using namespace brisel;

using namespace Sample;

/// What is dropped on the entries of a playlist.
class TestPlaylistDrops : public QObject
{
    Q_OBJECT

private slots:
    void takesDroppedSongs();
    void takesNoSongsOfAnotherMemory();
    void movesEntriesByDragging();
    void takesNoEntriesOfAnotherPlaylist();
    void takesFilesOfThisMemory();
    void transfersOtherFiles();
    void transfersSongsOnly();
    void keepsTheOrderOfDroppedFiles();
    void addsToTheSamePlaylistAfterATransfer();
    void showsWhyNothingIsAddedAfterATransfer_data();
    void showsWhyNothingIsAddedAfterATransfer();
};

void TestPlaylistDrops::takesDroppedSongs()
{
    const OpenPanel open(volare);
    open.dropSongs({9, 5}, 0);
    QCOMPARE(open.titles(), u"NESSUNO AZZURRO VOLARE"_qs);
    open.dropSongs({2}, -1);
    QCOMPARE(open.titles(), u"NESSUNO AZZURRO VOLARE VOLARE"_qs);
    (void)open.drop(qPrintable(songDragType), songDragData(open.memory.root(), {2}) + hex("0000"),
                    -1);
    DialogScript script;
    script.expectMessage(u"Playlist"_qs, u"Song aggiunte alla playlist: 1 di 2."_qs,
                         QMessageBox::Ok);
    open.dropSongs({8, 2}, -1);
    QTRY_VERIFY(script.isDone());
    QCOMPARE(open.titles(), u"NESSUNO AZZURRO VOLARE VOLARE VOLARE"_qs);
}

/// Another process has its own memory, perhaps with the same root.
void TestPlaylistDrops::takesNoSongsOfAnotherMemory()
{
    const OpenPanel open(volare);
    const QByteArray own = songDragData(open.memory.root(), {5});
    for (const QByteArray &other : {songDragData(open.memory.root() + u'2', {5}), '9' + own,
                                    own.mid(own.indexOf('\0') + 1), QByteArray()}) {
        QMimeData data;
        data.setData(songDragType, other);
        QVERIFY(!open.table()->model()->canDropMimeData(&data, Qt::CopyAction, 0, 0, {}));
        (void)open.table()->model()->dropMimeData(&data, Qt::CopyAction, 0, 0, {});
        QCOMPARE(open.titles(), u"VOLARE"_qs);
    }
    open.dropSongs({5}, 0);
    QCOMPARE(open.titles(), u"AZZURRO VOLARE"_qs);
}

void TestPlaylistDrops::movesEntriesByDragging()
{
    const OpenPanel open(volare + azzurro + nessuno);
    const QAbstractItemModel *entries = open.table()->model();
    const std::unique_ptr<QMimeData> dragged(
        entries->mimeData({entries->index(2, 0), entries->index(2, 1)}));
    QVERIFY(!open.table()->model()->dropMimeData(dragged.get(), Qt::MoveAction, 1, 0, {}));
    QCOMPARE(open.titles(), u"VOLARE NESSUNO AZZURRO"_qs);
    // Dropped onto an entry.
    const std::unique_ptr<QMimeData> first(entries->mimeData({entries->index(0, 0)}));
    open.table()->model()->dropMimeData(first.get(), Qt::MoveAction, -1, -1, entries->index(2, 0));
    QCOMPARE(open.titles(), u"NESSUNO VOLARE AZZURRO"_qs);
}

void TestPlaylistDrops::takesNoEntriesOfAnotherPlaylist()
{
    OpenPanel open(volare + azzurro);
    open.memory.write(u"playlist/play0008.dat"_qs, nessuno + azzurro);
    open.panel.setContents(readContents(open.memory));
    const QAbstractItemModel *entries = open.table()->model();
    const std::unique_ptr<QMimeData> dragged(entries->mimeData({entries->index(1, 0)}));
    open.list()->setCurrentIndex(open.list()->model()->index(1, 0));
    QVERIFY(!entries->canDropMimeData(dragged.get(), Qt::MoveAction, 0, 0, {}));
    (void)open.table()->model()->dropMimeData(dragged.get(), Qt::MoveAction, 0, 0, {});
    QCOMPARE(open.titles(), u"NESSUNO AZZURRO"_qs);
}

void TestPlaylistDrops::takesFilesOfThisMemory()
{
    const OpenPanel open(volare);
    DialogScript script;
    script.expectMessage(u"Playlist"_qs, u"Song aggiunte alla playlist: 1 di 2."_qs,
                         QMessageBox::Ok);
    const QList<QUrl> urls{QUrl::fromLocalFile(open.memory.path(u"nessuno.zb3"_qs)),
                           QUrl::fromLocalFile(u"/somewhere/VOLARE.MID"_qs)};
    QMimeData mime;
    mime.setUrls(urls);
    open.table()->model()->dropMimeData(&mime, Qt::CopyAction, 0, 0, {});
    QTRY_VERIFY(script.isDone());
    QCOMPARE(open.titles(), u"NESSUNO VOLARE"_qs);
}

void TestPlaylistDrops::transfersOtherFiles()
{
    OpenPanel open(volare);
    QStringList sent;
    open.panel.setTransfer([&](const QStringList &files) {
        sent = files;
        // The transfer has updated the index.
        const QByteArray added = songRecord("0000000A", "NUOVA", "7800");
        open.memory.write(u"index.id2"_qs,
                          open.memory.read(u"index.id2"_qs) +
                              pathRecord("0000000A", "/NUOVA.MID", "20091231235958"));
        open.memory.write(u"title.id2"_qs, open.memory.read(u"title.id2"_qs) + added);
        return QStringList(open.memory.path(u"NUOVA.MID"_qs));
    });
    open.panel.addSongs({5}); // it stays, not saved
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(u"/somewhere/NUOVA.MID"_qs)});
    open.table()->model()->dropMimeData(&mime, Qt::CopyAction, 0, 0, {});
    QTRY_COMPARE(open.titles(), u"NUOVA VOLARE AZZURRO"_qs);
    QCOMPARE(open.memory.read(songsOf7), volare);
    QCOMPARE(sent, QStringList(u"/somewhere/NUOVA.MID"_qs));
    QVERIFY(open.panel.save());
}

void TestPlaylistDrops::transfersSongsOnly()
{
    OpenPanel open(volare);
    QStringList sent;
    open.panel.setTransfer([&](const QStringList &files) {
        sent = files;
        return QStringList(open.memory.path(u"NESSUNO.ZB3"_qs));
    });
    const QTemporaryDir away;
    QVERIFY(QDir(away.path()).mkdir(u"FOLDER.MID"_qs));
    const QString song = away.filePath(u"NESSUNO.ZB3"_qs);
    DialogScript script; // no message is expected
    open.dropFiles({away.filePath(u"LIST.PDF"_qs), away.filePath(u"FOLDER.MID"_qs), song,
                    away.filePath(u"NESSUNO.CDG"_qs)},
                   0);
    QTRY_COMPARE(open.titles(), u"NESSUNO VOLARE"_qs);
    QCOMPARE(sent, QStringList(song));
    sent.clear();
    open.dropFiles({away.filePath(u"FOLDER.MID"_qs)}, 0);
    QCoreApplication::processEvents();
    QCOMPARE(sent, QStringList());
    QCOMPARE(open.titles(), u"NESSUNO VOLARE"_qs);
    QVERIFY(script.isDone());
    QMimeData list;
    list.setUrls({QUrl::fromLocalFile(away.filePath(u"LIST.PDF"_qs)),
                  QUrl(u"https://example.org/SONG.MID"_qs)});
    QVERIFY(!open.table()->model()->canDropMimeData(&list, Qt::CopyAction, 0, 0, {}));
}

/// One of the files of the computer does not reach the memory.
void TestPlaylistDrops::keepsTheOrderOfDroppedFiles()
{
    OpenPanel open(azzurro);
    open.panel.setTransfer([&](const QStringList &) {
        return QStringList{open.memory.path(u"BASI/VOLARE.MID"_qs), QString(),
                           open.memory.path(u"NESSUNO.ZB3"_qs)};
    });
    DialogScript script;
    script.expectMessage(u"Playlist"_qs, u"Song aggiunte alla playlist: 4 di 5."_qs,
                         QMessageBox::Ok);
    open.dropFiles({u"/away/VOLARE.MID"_qs, open.memory.path(u"NESSUNO.ZB3"_qs),
                    u"/away/LOST.MID"_qs, u"/away/NESSUNO.ZB3"_qs,
                    open.memory.path(u"BASI/VOLARE.MID"_qs)},
                   1);
    QTRY_VERIFY(script.isDone());
    QCOMPARE(open.titles(), u"AZZURRO VOLARE NESSUNO NESSUNO VOLARE"_qs);
}

/// The memory is read again with its playlists in another order, and is away for a moment.
void TestPlaylistDrops::addsToTheSamePlaylistAfterATransfer()
{
    OpenPanel open(volare);
    open.memory.write(u"playlist/play0008.dat"_qs, azzurro);
    open.panel.setContents(readContents(open.memory));
    open.list()->setCurrentIndex(open.list()->model()->index(1, 0));
    QCOMPARE(open.titles(), u"AZZURRO"_qs);
    open.panel.setTransfer([&open](const QStringList &) {
        open.memory.write(u"playlist/playlist.dat"_qs,
                          listRecord("0900") + listRecord("0800") + listRecord("0700"));
        open.panel.updateContents(std::make_shared<MemoryContents>());
        open.panel.updateContents(readContents(open.memory));
        open.list()->setCurrentIndex(open.list()->model()->index(2, 0));
        return QStringList(open.memory.path(u"NESSUNO.ZB3"_qs));
    });
    open.dropFiles({u"/somewhere/NESSUNO.ZB3"_qs}, 1);
    QTRY_VERIFY(open.panel.isModified());
    QCOMPARE(open.list()->currentIndex().row(), 1);
    QCOMPARE(open.titles(), u"AZZURRO NESSUNO"_qs);
    open.panel.updateContents(std::make_shared<MemoryContents>());
    QCOMPARE(open.list()->model()->rowCount(), 0);
    open.panel.updateContents(readContents(open.memory));
    QCOMPARE(open.list()->currentIndex().row(), 1);
}

void TestPlaylistDrops::showsWhyNothingIsAddedAfterATransfer_data()
{
    QTest::addColumn<std::function<void(OpenPanel &)>>("change");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *tag, const std::function<void(OpenPanel &)> &change,
                        const QString &reason) { QTest::newRow(tag) << change << reason; };
    const auto forget = [](OpenPanel &open) {
        open.panel.updateContents(std::make_shared<MemoryContents>());
    };
    row(
        "gone, seen",
        [forget](OpenPanel &open) {
            QVERIFY(QDir().rename(open.memory.root(), open.memory.root() + u'2'));
            forget(open);
        },
        u"la memoria non è più presente"_qs);
    row(
        "gone, not seen",
        [](OpenPanel &open) {
            QVERIFY(QDir().rename(open.memory.root(), open.memory.root() + u'2'));
        },
        u"la memoria non è più presente"_qs);
    row("not read", forget, u"la memoria non si legge"_qs);
    row(
        "not readable", [](OpenPanel &open) { open.memory.remove(u"index.id2"_qs); },
        u"la memoria non si legge"_qs);
    row(
        "protected",
        [](OpenPanel &open) { open.panel.setReadOnly(u"la memoria è protetta da scrittura"_qs); },
        u"la memoria è protetta da scrittura"_qs);
    row(
        "not listed",
        [](OpenPanel &open) { open.memory.write(u"playlist/playlist.dat"_qs, listRecord("0800")); },
        u"la playlist non è più sulla memoria"_qs);
    row(
        "without its file", [](OpenPanel &open) { open.memory.remove(songsOf7); },
        u"la playlist non si può modificare"_qs);
}

/// The current playlist has nothing to do with it.
void TestPlaylistDrops::showsWhyNothingIsAddedAfterATransfer()
{
    QFETCH(std::function<void(OpenPanel &)>, change);
    QFETCH(QString, reason);
    OpenPanel open(volare);
    open.panel.setTransfer([&](const QStringList &) {
        change(open);
        return QStringList(open.memory.path(u"NESSUNO.ZB3"_qs));
    });
    DialogScript script;
    script.expectMessage(u"Playlist"_qs,
                         u"Le song non sono state aggiunte alla playlist: %1."_qs.arg(reason),
                         QMessageBox::Ok);
    open.dropFiles({u"/somewhere/NESSUNO.ZB3"_qs}, 0);
    QTRY_VERIFY(script.isDone());
    QVERIFY(!open.panel.isModified());
}

BRISEL_TEST(QApplication, TestPlaylistDrops)

#include "tst_playlistdrops.moc"
