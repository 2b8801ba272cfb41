#pragma once

#include "base/fileidentity.h"
#include "base/reason.h"
#include "db/database.h"
#include "db/rowstatements.h"
#include "db/songoutcome.h"
#include "db/transaction.h"

#include <QElapsedTimer>
#include <QList>
#include <QSet>
#include <QSqlRelationalTableModel>
#include <QVariant>

#include <array>
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
///
/// On demand there are rows for files that could not be read, too. They are in no table and always
/// after the songs, so goodRowCount() is the number of songs; for every function with a row number
/// they do not exist, except data(), rowIndex(), outcome() and outcomeText().
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

    /// The number of songs.
    int goodRowCount();
    /// Returns true for the row of a song.
    bool isSong(int row) const { return row >= 0 && row < m_rows.size(); }
    /// The full path of the song; empty if there is no such row.
    QString fileName(int row);
    /// The file name without folder; empty if there is no such row.
    QString shortName(int row);
    /// A Database::statusEnum; 0 if there is no such row.
    int status(int row);
    /// Also sets the outcome that goes with it.
    void setStatus(int row, Database::statusEnum status);
    void setStatus(int row, Database::statusEnum status, SongOutcome outcome,
                   std::optional<Reason> reason);
    /// Leaves the status unchanged.
    void setOutcome(int row, SongOutcome outcome, std::optional<Reason> reason);
    /// Imported if there is no such row.
    SongOutcome outcome(int row) const;
    /// The word of the outcome and, if there is one, the reason, in the program's language.
    QString outcomeText(int row) const;
    /// The number of rows with this outcome, without a pass over the rows.
    int outcomeCount(SongOutcome outcome) const;

    /// Stores that the file at \a path could not be read.
    void addUnreadable(const QString &path, Reason reason);
    /// Removes the rows of unreadable files.
    void clearUnreadable();
    /// Removes those with these paths.
    void removeUnreadable(const QSet<QString> &paths);
    /// Whether files that could not be read have rows. At first they do not.
    bool isShowingUnreadable() const { return m_isShowingUnreadable; }
    void showUnreadable(bool on);

    /// The index of the row's first cell, for selecting and scrolling.
    QModelIndex rowIndex(int row);

    /// Rewrites title, artist, genre, author, length, tempo and key of a row; a negative tempo
    /// becomes 0. Type, file names and status stay. If the file's \a state is known, also the
    /// number of markers, size and date.
    void updateRow(int row, const SongInfo &info, const FileState &state = {});
    /// Appends a song with the status Imported. Returns false if the table rejects it. A negative
    /// tempo is stored unchanged.
    bool addSong(const SongInfo &info, const FileState &state = {});

    int colIdxFilename() const { return m_filename; }
    int colIdxStatus() const { return m_status; }
    /// The column for an icon, without texts.
    int colIdxOutcome() const { return m_outcome; }
    /// The columns that are not shown before they are chosen: the outcome in words, folder, number
    /// of markers, size and date.
    QList<int> choosableColumns() const;

    /// While locked, sort() only stores its arguments, so that the rows of a running workflow keep
    /// their numbers. The last unlock sorts if that was requested, or if the sorted column was
    /// changed meanwhile. Locks can be nested.
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
    /// Those of the base class, in less time: a heading asks for all cells of a selected column.
    /// Songs can be dragged, too.
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QStringList mimeTypes() const override;
    /// The files of the songs among \a indexes, as URLs in the order of their rows.
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    /// Removes the rows with these numbers. Views are notified a few times at most: if the rows are
    /// scattered, like select(). Returns false if there is no such row, or the table rejects one:
    /// then the rows before it are removed.
    bool removeEach(QList<int> rows);

private:
    using Change = RowStatements::Change;
    using Row = QVariantList; ///< one value for each column
    struct Sort {
        int column;
        Qt::SortOrder order;
    };

    void addColumns() const;
    void storeFolders() const;
    void setHeaderToolTips();
    void announce();
    void announceInTime();
    void announceUnreadable();
    qsizetype shownUnreadable() const { return m_isShowingUnreadable ? m_unreadable.size() : 0; }
    const Row &rowAt(int row) const;
    QVariant shownValue(int row, int column) const;
    void countOutcome(int row, int change);
    void countOutcomes(const QList<Row> &rows, int change);
    QString textAt(int row, int column) const { return data(index(row, column)).toString(); }
    int statusAt(int row) const { return data(index(row, m_status)).toInt(); }
    bool writeCells(int row, const QList<int> &columns, const QVariantList &values);
    bool deleteFromTable(int row);
    void dropRows(const QList<int> &rows);
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
    int m_outcome = -1;
    int m_reason = -1; ///< as it is declared, not translated
    int m_folder = -1;
    int m_markers = -1;
    int m_size = -1;     ///< bytes
    int m_modified = -1; ///< seconds since 1970

    QList<int> m_dataColumns; ///< the columns that updateRow() writes in any case
    QList<int> m_fileColumns; ///< those that it writes if the state of the file is known
    QList<int> m_songColumns; ///< the columns that addSong() fills
    RowStatements m_statements;
    QList<Row> m_rows;
    QList<Row> m_unannounced; ///< in the table, but not yet shown
    QList<Row> m_unreadable;
    QList<Row> m_unannouncedUnreadable;
    bool m_isShowingUnreadable = false;
    std::array<int, allSongOutcomes.size()> m_outcomeCounts{}; ///< of the songs
    bool m_announcesEachRow = true;
    QElapsedTimer m_sinceAnnounced;
    bool m_isRead = false; ///< the table was read at least once
    int m_sortingLocks = 0;
    std::optional<Sort> m_wantedSort; ///< requested while sorting was locked
    int m_sortedColumn = -1;          ///< -1: in the order of the ids
    bool m_isOutOfOrder = false;      ///< the sorted column was changed while sorting was locked
};

} // namespace brisel
