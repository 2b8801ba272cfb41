#include "db/rowstatements.h"

#include <QSqlDriver>
#include <QSqlField>
#include <QSqlRecord>

namespace brisel
{

namespace
{

const QString rowPlace = QStringLiteral(":row"); ///< the id's placeholder in a statement

} // namespace

RowStatements::RowStatements(const QSqlDatabase &database, const QString &table,
                             const QSqlRecord &columns)
    : m_database(database),
      m_tableName(database.driver()->escapeIdentifier(table, QSqlDriver::TableName))
{
    for (int column = 0; column < columns.count(); ++column) {
        m_columnNames.append(
            database.driver()->escapeIdentifier(columns.fieldName(column), QSqlDriver::FieldName));
        m_places.append(QStringLiteral(":v%1").arg(column));
    }
}

const QSqlQuery *RowStatements::run(Change change, const QList<int> &columns,
                                    const QVariantList &values, const QVariant &id)
{
    QSqlQuery *query = preparedFor(change, columns);
    if (query == nullptr)
        return nullptr;
    for (qsizetype i = 0; i < values.size(); ++i)
        query->bindValue(m_places.at(columns.at(i)), values.at(i));
    if (change != Change::Insert)
        query->bindValue(rowPlace, id);
    const bool done = query->exec() && query->numRowsAffected() == 1;
    m_lastError = query->lastError();
    return done ? query : nullptr;
}

/// The same few changes are made to many rows: their statements are prepared once.
QSqlQuery *RowStatements::preparedFor(Change change, const QList<int> &columns)
{
    const auto key = std::make_pair(change, columns);
    auto known = m_prepared.find(key);
    if (known == m_prepared.end()) {
        QSqlQuery query(m_database);
        if (!query.prepare(statementFor(change, columns))) {
            m_lastError = query.lastError();
            return nullptr;
        }
        known = m_prepared.emplace(key, std::move(query)).first;
    }
    return &known->second;
}

QString RowStatements::statementFor(Change change, const QList<int> &columns) const
{
    const QString row = columnName(idColumn) + u'=' + rowPlace;
    QStringList names;
    QStringList places;
    QStringList settings;
    for (const int column : columns) {
        names.append(columnName(column));
        places.append(m_places.at(column));
        settings.append(names.constLast() + u'=' + places.constLast());
    }
    switch (change) {
    case Change::Insert:
        return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
            .arg(m_tableName, names.join(u','), places.join(u','));
    case Change::Update:
        return QStringLiteral("UPDATE %1 SET %2 WHERE %3")
            .arg(m_tableName, settings.join(u','), row);
    case Change::Delete:
        break;
    }
    return QStringLiteral("DELETE FROM %1 WHERE %2").arg(m_tableName, row);
}

} // namespace brisel
