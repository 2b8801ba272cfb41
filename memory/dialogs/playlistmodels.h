#pragma once

#include "memory/playlistdocument.h"

#include <QAbstractListModel>
#include <QAbstractTableModel>
#include <QIcon>

namespace brisel
{

/// The playlists of a document, one in each row.
class PlaylistsModel : public QAbstractListModel
{
    Q_OBJECT

public:
    /// \a document must outlive this.
    explicit PlaylistsModel(const PlaylistDocument &document, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    /// Shows all texts again, in another language.
    void retranslate();

private:
    QString textOf(qsizetype playlist) const;

    const PlaylistDocument &m_document;
};

/// The entries of one playlist of a document. Songs and files can be dropped on it, and its entries
/// moved by dragging.
class PlaylistEntriesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Number, Title, Tempo, Format, Note, ColumnCount };

    /// Entries that are not good have \a warning before their titles. \a document must outlive
    /// this.
    PlaylistEntriesModel(PlaylistDocument &document, const QIcon &warning,
                         QObject *parent = nullptr);

    /// Shows \a playlist; -1 for none.
    void setPlaylist(qsizetype playlist);
    qsizetype playlist() const { return m_playlist; }
    /// With false, nothing can be dragged or dropped.
    void setWritable(bool isWritable) { m_isWritable = isWritable; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    Qt::DropActions supportedDropActions() const override
    {
        return Qt::CopyAction | Qt::MoveAction;
    }
    Qt::DropActions supportedDragActions() const override { return Qt::MoveAction; }
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

signals:
    /// Entries were changed, and \a rows should be selected.
    void rowsChanged(const QList<qsizetype> &rows);
    /// Not all of \a dropped songs could be added.
    void songsRefused(qsizetype dropped, qsizetype added);
    /// Files were dropped before the entry \a place.
    void filesDropped(const QStringList &paths, qsizetype place);

private:
    bool isDroppable() const;
    QString songPlace() const;
    QString entryPlace() const;
    bool takes(const QMimeData &data) const;
    QString noteOf(qsizetype entry) const;

    PlaylistDocument &m_document;
    const QIcon m_warning;
    qsizetype m_playlist = -1;
    bool m_isWritable = true;
};

} // namespace brisel
