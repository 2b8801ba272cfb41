#include "db/sqliteconnection.h"

namespace brisel
{

QSqlDatabase addSqliteConnection(const QString &name)
{
    QString freeName = name;
    for (int number = 2; QSqlDatabase::contains(freeName); ++number)
        freeName = QStringLiteral("%1_%2").arg(name).arg(number);
    return QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), freeName);
}

void removeSqliteConnection(QSqlDatabase &connection)
{
    const QString name = connection.connectionName();
    connection.close();
    connection = QSqlDatabase();
    if (!name.isEmpty())
        QSqlDatabase::removeDatabase(name);
}

} // namespace brisel
