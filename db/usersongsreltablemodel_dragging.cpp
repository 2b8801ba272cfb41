// Songs that are dragged out of the table.

#include "db/usersongsreltablemodel.h"

#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace brisel
{

QStringList UserSongsRelTableModel::mimeTypes() const
{
    return {QStringLiteral("text/uri-list")};
}

QMimeData *UserSongsRelTableModel::mimeData(const QModelIndexList &indexes) const
{
    QList<int> rows;
    for (const QModelIndex &index : indexes) {
        if (isSong(index.row()) && (rows.isEmpty() || rows.constLast() != index.row()))
            rows.append(index.row());
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    QList<QUrl> files;
    files.reserve(rows.size());
    for (const int row : std::as_const(rows))
        files.append(QUrl::fromLocalFile(textAt(row, m_filename)));
    auto *data = new QMimeData;
    data->setUrls(files);
    return data;
}

} // namespace brisel
