#include "library/dialogs/backupmodel.h"

namespace brisel
{

BackupModel::BackupModel(const QList<BackupList::Line> &lines, QObject *parent)
    : QAbstractTableModel(parent), m_lines(lines)
{
    checkAll(true);
}

void BackupModel::checkAll(bool isChecked)
{
    m_checked.clear();
    for (const BackupList::Line &line : m_lines)
        m_checked.append(isChecked && !line.refused.has_value());
    if (!m_lines.isEmpty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::CheckStateRole});
}

QList<BackupEntry> BackupModel::checked() const
{
    QList<BackupEntry> entries;
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        if (m_checked.at(i))
            entries.append(m_lines.at(i).entry);
    }
    return entries;
}

int BackupModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

int BackupModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

Qt::ItemFlags BackupModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (!m_lines.at(index.row()).refused.has_value())
        flags |= Qt::ItemIsEnabled;
    return index.column() == Name ? flags | Qt::ItemIsUserCheckable : flags;
}

QVariant BackupModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const BackupList::Line &line = m_lines.at(index.row());
    if (role == Qt::CheckStateRole && index.column() == Name && !line.refused.has_value())
        return m_checked.at(index.row()) ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::DisplayRole)
        return text(line, index.column());
    if (role != Qt::ToolTipRole)
        return {};
    const QString shown = text(line, index.column());
    // Rich text would be interpreted.
    return shown.isEmpty() ? QVariant() : QStringLiteral("<p>%1</p>").arg(shown.toHtmlEscaped());
}

QString BackupModel::text(const BackupList::Line &line, int column)
{
    switch (column) {
    case Name:
        return line.entry.name.simplified();
    case Path:
        return line.entry.path.simplified();
    default:
        return line.refused.has_value() ? line.refused->text() : QString();
    }
}

bool BackupModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole || index.column() != Name ||
        m_lines.at(index.row()).refused.has_value())
        return false;
    m_checked[index.row()] = value.toInt() == Qt::Checked;
    emit dataChanged(index, index, {role});
    return true;
}

QVariant BackupModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Name:
        return tr("Copia");
    case Path:
        return tr("Da dove viene");
    case Note:
        return tr("Nota");
    default:
        return {};
    }
}

} // namespace brisel
