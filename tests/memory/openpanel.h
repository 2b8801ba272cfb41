#pragma once

#include "memory/dialogs/playlistspanel.h"
#include "memory/songdrag.h"
#include "tests/dialogscript.h"
#include "tests/memory/playlistmemory.h"

#include <QListView>
#include <QMimeData>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QUrl>

namespace brisel::Sample
{

/// A panel for a memory with the playlist 7, and the missing playlist 8.
class OpenPanel
{
public:
    explicit OpenPanel(const QByteArray &songs)
    {
        writePlaylist(memory, songs, {});
        memory.write(u"playlist/playlist.dat"_qs, listRecord("0700") + listRecord("0800"));
        panel.setContents(readContents(memory));
        panel.resize(800, 500);
        panel.show();
        panel.activateWindow();
        (void)QTest::qWaitForWindowActive(&panel);
    }

    QListView *list() const { return panel.findChild<QListView *>(u"playlistsListView"_qs); }
    QTableView *table() const { return panel.findChild<QTableView *>(u"entriesTableView"_qs); }
    QPushButton *button(const char *name) const
    {
        return panel.findChild<QPushButton *>(QLatin1StringView(name) + u"PushButton"_qs);
    }
    void click(const char *name) const
    {
        DialogScript::click(const_cast<PlaylistsPanel *>(&panel),
                            QLatin1StringView(name) + u"PushButton"_qs);
    }
    QString nameOf(int playlist) const
    {
        return list()->model()->index(playlist, 0).data().toString();
    }
    /// The texts of a column, with blanks between.
    QString column(int number) const
    {
        QStringList texts;
        for (int row = 0; row < table()->model()->rowCount(); ++row)
            texts.append(table()->model()->index(row, number).data().toString());
        return texts.join(u' ');
    }
    QString titles() const { return column(1); }
    bool drop(const char *type, const QByteArray &data, int row) const
    {
        QMimeData mime;
        mime.setData(QLatin1StringView(type), data);
        return table()->model()->dropMimeData(&mime, Qt::CopyAction, row, 0, {});
    }
    /// The rows are dropped as the lists of the memory give them.
    void dropSongs(const QList<quint32> &ids, int row) const
    {
        (void)drop(qPrintable(songDragType), songDragData(memory.root(), ids), row);
    }
    void dropFiles(const QStringList &paths, int row) const
    {
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls.append(QUrl::fromLocalFile(path));
        QMimeData mime;
        mime.setUrls(urls);
        table()->model()->dropMimeData(&mime, Qt::CopyAction, row, 0, {});
    }

    SampleMemory memory;
    PlaylistsPanel panel;
};

} // namespace brisel::Sample
