#pragma once

#include <QList>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <map>
#include <utility>

class QSqlRecord;

namespace brisel
{

/// The statements that change single rows of a table. Each kind of change of the same columns is
/// prepared once, for any number of rows.
class RowStatements
{
public:
    enum class Change { Insert, Update, Delete };
    static constexpr int idColumn = 0; ///< identifies the row to update or delete

    RowStatements() = default;
    /// For the \a columns of \a table in an open database.
    RowStatements(const QSqlDatabase &database, const QString &table, const QSqlRecord &columns);

    /// Changes exactly one row: the one with this \a id, or a new row if \a change is Insert. Gives
    /// \a columns the \a values of the same places. Returns null, with the reason in lastError(),
    /// if no row or more than one is changed; otherwise the query, valid until the next call.
    const QSqlQuery *run(Change change, const QList<int> &columns, const QVariantList &values,
                         const QVariant &id);
    /// The error of the last call of run(); invalid if the database reported none.
    QSqlError lastError() const { return m_lastError; }

    /// The number of prepared statements.
    size_t count() const { return m_prepared.size(); }
    /// Quoted for SQL.
    QString tableName() const { return m_tableName; }
    /// Quoted for SQL.
    QString columnName(int column) const { return m_columnNames.at(column); }

private:
    QSqlQuery *preparedFor(Change change, const QList<int> &columns);
    QString statementFor(Change change, const QList<int> &columns) const;

    QSqlDatabase m_database;
    QString m_tableName;       ///< quoted
    QStringList m_columnNames; ///< quoted
    /// The named placeholder of each column in statements: Qt binds positional ones more slowly.
    QStringList m_places;
    /// By kind of change and columns.
    std::map<std::pair<Change, QList<int>>, QSqlQuery> m_prepared;
    QSqlError m_lastError;
};

} // namespace brisel
