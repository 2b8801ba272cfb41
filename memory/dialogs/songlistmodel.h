#pragma once

#include "memory/dialogs/twolevelmodel.h"
#include "memory/playerlist.h"

#include <QIcon>

namespace brisel
{

/// A list as the player shows it, for a tree: songs, or groups with their songs. It has no objects
/// for them; indexes are numbers in PlayerList.
class SongListModel : public TwoLevelModel
{
    Q_OBJECT

public:
    enum Column { Title, Path, Tempo, Format, Markers, Note, ColumnCount };

    /// \a warning: for songs with marks.
    explicit SongListModel(QIcon warning, QObject *parent = nullptr);

    const PlayerList &list() const { return m_list; }
    /// See PlayerList. Each but the last resets the model.
    void setContents(std::shared_ptr<const MemoryContents> contents);
    void setList(std::size_t list);
    void setSearch(const SongSearch &search);
    bool prepare(qsizetype count) { return m_list.prepare(count); }
    /// Shows the marks of the files; null while they are unknown.
    void setLook(const MemoryLook *look);

    /// The shown songs that \a index, of a song or a group, stands for: the first one and their
    /// number.
    std::pair<qsizetype, qsizetype> songsOf(const QModelIndex &index) const;
    /// The index of a shown song.
    QModelIndex indexOf(qsizetype shown) const;
    /// Why a song has these marks, in the language of the moment; empty without marks.
    static QString reasonOf(PlayerList::Marks marks);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

private:
    bool isGroup(const QModelIndex &index) const;
    QString groupText(const PlayerList::Group &group, int column) const;
    QString songText(const PlayerList::Song &song, int column) const;

    PlayerList m_list;
    QIcon m_warning;
};

} // namespace brisel
