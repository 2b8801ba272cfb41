#pragma once

#include "db/database.h"
#include "db/rowstatements.h"
#include "db/transaction.h"

#include <QElapsedTimer>
#include <QList>
#include <QSqlRelationalTableModel>
#include <QVariant>

#include <optional>

namespace brisel
{

class SongInfo;

/// The user's library for the table view: the rows of "usersongs", one for each song.
///
/// Rows are counted in the model's order, from 0. The model has a copy of all rows: every change is
/// one statement on the table and one change of the copy, for any number of rows, and no row is
/// moved, added or removed implicitly. A new song is added at the end in any sort order, and a
/// change in the sorted column does not move its row until the next select(), sort() or
/// sortAgain(). Rows are added by addSong() only; insertRows() returns false.
class UserSongsRelTableModel : public QSqlRelationalTableModel
{
    Q_OBJECT

public:
    /// For a run that changes many rows: while it exists, all changes of the table are one
    /// transaction, and views are notified of new rows about twenty times a second instead of after
    /// each row. Every function that is not const announces them first. Must not be nested.
    class ManyChanges
    {
    public:
        static constexpr qint64 announceInterval = 50; ///< milliseconds between two lots of rows

        explicit ManyChanges(UserSongsRelTableModel &model);
        ~ManyChanges();
        ManyChanges(const ManyChanges &) = delete;
        ManyChanges &operator=(const ManyChanges &) = delete;

    private:
        const Transaction m_transaction;
        UserSongsRelTableModel &m_model;
    };

    /// \a database holds the table "usersongs" and outlives the model. Reads no rows.
    UserSongsRelTableModel(QObject *parent, const QSqlDatabase &database);

    /// Looks up the columns by their names. (The misspelt function name is part of the design.)
    void setFiledsIndexes();
    /// Sets the headings and their tool tips in the current language.
    void setHeaderLabels();

    int goodRowCount();
    /// The full path of the song; empty if there is no such row.
    QString fileName(int row);
    /// The file name without folder; empty if there is no such row.
    QString shortName(int row);
    /// A Database::statusEnum; 0 if there is no such row.
    int status(int row);
    void setStatus(int row, Database::statusEnum status);
    /// The index of the row's first cell, for selecting and scrolling.
    QModelIndex rowIndex(int row);

    /// Rewrites title, artist, genre, author, length, tempo and key of a row; a negative tempo
    /// becomes 0. Type, file names and status stay.
    void updateRow(int row, const SongInfo &info);
    /// Appends a song with the status Imported. Returns false if the table rejects it. A negative
    /// tempo is stored unchanged.
    bool addSong(const SongInfo &info);

    int colIdxFilename() const { return m_filename; }
    int colIdxStatus() const { return m_status; }

    /// While locked, sort() only stores its arguments, so that the rows of a running workflow keep
    /// their numbers; the last unlock sorts. Locks can be nested.
    void setSortingLocked(bool locked);
    /// Sorts all rows, including new ones, in the order of the last sort() that was not locked, and
    /// notifies views like select(). Reads the table again only if it has other rows than the
    /// model.
    bool sortAgain();

    /// The number of prepared statements: one for each kind of change, for any number of rows.
    size_t statementCount() const { return m_statements.count(); }

    bool select() override;
    void sort(int column, Qt::SortOrder order) override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    bool canFetchMore(const QModelIndex &parent = QModelIndex()) const override;
    void fetchMore(const QModelIndex &parent = QModelIndex()) override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

private:
    using Change = RowStatements::Change;
    using Row = QVariantList; ///< one value for each column
    struct Sort {
        int column;
        Qt::SortOrder order;
    };

    void setHeaderToolTips();
    void announce();
    bool hasRow(int row) const { return row >= 0 && row < m_rows.size(); }
    QString textAt(int row, int column) const { return data(index(row, column)).toString(); }
    int statusAt(int row) const { return data(index(row, m_status)).toInt(); }
    bool writeCells(int row, const QList<int> &columns, const QVariantList &values);
    bool deleteRow(int row);
    bool putInOrder();
    const QSqlQuery *run(Change change, const QList<int> &columns, const QVariantList &values,
                         const QVariant &id = {});

    int m_type = -1;
    int m_title = -1;
    int m_artist = -1;
    int m_genre = -1;
    int m_author = -1;
    int m_length = -1;
    int m_userBpm = -1;
    int m_key = -1;
    int m_filename = -1;
    int m_shortName = -1;
    int m_status = -1;

    QList<int> m_dataColumns; ///< the columns that updateRow() writes
    QList<int> m_songColumns; ///< the columns that addSong() fills
    RowStatements m_statements;
    QList<Row> m_rows;
    QList<Row> m_unannounced; ///< in the table, but not yet shown
    bool m_announcesEachRow = true;
    QElapsedTimer m_sinceAnnounced;
    bool m_isRead = false; ///< the table was read at least once
    int m_sortingLocks = 0;
    std::optional<Sort> m_wantedSort; ///< requested while sorting was locked
};

} // namespace brisel
