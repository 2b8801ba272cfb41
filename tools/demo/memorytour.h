#pragma once

#include "tools/demo/memoryreader.h"
#include "tools/demo/stage.h"

namespace brisel
{

bool writeFile(const QString &path, const QByteArray &bytes);
/// Makes the playlist \a number of \a songs on the memory \a root, as the player does.
bool makePlaylist(const QString &root, int number, const QList<ListedSong> &songs);

/// The second half of the tour: the songs on the player's memory.
class MemoryTour
{
public:
    explicit MemoryTour(Stage &stage) : m_stage(stage) {}

    void transfer();
    /// Acts as the player's owner: makes a playlist, adds a song, deletes another.
    void useTheMemory();
    void rebuild();
    void exportLists();
    /// Prints the index as the player reads it.
    void listIndex();

private:
    void checkIndex(const MemoryReader &memory, qsizetype songs);
    void checkPlaylist(MemoryReader &memory);
    void exportList(int order, const QString &name);
    QStringList readList(const QString &file);
    void listTitles(const MemoryReader &memory);
    void listGroups(const QString &heading, const QList<SongGroup> &groups);

    Stage &m_stage;
    QStringList m_playlistPaths;
    QList<quint32> m_playlistIds;
    qsizetype m_songsOnMemory = 0;
};

} // namespace brisel
