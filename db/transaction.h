#pragma once

#include <QSqlDatabase>

/// Makes all changes of a database one change while it lives. Readers on the same connection see
/// each change at once, and none is taken back; but SQLite opens and closes its books once instead
/// of for every row.
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
