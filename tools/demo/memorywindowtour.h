#pragma once

#include "tools/demo/memoryreader.h"
#include "tools/demo/stage.h"

#include <QPointer>

class QAbstractItemView;

namespace brisel
{

/// The part of the tour in the window of the memory, whose songs and index it changes.
class MemoryWindowTour
{
public:
    explicit MemoryWindowTour(Stage &stage) : m_stage(stage) {}

    /// Adds a playlist and a song to the memory, then opens the window. Returns false if it is not
    /// opened, and nothing more can be shown.
    bool open();
    void lookAtTheLists();
    void lookAtTheFolders();
    void changeAPlaylist();
    void renameASong();
    void removeASong();
    void copyASong();
    void planATransfer();
    void close();

private:
    enum SongAction { Remove, Rename, Copy };
    enum MemoryAction { Update };

    void lookAtTheArtists(const MemoryReader &memory);
    void search(const MemoryReader &memory);
    void update();
    /// Chooses the song in the list by title.
    void chooseSong(quint32 id, Qt::KeyboardModifiers keys = {});
    void clickAction(const QString &bar, int action);
    static void clickRow(QAbstractItemView *view, const QModelIndex &row,
                         Qt::KeyboardModifiers keys = {});
    void waitForLook();
    void checkState(const ShownText &text);
    /// The index must be whole and have so many songs; the playlist must have those of \a paths.
    void checkIndexAndPlaylist(qsizetype songs, const QStringList &paths);
    static QStringList playlistPaths(MemoryReader &memory);
    void takePicture(const QString &name);
    QString root() const { return m_stage.home.memory(); }

    template <typename Kind>
    Kind *part(const char *name) const
    {
        return m_window->findChild<Kind *>(QString::fromLatin1(name));
    }

    Stage &m_stage;
    QPointer<QWidget> m_window;
};

} // namespace brisel
