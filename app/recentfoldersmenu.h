#pragma once

#include <QMenu>

namespace brisel
{

/// The menu of the folders from which songs were taken, the last one first, as far as they exist.
/// Read from the settings whenever it opens.
class RecentFoldersMenu : public QObject
{
    Q_OBJECT

public:
    /// Fills \a menu, which owns it.
    explicit RecentFoldersMenu(QMenu &menu);

signals:
    void chosen(const QString &folder);

private:
    void fill();

    QMenu &m_menu;
};

} // namespace brisel
