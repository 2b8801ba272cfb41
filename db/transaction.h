#pragma once

#include <QSqlDatabase>

namespace brisel
{

/// Combines all changes of a database into one transaction while it exists, which saves SQLite the
/// work of one transaction for each row. Readers on the same connection see each change
/// immediately; the destructor commits, and nothing is ever rolled back.
class Transaction
{
public:
    explicit Transaction(const QSqlDatabase &database)
        : m_database(database), m_isOpen(m_database.transaction())
    {
    }
    ~Transaction()
    {
        if (m_isOpen)
            m_database.commit();
    }
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

private:
    QSqlDatabase m_database;
    bool m_isOpen;
};

} // namespace brisel
