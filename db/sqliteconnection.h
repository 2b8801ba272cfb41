#pragma once

#include <QSqlDatabase>
#include <QString>

namespace brisel
{

/// Adds an SQLite connection, not yet open. If \a name is in use, the connection gets the name with
/// a number, because reusing a connection's name would close the first one.
QSqlDatabase addSqliteConnection(const QString &name);

/// Closes and removes \a connection, of which no query may be left. A no-op for one without a name.
void removeSqliteConnection(QSqlDatabase &connection);

} // namespace brisel
