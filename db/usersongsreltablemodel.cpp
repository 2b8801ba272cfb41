#include "db/usersongsreltablemodel.h"

#include "songfile/songinfo.h"

#include <QColor>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>

#include <algorithm>
#include <utility>

namespace
{

constexpr int idColumn = 0;

/// A missing text is stored as an empty one: NULL would be sorted apart from it.
QString stored(const QString &text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

/// "mm:ss"; minutes above 99 keep their digits, a negative length is shown as nothing.
QString lengthText(int seconds)
{
    if (seconds < 0)
        return QStringLiteral("");
    return QStringLiteral("%1:%2")
        .arg(seconds / 60, 2, 10, QChar(u'0'))
        .arg(seconds % 60, 2, 10, QChar(u'0'));
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
    m_columnNames.clear();
    for (int column = 0; column < columnCount(); ++column)
        m_columnNames.append(quoted(record().fieldName(column)));
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
    return rowCount();
}

QString UserSongsRelTableModel::fileName(int row)
{
    return textAt(row, m_filename);
}

QString UserSongsRelTableModel::shortName(int row)
{
    return textAt(row, m_shortName);
}

int UserSongsRelTableModel::status(int row)
{
    return statusAt(row);
}

void UserSongsRelTableModel::setStatus(int row, Database::statusEnum status)
{
    writeCells(row, {{m_status, static_cast<int>(status)}});
}

QModelIndex UserSongsRelTableModel::rowIndex(int row)
{
    return index(row, idColumn);
}

void UserSongsRelTableModel::updateRow(int row, const SongInfo &info)
{
    writeCells(row, {{m_title, stored(info.title)},
                     {m_artist, stored(info.artist)},
                     {m_genre, stored(info.genre)},
                     {m_author, stored(info.author)},
                     {m_length, lengthText(info.length)},
                     {m_userBpm, std::max(info.userBpm, 0)},
                     {m_key, stored(info.key)}});
}

bool UserSongsRelTableModel::addSong(const SongInfo &info)
{
    const QList<Cell> cells{{m_type, stored(info.format)},
                            {m_title, stored(info.title)},
                            {m_artist, stored(info.artist)},
                            {m_genre, stored(info.genre)},
                            {m_author, stored(info.author)},
                            {m_length, lengthText(info.length)},
                            {m_userBpm, info.userBpm},
                            {m_key, stored(info.key)},
                            {m_filename, stored(info.fileName)},
                            {m_shortName, stored(info.shortName)},
                            {m_status, static_cast<int>(Database::Imported)}};
    if (!m_isRead && !select())
        return false;

    Row row(columnCount());
    QStringList names;
    QStringList marks;
    QVariantList values;
    for (const Cell &cell : cells) {
        names.append(columnName(cell.column));
        marks.append(QStringLiteral("?"));
        values.append(cell.value);
        row[cell.column] = cell.value;
    }
    qint64 id = 0;
    if (!run(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                 .arg(quoted(tableName()), names.join(u','), marks.join(u',')),
             values, &id))
        return false;
    row[idColumn] = id;

    const int end = rowCount();
    beginInsertRows(QModelIndex(), end, end);
    m_rows.append(std::move(row));
    endInsertRows();
    return true;
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
    endResetModel();
    return m_isRead;
}

void UserSongsRelTableModel::sort(int column, Qt::SortOrder order)
{
    if (m_sortingLocks > 0)
        m_wantedSort = Sort{column, order};
    else if (!putInOrder(column, order))
        QSqlRelationalTableModel::sort(column, order);
}

/// The rows are here already: only their order is asked for. False, with the rows as they were,
/// when these are not the table's.
bool UserSongsRelTableModel::putInOrder(int column, Qt::SortOrder order)
{
    setSort(column, order);
    QSqlQuery query(database());
    query.setForwardOnly(true);
    if (!m_isRead ||
        !query.exec(QStringLiteral("SELECT %1 FROM %2 %3")
                        .arg(columnName(idColumn), quoted(tableName()), orderByClause())))
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
    return false; // select() has read all
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
        // The status is a colour mark, not a number to be read.
        return isStatus ? QVariant(statusColor(statusAt(index.row()), odd)) : QVariant();
    default:
        return {};
    }
}

bool UserSongsRelTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    return role == Qt::EditRole && index.isValid() &&
           writeCells(index.row(), {{index.column(), value}});
}

bool UserSongsRelTableModel::insertRows(int /*row*/, int /*count*/, const QModelIndex & /*parent*/)
{
    return false;
}

bool UserSongsRelTableModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || count < 1 || !hasRow(row) || count > rowCount() - row)
        return false;
    for (int left = count; left > 0; --left) {
        if (!deleteRow(row))
            return false;
    }
    return true;
}

QString UserSongsRelTableModel::textAt(int row, int column) const
{
    return data(index(row, column)).toString();
}

int UserSongsRelTableModel::statusAt(int row) const
{
    return data(index(row, m_status)).toInt();
}

bool UserSongsRelTableModel::writeCells(int row, const QList<Cell> &cells)
{
    if (!hasRow(row))
        return false;
    QStringList settings;
    QVariantList values;
    int first = columnCount();
    int last = 0;
    for (const Cell &cell : cells) {
        if (cell.column < 0 || cell.column >= columnCount())
            return false;
        settings.append(columnName(cell.column) + QStringLiteral("=?"));
        values.append(cell.value);
        first = std::min(first, cell.column);
        last = std::max(last, cell.column);
    }
    values.append(m_rows.at(row).at(idColumn));
    if (!run(QStringLiteral("UPDATE %1 SET %2 WHERE %3=?")
                 .arg(quoted(tableName()), settings.join(u','), columnName(idColumn)),
             values))
        return false;

    for (const Cell &cell : cells)
        m_rows[row][cell.column] = cell.value;
    emit dataChanged(index(row, first), index(row, last));
    return true;
}

bool UserSongsRelTableModel::deleteRow(int row)
{
    if (!run(QStringLiteral("DELETE FROM %1 WHERE %2=?")
                 .arg(quoted(tableName()), columnName(idColumn)),
             {m_rows.at(row).at(idColumn)}))
        return false;
    beginRemoveRows(QModelIndex(), row, row);
    m_rows.removeAt(row);
    endRemoveRows();
    return true;
}

/// Runs a statement that must change exactly one row of the table.
bool UserSongsRelTableModel::run(const QString &statement, const QVariantList &values,
                                 qint64 *newId)
{
    auto prepared = m_prepared.find(statement);
    if (prepared == m_prepared.end()) {
        QSqlQuery query(database());
        if (!query.prepare(statement)) {
            setLastError(query.lastError());
            return false;
        }
        prepared = m_prepared.emplace(statement, std::move(query));
    }
    QSqlQuery &query = *prepared;
    for (qsizetype i = 0; i < values.size(); ++i)
        query.bindValue(static_cast<int>(i), values.at(i));
    const bool done = query.exec() && query.numRowsAffected() == 1;
    setLastError(query.lastError());
    if (done && newId != nullptr)
        *newId = query.lastInsertId().toLongLong();
    return done;
}

QString UserSongsRelTableModel::quoted(const QString &name) const
{
    return database().driver()->escapeIdentifier(name, QSqlDriver::FieldName);
}
