#include "tools/demo/memorytour.h"

#include "tools/demo/librarytable.h"

#include <QDir>
#include <QFile>
#include <QMessageBox>

#include <algorithm>

namespace brisel
{

namespace
{

constexpr int playlistNumber = 1;
constexpr int listed = 4; ///< records of each order that are printed

} // namespace

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(path.section(u'/', 0, -2));
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

bool makePlaylist(const QString &root, int number, const QList<ListedSong> &songs)
{
    const QString folder = root + QStringLiteral("/playlist/");
    const QString list = folder + QStringLiteral("playlist.dat");
    QByteArray entry(32, '\0');
    entry[0] = char(number);
    QByteArray records;
    for (const ListedSong &song : songs)
        records += song.record;
    return writeFile(list, fileBytes(list) + entry) &&
           writeFile(folder + QStringLiteral("play%1.dat").arg(number, 4, 10, QChar(u'0')),
                     records);
}

void MemoryTour::transfer()
{
    Narrator &narrator = m_stage.narrator;
    Hand &hand = m_stage.hand;
    narrator.step(QStringLiteral("Transfer the songs to the player's memory"));
    hand.rest();
    hand.expectFiles({m_stage.home.memory()}, QStringLiteral("transfer-folder"));
    hand.expectDialog("NoCopyrightDialog", QStringLiteral("transfer-rename"), [](QWidget *dialog) {
        Hand::click(dialog, QStringLiteral("yesAllPushButton"));
    });
    hand.expectMessage({QStringLiteral("Tutti i file sono stati copiati correttamente"),
                        QStringLiteral("All the files have been copied successfully")},
                       QMessageBox::Ok, QStringLiteral("transfer-done"));
    hand.clickWindow(QStringLiteral("transferFilesToolButton"));
    hand.checkAnswered();

    const QDir songs(m_stage.home.memory() + QStringLiteral("/songs"));
    const QFileInfoList graphics = songs.entryInfoList({QStringLiteral("*.cdg")}, QDir::Files);
    narrator.check(graphics.size() == 1, QStringLiteral("karaoke graphics are copied too"));
    QFileInfoList copies = songs.entryInfoList(QDir::Files);
    copies.removeIf([&graphics](const QFileInfo &file) { return graphics.contains(file); });
    narrator.checkEqual(copies.size(), m_stage.songs.size(),
                        QStringLiteral("songs in the folder \"songs\" of the memory"));
    int same = 0;
    for (const QFileInfo &copy : copies) {
        const QByteArray bytes = fileBytes(copy.filePath());
        same +=
            std::any_of(m_stage.songs.begin(), m_stage.songs.end(),
                        [&bytes](const DemoSong &song) { return fileBytes(song.path) == bytes; })
                ? 1
                : 0;
        narrator.check(copy.completeBaseName().size() <= 8,
                       QStringLiteral("%1 is short enough for the player").arg(copy.fileName()));
    }
    narrator.checkEqual(same, m_stage.songs.size(), QStringLiteral("of them copied whole"));
    for (const QString &folder : {QStringLiteral("/sfx"), QStringLiteral("/bridge")})
        narrator.check(QDir(m_stage.home.memory() + folder).exists(),
                       QStringLiteral("the player's folder %1").arg(folder));
    m_songsOnMemory = m_stage.songs.size();
    checkIndex(MemoryReader(m_stage.home.memory()), m_songsOnMemory);
}

void MemoryTour::useTheMemory()
{
    Narrator &narrator = m_stage.narrator;
    narrator.step(QStringLiteral("The player's owner makes a playlist, adds and deletes a song"));
    const QString memory = m_stage.home.memory();
    const MemoryReader before(memory);
    if (!narrator.check(before.titles().size() >= 4, QStringLiteral("there are songs to choose")))
        return;

    QList<ListedSong> playlist;
    for (const qsizetype chosen : {2, 0, 2}) {
        playlist.append(before.titles().at(chosen));
        m_playlistIds.append(playlist.last().id);
        m_playlistPaths.append(before.pathOf(m_playlistIds.last()));
    }
    narrator.check(makePlaylist(memory, playlistNumber, playlist),
                   QStringLiteral("playlist 1: %1").arg(m_playlistPaths.join(u' ')));

    const QByteArray song = m_stage.songs.first().original;
    narrator.check(writeFile(memory + QStringLiteral("/ALTRE/ANCORA.MID"), song),
                   QStringLiteral("/ALTRE/ANCORA.MID added"));
    const QString deleted = before.pathOf(before.titles().at(3).id);
    narrator.check(QFile::remove(memory + deleted), QStringLiteral("%1 deleted").arg(deleted));
}

void MemoryTour::rebuild()
{
    Narrator &narrator = m_stage.narrator;
    Hand &hand = m_stage.hand;
    narrator.step(QStringLiteral("Rebuild the index of the memory"));
    hand.rest();
    hand.expectDialog("IndexDialog", QStringLiteral("rebuild"), [](QWidget *dialog) {
        Hand::click(dialog, QStringLiteral("pushButtonBrowse"));
    });
    hand.expectFiles({m_stage.home.memory()}, QString());
    hand.expectDialog("IndexDialog", QString(), [](QWidget *dialog) {
        Hand::click(dialog, QStringLiteral("radioButtonRebuild"));
        Hand::click(dialog, QStringLiteral("pushButtonStart"));
    });
    hand.expectMessage({QStringLiteral("Operazione completata con successo"), QString()},
                       QMessageBox::Ok, QString());
    hand.expectDialog("IndexDialog", QStringLiteral("rebuild-report"), [](QWidget *dialog) {
        Hand::click(dialog, QStringLiteral("pushButtonClose"));
    });
    hand.chooseMenu(QStringLiteral("optimizeMemory"), QStringLiteral("tools-menu"));
    hand.checkAnswered();

    MemoryReader memory(m_stage.home.memory());
    checkIndex(memory, m_songsOnMemory);
    checkPlaylist(memory);
}

void MemoryTour::checkIndex(const MemoryReader &memory, qsizetype songs)
{
    Narrator &narrator = m_stage.narrator;
    for (const QString &fault : memory.faults())
        narrator.check(false, fault);
    narrator.check(memory.faults().isEmpty(), QStringLiteral("the index is whole"));
    narrator.checkEqual(memory.songs().size(), songs, QStringLiteral("songs in the index"));
    narrator.checkEqual(memory.folderOrder().size(), songs, QStringLiteral("in folder order"));
    qsizetype grouped = 0;
    for (const SongGroup &group : memory.artists())
        grouped += group.songs.size();
    narrator.checkEqual(grouped, songs, QStringLiteral("under their artists"));
}

void MemoryTour::checkPlaylist(MemoryReader &memory)
{
    QStringList paths;
    QList<quint32> ids;
    for (const ListedSong &song : memory.playlist(playlistNumber)) {
        paths.append(memory.pathOf(song.id));
        ids.append(song.id);
    }
    m_stage.narrator.check(!paths.isEmpty() && paths == m_playlistPaths,
                           QStringLiteral("the playlist still names %1").arg(paths.join(u' ')));
    m_stage.narrator.check(ids != m_playlistIds, QStringLiteral("under the songs' new numbers"));
}

void MemoryTour::exportLists()
{
    m_stage.narrator.step(QStringLiteral("Save the list of the songs in its three orders"));
    exportList(0, QStringLiteral("title"));
    exportList(1, QStringLiteral("artist"));
    exportList(2, QStringLiteral("genre"));
}

void MemoryTour::exportList(int order, const QString &name)
{
    Narrator &narrator = m_stage.narrator;
    Hand &hand = m_stage.hand;
    const QString file = m_stage.home.lists() + u'/' + name + QStringLiteral(".csv");
    hand.rest();
    hand.expectDialog("SongsListDialog", QString(), [this, order, file](QWidget *dialog) {
        Hand::type(dialog, QStringLiteral("lineEditPath"), m_stage.home.memory());
        Hand::type(dialog, QStringLiteral("lineEditFile"), file);
        Hand::choose(dialog, QStringLiteral("comboBoxSort"), order);
        m_stage.narrator.takePicture(dialog, QStringLiteral("list"));
        Hand::click(dialog, QStringLiteral("pushButtonStart"));
    });
    hand.expectMessage({QStringLiteral("Operazione completata"), QString()}, QMessageBox::Ok,
                       QString());
    hand.expectDialog("SongsListDialog", QString(), [](QWidget *dialog) {
        Hand::click(dialog, QStringLiteral("pushButtonClose"));
    });
    hand.chooseMenu(QStringLiteral("actionSongsList"), QString());
    hand.checkAnswered();

    const QStringList lines = readList(file);
    narrator.checkEqual(lines.size(), m_songsOnMemory + 1, QStringLiteral("lines by ") + name);
    bool isSorted = lines.size() > 1;
    for (qsizetype i = 2; i < lines.size(); ++i)
        isSorted = isSorted && lines.at(i - 1)
                                       .section(u';', order, order)
                                       .compare(lines.at(i).section(u';', order, order),
                                                Qt::CaseInsensitive) <= 0;
    narrator.check(isSorted, QStringLiteral("in the order of the ") + name);
    for (const QString &line : lines.mid(0, listed))
        narrator.print(line);
}

QStringList MemoryTour::readList(const QString &file)
{
    return QString::fromUtf8(fileBytes(file)).split(u'\n', Qt::SkipEmptyParts);
}

void MemoryTour::listIndex()
{
    Narrator &narrator = m_stage.narrator;
    narrator.step(QStringLiteral("The index as the player reads it"));
    MemoryReader memory(m_stage.home.memory());
    narrator.check(memory.faults().isEmpty(), QStringLiteral("without a fault"));
    narrator.print(QStringLiteral("%1 songs, %2 artists, %3 genres, %4 of the songs are MP3")
                       .arg(memory.songs().size())
                       .arg(memory.artists().size())
                       .arg(memory.genres().size())
                       .arg(memory.mp3Titles().size()));
    narrator.print(QStringLiteral("by folder:"));
    for (const IndexedSong &song : memory.folderOrder().mid(0, listed))
        narrator.print(
            QStringLiteral("  %1  %2  %3").arg(song.id, 3).arg(song.modified, song.path));
    listTitles(memory);
    listGroups(QStringLiteral("by artist:"), memory.artists());
    listGroups(QStringLiteral("by genre:"), memory.genres());
    narrator.print(QStringLiteral("playlist 1:"));
    for (const ListedSong &song : memory.playlist(playlistNumber))
        narrator.print(QStringLiteral("  %1  %2").arg(song.id, 3).arg(song.title));
}

void MemoryTour::listTitles(const MemoryReader &memory)
{
    static const QStringList types = {QStringLiteral("MIDI"), QStringLiteral("MP3 "),
                                      QStringLiteral("ZB3 "), QStringLiteral("ZB4 "),
                                      QStringLiteral("ZB5 ")};
    m_stage.narrator.print(QStringLiteral("by title:"));
    for (const ListedSong &song : memory.titles().mid(0, listed))
        m_stage.narrator.print(QStringLiteral("  %1  %2  %3 bpm%4  %5")
                                   .arg(song.id, 3)
                                   .arg(types.value(song.type))
                                   .arg(song.bpm, 3)
                                   .arg(song.flag ? QStringLiteral("  flag") : QString())
                                   .arg(song.title));
}

void MemoryTour::listGroups(const QString &heading, const QList<SongGroup> &groups)
{
    m_stage.narrator.print(heading);
    for (const SongGroup &group : groups.mid(0, listed)) {
        m_stage.narrator.print(QStringLiteral("  %1").arg(group.name));
        for (const ListedSong &song : group.songs.mid(0, listed))
            m_stage.narrator.print(QStringLiteral("    %1  %2").arg(song.id, 3).arg(song.title));
    }
}

} // namespace brisel
