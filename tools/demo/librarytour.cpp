#include "tools/demo/librarytour.h"

#include "tools/demo/librarytable.h"

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QMessageBox>

#include <algorithm>

namespace brisel
{

namespace
{

const QString newArtist = QStringLiteral("BANDA DEL PAESE");
const QString newGenre = QStringLiteral("FESTA");

bool showsText(const QWidget *dialog, const QString &text)
{
    const auto labels = dialog->findChildren<QLabel *>();
    return std::any_of(labels.begin(), labels.end(),
                       [&text](const QLabel *label) { return label->text() == text; });
}

} // namespace

void LibraryTour::openWindow()
{
    Narrator &narrator = m_stage.narrator;
    narrator.step(QStringLiteral("The window opens"));
    const LibraryTable table(m_stage.window);
    narrator.check(m_stage.window.windowTitle() == QStringLiteral("Brisel2 PC"),
                   QStringLiteral("title \"%1\"").arg(m_stage.window.windowTitle()));
    narrator.checkEqual(table.rows(), 0, QStringLiteral("songs in the table"));
    narrator.check(!isEnabled(QStringLiteral("updateDataToolButton")) &&
                       !isEnabled(QStringLiteral("transferFilesToolButton")),
                   QStringLiteral("nothing to synchronise or transfer yet"));
    const auto *button =
        m_stage.window.findChild<QAbstractButton *>(QStringLiteral("transferFilesToolButton"));
    narrator.check(
        button != nullptr &&
            button->text() ==
                m_stage.hand.shown({QStringLiteral("Trasferisci song nella memoria di Brisel"),
                                    QStringLiteral("Transfer songs in the Brisel2 memory")}),
        QStringLiteral("the chosen language is shown"));
    narrator.takePicture(&m_stage.window, QStringLiteral("window"));
}

void LibraryTour::importSongs()
{
    Narrator &narrator = m_stage.narrator;
    narrator.step(QStringLiteral("Import the songs"));
    QStringList paths;
    for (const DemoSong &song : m_stage.songs)
        paths.append(song.path);

    m_stage.hand.rest();
    m_stage.hand.expectFiles(paths, QStringLiteral("import-files"));
    m_stage.hand.expectDialog("ProceedDialog", QStringLiteral("import-summary"),
                              [this](QWidget *dialog) { answerImportSummary(dialog); });
    m_stage.hand.clickWindow(QStringLiteral("selectDirToolButton"));
    m_stage.hand.checkAnswered();

    const LibraryTable table(m_stage.window);
    const auto readable = std::count_if(m_stage.songs.begin(), m_stage.songs.end(),
                                        [](const DemoSong &song) { return song.isReadable; });
    narrator.checkEqual(table.rows(), readable, QStringLiteral("songs in the table"));
    narrator.checkEqual(table.rowsWithStatus(LibraryTable::Imported), readable,
                        QStringLiteral("with the status \"imported\""));
    for (const DemoSong &song : m_stage.songs) {
        const int row = table.rowOf(song.path);
        if (!song.isReadable)
            narrator.check(row < 0, QStringLiteral("%1 is left out").arg(song.name()));
        else if (narrator.check(row >= 0, QStringLiteral("%1 is listed").arg(song.name())))
            narrator.check(
                table.text(row, LibraryTable::Title) == song.info.title,
                QStringLiteral("its title is \"%1\"").arg(table.text(row, LibraryTable::Title)));
    }
    narrator.check(isEnabled(QStringLiteral("updateDataToolButton")) &&
                       isEnabled(QStringLiteral("transferFilesToolButton")),
                   QStringLiteral("the two other buttons can be clicked now"));
    narrator.takePicture(&m_stage.window, QStringLiteral("imported"));
}

void LibraryTour::answerImportSummary(QWidget *dialog)
{
    int readable = 0;
    int publisher = 0;
    for (const DemoSong &song : m_stage.songs) {
        readable += song.isReadable ? 1 : 0;
        publisher += song.isReadable && song.info.isKordia ? 1 : 0;
    }
    const QString summary =
        m_stage.hand
            .shown({QStringLiteral("Sono stati esaminti %1 files, trovate %2 songs di cui %3 di "
                                   "(c)Kordia"),
                    QStringLiteral("%1 files have been examined, found %2 songs of which %3 (c) "
                                   "Kordia")})
            .arg(m_stage.songs.size())
            .arg(readable)
            .arg(publisher);
    m_stage.narrator.check(showsText(dialog, summary), summary);
    Hand::click(dialog, QStringLiteral("noPushButton"));
}

void LibraryTour::synchronise()
{
    Narrator &narrator = m_stage.narrator;
    narrator.step(QStringLiteral("Synchronise with the catalogue, after a backup"));
    m_stage.hand.rest();
    expectBackup();
    expectConfirmations();
    m_stage.hand.clickWindow(QStringLiteral("updateDataToolButton"));
    m_stage.hand.checkAnswered();
    checkSynchronised();
    checkBackup();
    narrator.check(!isEnabled(QStringLiteral("updateDataToolButton")),
                   QStringLiteral("a completed synchronisation can't be repeated"));
    narrator.takePicture(&m_stage.window, QStringLiteral("synchronised"));
}

void LibraryTour::expectBackup()
{
    Hand &hand = m_stage.hand;
    hand.expectDialog("BackupDialog", QStringLiteral("backup"), [](QWidget *dialog) {
        Hand::click(dialog, QStringLiteral("browsePushButton"));
    });
    hand.expectFiles({m_stage.home.backups()}, QString());
    hand.expectDialog("BackupDialog", QStringLiteral("backup-folder"), [](QWidget *dialog) {
        Hand::click(dialog, QStringLiteral("doBackupPushButton"));
    });
    hand.expectMessage(
        {QStringLiteral("Backup eseguito correttamente"), QStringLiteral("Backup done correctly")},
        QMessageBox::Ok, QStringLiteral("backup-done"));
}

void LibraryTour::expectConfirmations()
{
    m_stage.hand.expectDialog(
        "NoCopyrightDialog", QStringLiteral("confirmation"),
        [](QWidget *dialog) { Hand::click(dialog, QStringLiteral("yesPushButton")); });
    m_stage.hand.expectDialog(
        "NoCopyrightDialog", QStringLiteral("confirmation-again"),
        [](QWidget *dialog) { Hand::click(dialog, QStringLiteral("noAllPushButton")); });
}

void LibraryTour::checkSynchronised()
{
    const LibraryTable table(m_stage.window);
    const QList<int> foreign = foreignRows();
    for (int row = 0; row < table.rows(); ++row) {
        const DemoSong *song = songAt(row);
        if (song == nullptr)
            continue;
        const bool isAllowed = song->info.isKordia || foreign.indexOf(row) == 0;
        if (isAllowed && !song->catalogueTitle.isEmpty())
            checkUpdated(*song, row);
        else
            checkLeftAlone(*song, row,
                           isAllowed ? QStringLiteral("not in the catalogue")
                                     : QStringLiteral("unchanged, as answered"));
    }
}

void LibraryTour::checkUpdated(const DemoSong &song, int row)
{
    Narrator &narrator = m_stage.narrator;
    const LibraryTable table(m_stage.window);
    narrator.check(table.status(row) == LibraryTable::Updated,
                   QStringLiteral("%1 is updated").arg(song.name()));
    const SongInfo info = readBack(song.path);
    narrator.check((info.title == song.info.title || info.title == song.catalogueTitle) &&
                       !info.title.isEmpty() && !info.artist.isEmpty() && !info.genre.isEmpty() &&
                       !info.author.isEmpty(),
                   QStringLiteral("it is complete: \"%1\", %2, %3, %4")
                       .arg(info.title, info.artist, info.genre, info.author));
    narrator.check(table.text(row, LibraryTable::Title) == info.title &&
                       table.text(row, LibraryTable::Artist) == info.artist &&
                       table.text(row, LibraryTable::Genre) == info.genre,
                   QStringLiteral("its row has the same data"));
}

void LibraryTour::checkLeftAlone(const DemoSong &song, int row, const QString &why)
{
    m_stage.narrator.check(LibraryTable(m_stage.window).status(row) == LibraryTable::Failed &&
                               fileBytes(song.path) == song.original,
                           QStringLiteral("%1 is %2").arg(song.name(), why));
}

void LibraryTour::checkBackup()
{
    const QStringList folders =
        QDir(m_stage.home.backups()).entryList({QStringLiteral("backup_kordia_*")}, QDir::Dirs);
    if (!m_stage.narrator.check(folders.size() == 1, QStringLiteral("one backup folder")))
        return;
    int same = 0;
    for (const DemoSong &song : m_stage.songs) {
        const QString folder = m_stage.home.backups() + u'/' + folders.first() + u'/';
        same += fileBytes(folder + song.name()) == song.original ? 1 : 0;
    }
    m_stage.narrator.checkEqual(same, m_stage.songs.size(),
                                QStringLiteral("unchanged songs in %1").arg(folders.first()));
}

void LibraryTour::editOneSong()
{
    Narrator &narrator = m_stage.narrator;
    Hand &hand = m_stage.hand;
    narrator.step(QStringLiteral("Edit one song and spread its genre"));
    const LibraryTable table(m_stage.window);
    const int row = 0;
    const QString path = table.text(row, LibraryTable::FileName);

    hand.rest();
    hand.expectDialog("DataEditDialog", QStringLiteral("edit"), [](QWidget *dialog) {
        Hand::type(dialog, QStringLiteral("artistComboBox"), newArtist);
        Hand::type(dialog, QStringLiteral("genreComboBox"), newGenre);
        Hand::click(dialog, QStringLiteral("checkBoxToAllGenre"));
    });
    hand.expectMessage({QStringLiteral("Il genere inserito verrà applicato a tutte le song della "
                                       "lista, sei sicuro?"),
                        QString()},
                       QMessageBox::Yes, QStringLiteral("edit-spread"));
    hand.expectDialog("DataEditDialog", QStringLiteral("edit-typed"), [](QWidget *dialog) {
        Hand::click(dialog, QStringLiteral("savePushButton"));
    });
    table.doubleClick(row);
    hand.checkAnswered();

    const SongInfo edited = readBack(path);
    narrator.check(edited.artist == newArtist,
                   QStringLiteral("the edited file's artist is \"%1\"").arg(edited.artist));
    int spread = 0;
    for (int other = 0; other < table.rows(); ++other) {
        const SongInfo info = readBack(table.text(other, LibraryTable::FileName));
        if (info.genre == newGenre && table.text(other, LibraryTable::Genre) == newGenre)
            ++spread;
    }
    narrator.checkEqual(spread, table.rows(), QStringLiteral("files with the new genre"));
    narrator.checkEqual(table.rowsWithStatus(LibraryTable::Edited), table.rows(),
                        QStringLiteral("songs marked as edited"));
    narrator.takePicture(&m_stage.window, QStringLiteral("edited"));
}

bool LibraryTour::isEnabled(const QString &button) const
{
    const auto *found = m_stage.window.findChild<QAbstractButton *>(button);
    return found != nullptr && found->isEnabled();
}

QList<int> LibraryTour::foreignRows() const
{
    QList<int> rows;
    const LibraryTable table(m_stage.window);
    for (int row = 0; row < table.rows(); ++row) {
        const DemoSong *song = songAt(row);
        if (song != nullptr && !song->info.isKordia)
            rows.append(row);
    }
    return rows;
}

const DemoSong *LibraryTour::songAt(int row) const
{
    const QString path = LibraryTable(m_stage.window).text(row, LibraryTable::FileName);
    const auto found = std::find_if(m_stage.songs.begin(), m_stage.songs.end(),
                                    [&path](const DemoSong &song) { return song.path == path; });
    return found == m_stage.songs.end() ? nullptr : &*found;
}

} // namespace brisel
