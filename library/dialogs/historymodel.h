#pragma once

#include "history/history.h"

#include <QAbstractItemModel>

#include <memory>
#include <optional>
#include <vector>

namespace brisel
{

/// The history as a tree: runs, newest first, the songs of each, and the changed fields of each
/// song. Songs are read when their run is opened, fields when their song is opened, and the state
/// of a song's file when it is shown.
class HistoryModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { What, Before, After, State, ColumnCount };
    enum class Level { Run, Song, Field };

    /// \a history must outlive this object.
    explicit HistoryModel(History &history, QObject *parent = nullptr);
    ~HistoryModel() override;

    /// Reads the runs again.
    void reload();
    /// Why the last reading failed.
    const std::optional<Reason> &trouble() const { return m_trouble; }

    static Level levelOf(const QModelIndex &index);
    /// The run that \a index belongs to.
    const HistoryRun &runOf(const QModelIndex &index) const;
    /// The songs that \a index, of a run or a song, stands for; those of a run are read if needed.
    QList<HistorySong> songsOf(const QModelIndex &index);

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Node;

    static Node *nodeOf(const QModelIndex &index);
    void fetchSongs(const QModelIndex &run);
    void fetchFields(const QModelIndex &song);
    void noteTrouble();
    QString text(const Node &node, int column) const;
    static QString runText(const HistoryRun &run, int column);
    QString songText(const Node &song, int column) const;
    QString stateText(const Node &song) const;

    History &m_history;
    std::vector<std::unique_ptr<Node>> m_runs;
    std::optional<Reason> m_trouble;
};

} // namespace brisel
