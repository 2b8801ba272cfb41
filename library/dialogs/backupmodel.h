#pragma once

#include "library/backuplist.h"

#include <QAbstractTableModel>
#include <QList>

namespace brisel
{

/// The copies of a backup with check boxes; refused lines have none, and show the reason.
class BackupModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Name, Path, Note, ColumnCount };

    /// All copies that may be restored are checked.
    explicit BackupModel(const QList<BackupList::Line> &lines, QObject *parent = nullptr);

    void checkAll(bool isChecked);
    bool hasChecked() const { return m_checked.contains(true); }
    QList<BackupEntry> checked() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    static QString text(const BackupList::Line &line, int column);

    const QList<BackupList::Line> m_lines;
    QList<bool> m_checked; ///< for each line
};

} // namespace brisel
