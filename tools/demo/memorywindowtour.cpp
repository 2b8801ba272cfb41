#include "tools/demo/memorywindowtour.h"

#include "tools/demo/memorytour.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QLabel>
#include <QMessageBox>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <QTreeView>

#include <algorithm>

namespace brisel
{

namespace
{

constexpr QSize windowSize(1200, 760);
constexpr int longestLook = 30'000; ///< milliseconds
constexpr int playlist = 2;         ///< the number of the one that the tour makes
constexpr int titleList = 0;
constexpr int artistList = 1;
const QString newSong = QStringLiteral("/ALTRE/DOPPIA.MID");
const QString newName = QStringLiteral("RINATA");

QString textOf(const QModelIndex &index)
{
    return index.data().toString();
}

/// The paths of all files in a folder and the folders in it, with their sizes.
QStringList filesBelow(const QString &folder)
{
    QStringList files;
    QDirIterator each(folder, QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString path = each.next();
        files.append(QStringLiteral("%1 %2").arg(path).arg(each.fileInfo().size()));
    }
    files.sort();
    return files;
}

/// The last jump that leads to a song; null if there is none.
QAction *lastJump(const QToolBar *bar)
{
    QAction *last = nullptr;
    for (QAction *jump : bar->actions())
        last = jump->isEnabled() && bar->widgetForAction(jump)->isVisible() ? jump : last;
    return last;
}

} // namespace

bool MemoryWindowTour::open()
{
    Narrator &narrator = m_stage.narrator;
    narrator.step(QStringLiteral("See what is on the memory"));
    const MemoryReader memory(root());
    if (!narrator.check(memory.titles().size() >= 6, QStringLiteral("there are songs to choose")))
        return false;
    narrator.check(
        makePlaylist(root(), playlist, {memory.titles().at(1), memory.titles().at(2)}),
        QStringLiteral("the player's owner makes playlist %1 of two songs").arg(playlist));
    narrator.check(
        writeFile(root() + newSong, fileBytes(root() + memory.pathOf(memory.titles().first().id))),
        QStringLiteral("and copies a song to %1").arg(newSong));

    m_stage.hand.rest();
    m_stage.hand.clickWindow(QStringLiteral("memoryToolButton"));
    m_window = m_stage.window.findChild<QWidget *>(QStringLiteral("MemoryWindow"));
    if (!narrator.check(m_window != nullptr && QTest::qWaitForWindowExposed(m_window),
                        QStringLiteral("the window of the memory is opened")))
        return false;
    m_window->resize(windowSize);
    m_window->activateWindow();
    narrator.check(QTest::qWaitForWindowActive(m_window), QStringLiteral("and takes the keys"));
    waitForLook();
    checkState({QStringLiteral("Da aggiornare: 1 nuova"), QStringLiteral("To be updated: 1 new")});
    return true;
}

void MemoryWindowTour::lookAtTheLists()
{
    Narrator &narrator = m_stage.narrator;
    narrator.step(QStringLiteral("The songs in the lists of the player"));
    const MemoryReader memory(root());
    const QAbstractItemModel *songs = part<QTreeView>("songsTreeView")->model();
    int same = 0;
    for (int row = 0; row < songs->rowCount() && row < memory.titles().size(); ++row) {
        const ListedSong &song = memory.titles().at(row);
        same += textOf(songs->index(row, 0)) == song.title &&
                        textOf(songs->index(row, 1)) == memory.pathOf(song.id)
                    ? 1
                    : 0;
    }
    narrator.checkEqual(songs->rowCount(), memory.titles().size(), QStringLiteral("by title"));
    narrator.checkEqual(same, memory.titles().size(),
                        QStringLiteral("with the titles and paths that the player reads"));
    takePicture(QStringLiteral("memory-titles"));
    lookAtTheArtists(memory);
    search(memory);
}

void MemoryWindowTour::lookAtTheArtists(const MemoryReader &memory)
{
    Narrator &narrator = m_stage.narrator;
    auto *view = part<QTreeView>("songsTreeView");
    Hand::choose(m_window, QStringLiteral("listComboBox"), artistList);
    narrator.checkEqual(view->model()->rowCount(), memory.artists().size(),
                        QStringLiteral("artists"));
    QCoreApplication::processEvents(); // the letters get their places
    const auto *bar = part<QToolBar>("jumpsToolBar");
    QAction *jump = lastJump(bar);
    if (narrator.check(jump != nullptr, QStringLiteral("there are letters to jump to"))) {
        QTest::mouseClick(bar->widgetForAction(jump), Qt::LeftButton);
        const QString artist = textOf(view->currentIndex().siblingAtColumn(0));
        narrator.check(artist.startsWith(jump->text(), Qt::CaseInsensitive),
                       QStringLiteral("%1 leads to %2").arg(jump->text(), artist));
    }
    QTest::keyClick(view, Qt::Key_Right);
    narrator.check(view->isExpanded(view->currentIndex()), QStringLiteral("the songs are shown"));
    takePicture(QStringLiteral("memory-artists"));
    Hand::choose(m_window, QStringLiteral("listComboBox"), titleList);
}

void MemoryWindowTour::search(const MemoryReader &memory)
{
    Narrator &narrator = m_stage.narrator;
    auto *view = part<QTreeView>("songsTreeView");
    const QString word = memory.titles().last().title.section(u' ', 0, 0);
    Hand::type(m_window, QStringLiteral("songSearchLineEdit"), word);
    const int found = view->model()->rowCount();
    narrator.check(found > 0 && found < memory.titles().size() &&
                       !part<QLabel>("songCountLabel")->text().isEmpty(),
                   QStringLiteral("%1: %2").arg(word, part<QLabel>("songCountLabel")->text()));
    takePicture(QStringLiteral("memory-search"));
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Escape);
    narrator.checkEqual(view->model()->rowCount(), memory.titles().size(),
                        QStringLiteral("all songs again"));
}

void MemoryWindowTour::lookAtTheFolders()
{
    Narrator &narrator = m_stage.narrator;
    narrator.step(QStringLiteral("The folders: what is not in the index, and what is there twice"));
    auto *tabs = part<QTabBar>("qt_tabwidget_tabbar");
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
    const QAbstractItemModel *found = part<QTreeView>("foldersTreeView")->model();
    const auto shows = [this, found](const ShownText &text) {
        const QModelIndexList rows =
            found->match(found->index(0, 0), Qt::DisplayRole, m_stage.hand.shown(text), -1);
        return rows.size() == 1 && textOf(found->index(0, 0, rows.first())) == newSong;
    };
    narrator.check(shows({QStringLiteral("Nuove, non ancora nell'indice"),
                          QStringLiteral("New, not yet in the index")}),
                   QStringLiteral("%1 is new").arg(newSong));
    const int groups = found->rowCount();
    Hand::click(m_window, QStringLiteral("duplicatesPushButton"));
    narrator.check(
        QTest::qWaitFor([found, groups] { return found->rowCount() > groups; }, longestLook) &&
            shows({QStringLiteral("Doppioni"), QStringLiteral("Duplicates")}),
        QStringLiteral("and the same as another song"));
    takePicture(QStringLiteral("memory-folders"));
    update();
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
}

void MemoryWindowTour::update()
{
    Hand &hand = m_stage.hand;
    const qsizetype songs = MemoryReader(root()).songs().size();
    hand.rest();
    hand.expectMessage({QStringLiteral("Operazione completata con successo"), QString()},
                       QMessageBox::Ok, QStringLiteral("memory-updated"));
    clickAction(QStringLiteral("memoryActionsToolBar"), Update);
    hand.checkAnswered();
    waitForLook();
    checkState(
        {QStringLiteral("Indice e song concordano"), QStringLiteral("Index and songs agree")});
    m_stage.narrator.checkEqual(MemoryReader(root()).songs().size(), songs + 1,
                                QStringLiteral("songs in the updated index"));
}

void MemoryWindowTour::changeAPlaylist()
{
    Narrator &narrator = m_stage.narrator;
    narrator.step(QStringLiteral("Add songs to a playlist, move one, and save it"));
    MemoryReader memory(root());
    QList<ListedSong> expected = memory.playlist(playlist);
    auto *playlists = part<QAbstractItemView>("playlistsListView");
    clickRow(playlists, playlists->model()->index(1, 0));
    auto *entries = part<QTableView>("entriesTableView");
    narrator.checkEqual(entries->model()->rowCount(), expected.size(),
                        QStringLiteral("songs in the playlist"));
    const QList<ListedSong> added{memory.titles().at(5), memory.titles().last()};
    chooseSong(added.first().id);
    chooseSong(added.last().id, Qt::ControlModifier);
    Hand::click(m_window, QStringLiteral("addToPlaylistPushButton"));
    clickRow(entries, entries->model()->index(3, 0));
    for (int i = 0; i < 3; ++i)
        Hand::click(m_window, QStringLiteral("upPushButton"));
    expected += added;
    expected.move(3, 0);
    takePicture(QStringLiteral("memory-playlist"));
    Hand::click(m_window, QStringLiteral("savePushButton"));
    waitForLook();

    const QList<ListedSong> saved = MemoryReader(root()).playlist(playlist);
    narrator.checkEqual(saved.size(), expected.size(), QStringLiteral("songs in its file"));
    narrator.check(
        std::equal(saved.begin(), saved.end(), expected.begin(), expected.end(),
                   [](const ListedSong &one, const ListedSong &other) {
                       return one.record == other.record;
                   }),
        QStringLiteral("with the records of the index, \"%1\" first").arg(expected.first().title));
}

void MemoryWindowTour::renameASong()
{
    Narrator &narrator = m_stage.narrator;
    narrator.step(QStringLiteral("Rename a song of the playlist"));
    MemoryReader before(root());
    QStringList paths = playlistPaths(before);
    const QString old = paths.first();
    const QString renamed =
        old.section(u'/', 0, -2) + u'/' + newName + u'.' + old.section(u'.', -1);
    paths.replace(0, renamed);
    m_stage.hand.rest();
    m_stage.hand.expectDialog("RenameSongDialog", QString(), [&narrator](QWidget *dialog) {
        Hand::type(dialog, QStringLiteral("nameLineEdit"), newName);
        narrator.takePicture(dialog, QStringLiteral("memory-rename"));
        Hand::click(dialog, QStringLiteral("renamePushButton"));
    });
    chooseSong(before.playlist(playlist).first().id);
    clickAction(QStringLiteral("songActionsToolBar"), Rename);
    m_stage.hand.checkAnswered();
    waitForLook();
    narrator.check(QFile::exists(root() + renamed) && !QFile::exists(root() + old),
                   QStringLiteral("%1 is %2 now").arg(old, renamed));
    checkIndexAndPlaylist(before.songs().size(), paths);
    takePicture(QStringLiteral("memory-renamed"));
}

void MemoryWindowTour::removeASong()
{
    Narrator &narrator = m_stage.narrator;
    Hand &hand = m_stage.hand;
    narrator.step(QStringLiteral("Remove a song of the playlist"));
    MemoryReader before(root());
    QStringList paths = playlistPaths(before);
    const QString removed = paths.takeLast();
    hand.rest();
    hand.expectMessage({QStringLiteral("Rimuovere 1 song dalla memoria?"),
                        QStringLiteral("Remove 1 song from the memory?")},
                       QMessageBox::Yes, QStringLiteral("memory-remove"));
    hand.expectMessage({QStringLiteral("1 song rimossa"), QStringLiteral("1 song removed")},
                       QMessageBox::Ok, QString());
    chooseSong(before.playlist(playlist).last().id);
    clickAction(QStringLiteral("songActionsToolBar"), Remove);
    hand.checkAnswered();
    waitForLook();
    narrator.check(!QFile::exists(root() + removed), QStringLiteral("%1 is gone").arg(removed));
    checkIndexAndPlaylist(before.songs().size() - 1, paths);
    takePicture(QStringLiteral("memory-removed"));
}

void MemoryWindowTour::checkIndexAndPlaylist(qsizetype songs, const QStringList &paths)
{
    Narrator &narrator = m_stage.narrator;
    MemoryReader memory(root());
    for (const QString &fault : memory.faults())
        narrator.check(false, fault);
    narrator.checkEqual(memory.songs().size(), songs,
                        QStringLiteral("songs in the index, which is whole"));
    const QStringList named = playlistPaths(memory);
    narrator.check(named == paths,
                   QStringLiteral("the playlist has %1").arg(named.join(QStringLiteral(" "))));
    checkState(
        {QStringLiteral("Indice e song concordano"), QStringLiteral("Index and songs agree")});
}

void MemoryWindowTour::copyASong()
{
    Narrator &narrator = m_stage.narrator;
    Hand &hand = m_stage.hand;
    narrator.step(QStringLiteral("Copy a song of the memory to the computer"));
    const MemoryReader memory(root());
    const ListedSong &song = memory.titles().at(2);
    const QString path = memory.pathOf(song.id);
    const QString folder = m_stage.home.lists() + QStringLiteral("/copie");
    QDir().mkpath(folder);
    hand.rest();
    hand.expectFiles({folder}, QStringLiteral("memory-copy"));
    hand.expectMessage({QStringLiteral("1 song copiata"), QStringLiteral("1 song copied")},
                       QMessageBox::Ok, QString());
    chooseSong(song.id);
    clickAction(QStringLiteral("songActionsToolBar"), Copy);
    hand.checkAnswered();
    const QByteArray copy = fileBytes(folder + u'/' + path.section(u'/', -1));
    narrator.check(!copy.isEmpty() && copy == fileBytes(root() + path),
                   QStringLiteral("%1 is copied whole").arg(path));
}

void MemoryWindowTour::planATransfer()
{
    Narrator &narrator = m_stage.narrator;
    Hand &hand = m_stage.hand;
    narrator.step(QStringLiteral("See what a transfer would copy, and cancel it"));
    const QStringList before = filesBelow(root());
    hand.rest();
    hand.expectDialog("TransferPlanDialog", QStringLiteral("memory-plan"), [this](QWidget *dialog) {
        const auto *plan = dialog->findChild<QTableView *>(QStringLiteral("planTableView"));
        m_stage.narrator.checkEqual(plan->model()->rowCount(), m_stage.songs.size(),
                                    QStringLiteral("songs in the plan"));
        Hand::click(dialog, QStringLiteral("cancelPushButton"));
    });
    Hand::click(m_window, QStringLiteral("transferPushButton"));
    hand.checkAnswered();
    narrator.check(filesBelow(root()) == before, QStringLiteral("nothing was copied"));
}

void MemoryWindowTour::close()
{
    Hand::click(m_window, QStringLiteral("closePushButton"));
    m_stage.narrator.check(QTest::qWaitFor([this] { return m_window == nullptr; }),
                           QStringLiteral("the window of the memory is closed"));
}

void MemoryWindowTour::chooseSong(quint32 id, Qt::KeyboardModifiers keys)
{
    const QList<ListedSong> titles = MemoryReader(root()).titles();
    const auto song = std::find_if(titles.begin(), titles.end(),
                                   [id](const ListedSong &title) { return title.id == id; });
    auto *view = part<QTreeView>("songsTreeView");
    clickRow(view, view->model()->index(static_cast<int>(song - titles.begin()), 0), keys);
}

void MemoryWindowTour::clickRow(QAbstractItemView *view, const QModelIndex &row,
                                Qt::KeyboardModifiers keys)
{
    view->scrollTo(row);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, keys, view->visualRect(row).center());
}

void MemoryWindowTour::clickAction(const QString &bar, int action)
{
    const auto *buttons = m_window->findChild<QToolBar *>(bar);
    QWidget *button = buttons->widgetForAction(buttons->actions().at(action));
    const QString text = buttons->actions().at(action)->text().remove(u'&');
    if (m_stage.narrator.check(button->isEnabled() && button->isVisible(),
                               QStringLiteral("\"%1\" clicked").arg(text)))
        QTest::mouseClick(button, Qt::LeftButton);
}

void MemoryWindowTour::waitForLook()
{
    const QString comparing =
        m_stage.hand.shown({QStringLiteral("Confronto"), QStringLiteral("Comparing")});
    const auto *state = part<QLabel>("stateLabel");
    m_stage.narrator.check(
        QTest::qWaitFor([&] { return !state->text().contains(comparing); }, longestLook),
        QStringLiteral("the index is compared with the songs"));
}

void MemoryWindowTour::checkState(const ShownText &text)
{
    const QString state = part<QLabel>("stateLabel")->text();
    m_stage.narrator.check(state == m_stage.hand.shown(text), QStringLiteral("state: ") + state);
}

QStringList MemoryWindowTour::playlistPaths(MemoryReader &memory)
{
    QStringList paths;
    for (const ListedSong &song : memory.playlist(playlist))
        paths.append(memory.pathOf(song.id));
    return paths;
}

void MemoryWindowTour::takePicture(const QString &name)
{
    QCoreApplication::processEvents(); // so that everything has its place
    m_stage.narrator.takePicture(m_window, name);
}

} // namespace brisel
