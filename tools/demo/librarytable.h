#pragma once

#include <QString>

class QMainWindow;
class QTableView;

namespace brisel
{

/// Reads the main window's song table as displayed.
class LibraryTable
{
public:
    enum Column { Title = 2, Artist = 3, Genre = 4, FileName = 9, ShortName = 10, Status = 11 };
    enum State { Imported = 0, Updated = 1, Edited = 2, Failed = 3 };

    explicit LibraryTable(const QMainWindow &window);

    int rows() const;
    QString text(int row, Column column) const;
    int status(int row) const;
    int rowsWithStatus(State state) const;
    /// The row of the file with this path; -1 if there is no such row.
    int rowOf(const QString &path) const;
    void doubleClick(int row) const;

private:
    QTableView *m_view;
};

} // namespace brisel
