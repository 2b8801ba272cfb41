#include "db/usersongsreltablemodel.h"

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

/// "mm:ss"; minutes above 99 have more digits, a negative length gives an empty text.
QString lengthText(int seconds)
{
    if (seconds < 0)
        return QStringLiteral("");
    return QStringLiteral("%1:%2")
        .arg(seconds / 60, 2, 10, QChar(u'0'))
        .arg(seconds % 60, 2, 10, QChar(u'0'));
}

/// The values of a song for both new and changed rows, in the order of m_dataColumns.
QVariantList dataValues(const SongInfo &info, int userBpm)
{
    return {stored(info.title),  stored(info.artist),     stored(info.genre),
            stored(info.author), lengthText(info.length), userBpm,
            stored(info.key)};
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
    setTable(QStringLiteral("usersongs"));
    setFiledsIndexes();
    setEditStrategy(QSqlTableModel::OnFieldChange);
}

void UserSongsRelTableModel::setFiledsIndexes()
{
    m_type = fieldIndex(QStringLiteral("type"));
    m_title = fieldIndex(QStringLiteral("title"));
    m_artist = fieldIndex(QStringLiteral("artist"));
    m_genre = fieldIndex(QStringLiteral("genre"));
    m_author = fieldIndex(QStringLiteral("author"));
    m_length = fieldIndex(QStringLiteral("length"));
    m_userBpm = fieldIndex(QStringLiteral("userbpm"));
    m_key = fieldIndex(QStringLiteral("key"));
    m_filename = fieldIndex(QStringLiteral("filename"));
    m_shortName = fieldIndex(QStringLiteral("shortname"));
    m_status = fieldIndex(QStringLiteral("status"));
    m_dataColumns = {m_title, m_artist, m_genre, m_author, m_length, m_userBpm, m_key};
    m_songColumns = m_dataColumns + QList<int>{m_type, m_filename, m_shortName, m_status};
    m_statements = RowStatements(database(), tableName(), record());
}

void UserSongsRelTableModel::setHeaderLabels()
{
    setHeaderData(idColumn, Qt::Horizontal, tr("Num"));
    setHeaderData(m_type, Qt::Horizontal, tr("Formato"));
    setHeaderData(m_title, Qt::Horizontal, tr("Titolo"));
    setHeaderData(m_artist, Qt::Horizontal, tr("Artista"));
    setHeaderData(m_genre, Qt::Horizontal, tr("Genere"));
    setHeaderData(m_author, Qt::Horizontal, tr("Autore"));
    setHeaderData(m_length, Qt::Horizontal, tr("Durata"));
    setHeaderData(m_userBpm, Qt::Horizontal, tr("Bpm"));
    setHeaderData(m_key, Qt::Horizontal, tr("Tonalita'"));
    setHeaderData(m_filename, Qt::Horizontal, QString());
    setHeaderData(m_shortName, Qt::Horizontal, tr("Nome file"));
    setHeaderData(m_status, Qt::Horizontal, QString());
    setHeaderToolTips();
}

void UserSongsRelTableModel::setHeaderToolTips()
{
    const auto explain = [this](int column, const QString &text) {
        setHeaderData(column, Qt::Horizontal, tr("%1 (un clic ordina le righe)").arg(text),
                      Qt::ToolTipRole);
    };
    explain(m_type, tr("Formato del file"));
    explain(m_title, tr("Titolo della song"));
    explain(m_artist, tr("Interprete della song"));
    explain(m_genre, tr("Genere musicale"));
    explain(m_author, tr("Autore della song"));
    explain(m_length, tr("Durata in minuti e secondi"));
    explain(m_userBpm, tr("Tempo in battiti al minuto"));
    explain(m_key, tr("Tonalità; il segno - indica il modo minore"));
    explain(m_shortName, tr("Nome del file senza la cartella"));
}

int UserSongsRelTableModel::goodRowCount()
{
    announce();
    return rowCount();
}

QString UserSongsRelTableModel::fileName(int row)
{
    announce();
    return textAt(row, m_filename);
}

QString UserSongsRelTableModel::shortName(int row)
{
    announce();
    return textAt(row, m_shortName);
}

int UserSongsRelTableModel::status(int row)
{
    announce();
    return statusAt(row);
}

void UserSongsRelTableModel::setStatus(int row, Database::statusEnum status)
{
    writeCells(row, {m_status}, {static_cast<int>(status)});
}

QModelIndex UserSongsRelTableModel::rowIndex(int row)
{
    announce();
    return index(row, idColumn);
}

void UserSongsRelTableModel::updateRow(int row, const SongInfo &info)
{
    writeCells(row, m_dataColumns, dataValues(info, std::max(info.userBpm, 0)));
}

bool UserSongsRelTableModel::addSong(const SongInfo &info)
{
    if (!m_isRead && !select())
        return false;
    const QVariantList values = dataValues(info, info.userBpm) +
                                QVariantList{stored(info.format), stored(info.fileName),
                                             stored(info.shortName), int{Database::Imported}};
    const QSqlQuery *insertion = run(Change::Insert, m_songColumns, values);
    if (insertion == nullptr)
        return false;
    Row row(columnCount());
    row[idColumn] = insertion->lastInsertId().toLongLong();
    for (qsizetype i = 0; i < values.size(); ++i)
        row[m_songColumns.at(i)] = values.at(i);

    m_unannounced.append(std::move(row));
    if (m_announcesEachRow || m_sinceAnnounced.elapsed() >= ManyChanges::announceInterval)
        announce();
    return true;
}

/// Notifies views of the rows that were added since the last call.
void UserSongsRelTableModel::announce()
{
    if (m_unannounced.isEmpty())
        return;
    const int end = rowCount();
    beginInsertRows(QModelIndex(), end, end + static_cast<int>(m_unannounced.size()) - 1);
    m_rows.append(std::exchange(m_unannounced, {}));
    endInsertRows();
    m_sinceAnnounced.start();
}

void UserSongsRelTableModel::setSortingLocked(bool locked)
{
    m_sortingLocks = std::max(m_sortingLocks + (locked ? 1 : -1), 0);
    if (m_sortingLocks > 0 || !m_wantedSort)
        return;
    const Sort wanted = *std::exchange(m_wantedSort, std::nullopt);
    sort(wanted.column, wanted.order);
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
    endResetModel();
    return m_isRead;
}

void UserSongsRelTableModel::sort(int column, Qt::SortOrder order)
{
    if (m_sortingLocks > 0) {
        m_wantedSort = Sort{column, order};
        return;
    }
    setSort(column, order);
    sortAgain();
}

bool UserSongsRelTableModel::sortAgain()
{
    announce();
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
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

bool UserSongsRelTableModel::canFetchMore(const QModelIndex & /*parent*/) const
{
    return false; // select() has read all rows
}

void UserSongsRelTableModel::fetchMore(const QModelIndex & /*parent*/) {}

QVariant UserSongsRelTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !hasRow(index.row()) || index.column() >= columnCount())
        return {};
    const bool odd = index.row() % 2 != 0;
    const bool isStatus = index.column() == m_status;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return m_rows.at(index.row()).at(index.column());
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

bool UserSongsRelTableModel::removeRows(int row, int count, const QModelIndex &parent)
{
    announce();
    if (parent.isValid() || count < 1 || !hasRow(row) || count > rowCount() - row)
        return false;
    for (int left = count; left > 0; --left) {
        if (!deleteRow(row))
            return false;
    }
    return true;
}

bool UserSongsRelTableModel::writeCells(int row, const QList<int> &columns,
                                        const QVariantList &values)
{
    announce();
    if (!hasRow(row))
        return false;
    const auto [first, last] = std::minmax_element(columns.cbegin(), columns.cend());
    if (*first < 0 || *last >= columnCount() ||
        run(Change::Update, columns, values, m_rows.at(row).at(idColumn)) == nullptr)
        return false;

    for (qsizetype i = 0; i < columns.size(); ++i)
        m_rows[row][columns.at(i)] = values.at(i);
    emit dataChanged(index(row, *first), index(row, *last));
    return true;
}

bool UserSongsRelTableModel::deleteRow(int row)
{
    if (run(Change::Delete, {}, {}, m_rows.at(row).at(idColumn)) == nullptr)
        return false;
    beginRemoveRows(QModelIndex(), row, row);
    m_rows.removeAt(row);
    endRemoveRows();
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
