#include "db/usersongsreltablemodel.h"

#include "songfile/lengthtext.h"
#include "songfile/songinfo.h"

#include <QColor>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

#include <algorithm>
#include <utility>

namespace brisel
{

namespace
{

constexpr int idColumn = RowStatements::idColumn;

/// A null text is stored as an empty one, because NULL would be sorted separately.
QString stored(const QString &text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

/// The values of a song for both new and changed rows, in the order of m_dataColumns.
QVariantList dataValues(const SongInfo &info, int userBpm)
{
    return {stored(info.title),  stored(info.artist),     stored(info.genre),
            stored(info.author), lengthText(info.length), userBpm,
            stored(info.key)};
}

/// In the order of m_fileColumns.
QVariantList fileValues(const SongInfo &info, const FileState &state)
{
    const bool isKnown = state.kind == FileKind::Regular;
    return {info.markers.size(), isKnown ? QVariant(state.size) : QVariant(),
            isKnown ? QVariant(state.modified) : QVariant()};
}

QColor rowColor(bool odd)
{
    return odd ? QColor(230, 230, 230) : QColor(200, 200, 200);
}

QColor statusColor(int status, bool odd)
{
    switch (status) {
    case Database::Updated:
        return odd ? QColor(130, 255, 130) : QColor(100, 225, 100);
    case Database::Edited:
        return odd ? QColor(255, 255, 130) : QColor(225, 225, 100);
    case Database::Failed:
        return odd ? QColor(255, 130, 130) : QColor(225, 100, 100);
    default:
        return rowColor(odd);
    }
}

} // namespace

UserSongsRelTableModel::ManyChanges::ManyChanges(UserSongsRelTableModel &model)
    : m_transaction(model.database()), m_model(model)
{
    m_model.m_announcesEachRow = false;
    m_model.m_sinceAnnounced.start();
}

UserSongsRelTableModel::ManyChanges::~ManyChanges()
{
    m_model.m_announcesEachRow = true;
    m_model.announce();
}

UserSongsRelTableModel::UserSongsRelTableModel(QObject *parent, const QSqlDatabase &database)
    : QSqlRelationalTableModel(parent, database)
{
    addColumns();
    setTable(QStringLiteral("usersongs"));
    setFiledsIndexes();
    setEditStrategy(QSqlTableModel::OnFieldChange);
}

int UserSongsRelTableModel::goodRowCount()
{
    announce();
    return static_cast<int>(m_rows.size());
}

QString UserSongsRelTableModel::fileName(int row)
{
    announce();
    return isSong(row) ? textAt(row, m_filename) : QString();
}

QString UserSongsRelTableModel::shortName(int row)
{
    announce();
    return isSong(row) ? textAt(row, m_shortName) : QString();
}

int UserSongsRelTableModel::status(int row)
{
    announce();
    return statusAt(row);
}

QModelIndex UserSongsRelTableModel::rowIndex(int row)
{
    announce();
    return index(row, idColumn);
}

void UserSongsRelTableModel::updateRow(int row, const SongInfo &info, const FileState &state)
{
    const QVariantList values = dataValues(info, std::max(info.userBpm, 0));
    if (state.kind == FileKind::Regular)
        writeCells(row, m_dataColumns + m_fileColumns, values + fileValues(info, state));
    else
        writeCells(row, m_dataColumns, values);
}

bool UserSongsRelTableModel::addSong(const SongInfo &info, const FileState &state)
{
    if (!m_isRead && !select())
        return false;
    const QVariantList values = dataValues(info, info.userBpm) + fileValues(info, state) +
                                QVariantList{stored(info.format), stored(info.fileName),
                                             stored(info.shortName), int{Database::Imported}};
    const QSqlQuery *insertion = run(Change::Insert, m_songColumns, values);
    if (insertion == nullptr)
        return false;
    Row row(columnCount());
    row[idColumn] = insertion->lastInsertId().toLongLong();
    row[m_outcome] = static_cast<int>(SongOutcome::Imported);
    for (qsizetype i = 0; i < values.size(); ++i)
        row[m_songColumns.at(i)] = values.at(i);

    m_unannounced.append(std::move(row));
    announceInTime();
    return true;
}

void UserSongsRelTableModel::announceInTime()
{
    if (m_announcesEachRow || m_sinceAnnounced.elapsed() >= ManyChanges::announceInterval)
        announce();
}

/// Notifies views of the rows that were added since the last call.
void UserSongsRelTableModel::announce()
{
    announceUnreadable();
    if (m_unannounced.isEmpty())
        return;
    const int end = static_cast<int>(m_rows.size());
    beginInsertRows(QModelIndex(), end, end + static_cast<int>(m_unannounced.size()) - 1);
    countOutcomes(m_unannounced, 1);
    m_rows.append(std::exchange(m_unannounced, {}));
    endInsertRows();
    m_sinceAnnounced.start();
}

void UserSongsRelTableModel::setSortingLocked(bool locked)
{
    m_sortingLocks = std::max(m_sortingLocks + (locked ? 1 : -1), 0);
    if (m_sortingLocks > 0)
        return;
    if (m_wantedSort) {
        const Sort wanted = *std::exchange(m_wantedSort, std::nullopt);
        sort(wanted.column, wanted.order);
    } else if (m_isOutOfOrder) {
        sortAgain();
    }
}

bool UserSongsRelTableModel::select()
{
    QSqlQuery query(database());
    query.setForwardOnly(true);
    m_isRead = query.exec(selectStatement());
    setLastError(query.lastError());

    QList<Row> rows;
    const int columns = columnCount();
    while (m_isRead && query.next()) {
        Row row(columns);
        for (int column = 0; column < columns; ++column)
            row[column] = query.value(column);
        rows.append(std::move(row));
    }
    beginResetModel();
    m_rows = std::move(rows);
    m_unannounced.clear();
    m_outcomeCounts = {};
    countOutcomes(m_rows, 1);
    endResetModel();
    return m_isRead;
}

void UserSongsRelTableModel::sort(int column, Qt::SortOrder order)
{
    if (m_sortingLocks > 0) {
        m_wantedSort = Sort{column, order};
        return;
    }
    m_sortedColumn = column == m_reason ? m_outcome : column; // by the order of the outcomes
    setSort(m_sortedColumn, order);
    sortAgain();
}

bool UserSongsRelTableModel::sortAgain()
{
    announce();
    m_isOutOfOrder = false;
    if (m_sortedColumn == m_folder)
        storeFolders();
    return putInOrder() || select();
}

/// Queries only the order, because the model has the rows. Returns false, with the rows unchanged,
/// if they are not the table's.
bool UserSongsRelTableModel::putInOrder()
{
    QSqlQuery query(database());
    query.setForwardOnly(true);
    if (!m_isRead || !query.exec(QStringLiteral("SELECT %1 FROM %2 %3")
                                     .arg(m_statements.columnName(idColumn),
                                          m_statements.tableName(), orderByClause())))
        return false;
    QHash<qint64, qsizetype> places;
    places.reserve(m_rows.size());
    for (qsizetype row = 0; row < m_rows.size(); ++row)
        places.insert(m_rows.at(row).at(idColumn).toLongLong(), row);
    QList<Row> rows;
    rows.reserve(m_rows.size());
    while (query.next()) {
        const auto place = places.constFind(query.value(0).toLongLong());
        if (place == places.constEnd())
            return false;
        rows.append(m_rows.at(*place));
    }
    if (rows.size() != m_rows.size())
        return false;
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
    return true;
}

int UserSongsRelTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size() + shownUnreadable());
}

bool UserSongsRelTableModel::canFetchMore(const QModelIndex & /*parent*/) const
{
    return false; // select() has read all rows
}

void UserSongsRelTableModel::fetchMore(const QModelIndex & /*parent*/) {}

Qt::ItemFlags UserSongsRelTableModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable |
           Qt::ItemNeverHasChildren |
           (isSong(index.row()) ? Qt::ItemIsDragEnabled : Qt::NoItemFlags);
}

QVariant UserSongsRelTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount())
        return {};
    const bool odd = index.row() % 2 != 0;
    const bool isStatus = index.column() == m_status;
    switch (role) {
    case Qt::DisplayRole:
        return shownValue(index.row(), index.column());
    case Qt::EditRole:
        return rowAt(index.row()).at(index.column());
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return index.column() == m_outcome ? QVariant(outcomeText(index.row())) : QVariant();
    case Qt::BackgroundRole:
        return isStatus ? statusColor(statusAt(index.row()), odd) : rowColor(odd);
    case Qt::ForegroundRole:
        // The status is shown as a colour, not as a number.
        return isStatus ? QVariant(statusColor(statusAt(index.row()), odd)) : QVariant();
    default:
        return {};
    }
}

bool UserSongsRelTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    return role == Qt::EditRole && index.isValid() &&
           writeCells(index.row(), {index.column()}, {value});
}

bool UserSongsRelTableModel::insertRows(int /*row*/, int /*count*/, const QModelIndex & /*parent*/)
{
    return false;
}

bool UserSongsRelTableModel::writeCells(int row, const QList<int> &columns,
                                        const QVariantList &values)
{
    announce();
    if (!isSong(row))
        return false;
    const auto [first, last] = std::minmax_element(columns.cbegin(), columns.cend());
    if (*first < 0 || *last >= columnCount() ||
        run(Change::Update, columns, values, m_rows.at(row).at(idColumn)) == nullptr)
        return false;

    countOutcome(row, -1);
    for (qsizetype i = 0; i < columns.size(); ++i)
        m_rows[row][columns.at(i)] = values.at(i);
    m_isOutOfOrder = m_isOutOfOrder || (m_sortingLocks > 0 && columns.contains(m_sortedColumn));
    countOutcome(row, 1);
    emit dataChanged(index(row, *first), index(row, *last));
    return true;
}

const QSqlQuery *UserSongsRelTableModel::run(Change change, const QList<int> &columns,
                                             const QVariantList &values, const QVariant &id)
{
    const QSqlQuery *query = m_statements.run(change, columns, values, id);
    setLastError(m_statements.lastError());
    return query;
}

} // namespace brisel
