#include "memory/dialogs/foldersmodel.h"

#include "library/dialogs/celltext.h"

#include <QLocale>

namespace brisel
{

void FoldersModel::setLook(const MemoryLook *look)
{
    beginResetModel();
    for (QList<Line> &lines : m_lines)
        lines.clear();
    if (look != nullptr) {
        for (const MemoryLook::Finding &finding : look->findings())
            m_lines.at(static_cast<std::size_t>(finding.kind))
                .append({finding.detail, finding.path, finding.size, {}, false});
    }
    showGroups();
    endResetModel();
}

void FoldersModel::setDuplicates(const QList<QList<MemoryLook::SongFile>> &duplicates)
{
    beginResetModel();
    QList<Line> &lines = m_lines.at(duplicatesGroup);
    lines.clear();
    for (const QList<MemoryLook::SongFile> &same : duplicates) {
        for (const MemoryLook::SongFile &file : same) {
            const bool isFirst = file.path == same.first().path;
            lines.append({MemoryLook::Detail::None, file.path, file.size,
                          isFirst ? same.at(1).path : same.first().path, isFirst});
        }
    }
    showGroups();
    endResetModel();
}

void FoldersModel::showGroups()
{
    m_shown.clear();
    for (std::size_t group = 0; group < groups; ++group) {
        if (!m_lines.at(group).isEmpty())
            m_shown.append(group);
    }
}

QStringList FoldersModel::pathsOf(const QModelIndex &index) const
{
    const QList<Line> &lines = m_lines.at(m_shown.at(topRow(index)));
    if (!isTop(index))
        return {lines.at(index.row()).path};
    QStringList paths;
    for (const Line &line : lines) {
        if (!line.isFirst)
            paths.append(line.path);
    }
    return paths;
}

int FoldersModel::lastCopies(const QSet<QString> &paths) const
{
    int contents = 0;
    bool areAllIn = false;
    for (const Line &line : m_lines.at(duplicatesGroup)) {
        if (line.isFirst) {
            contents += areAllIn ? 1 : 0;
            areAllIn = true;
        }
        areAllIn = areAllIn && paths.contains(line.path);
    }
    return contents + (areAllIn ? 1 : 0);
}

QString FoldersModel::groupText(std::size_t group)
{
    if (group == duplicatesGroup)
        return tr("Doppioni");
    switch (static_cast<MemoryLook::Kind>(group)) {
    case MemoryLook::Kind::NewSong:
        return tr("Nuove, non ancora nell'indice");
    case MemoryLook::Kind::TooLong:
        return tr("Troppo lunghi");
    case MemoryLook::Kind::Unreadable:
        return tr("Non leggibili");
    case MemoryLook::Kind::LoneGraphics:
        return tr("Grafica senza il suo MP3");
    case MemoryLook::Kind::WorkFolder:
        return tr("Cartella di lavoro del programma");
    }
    return {};
}

QString FoldersModel::noteOf(std::size_t group, const Line &line)
{
    using Detail = MemoryLook::Detail;
    switch (line.detail) {
    case Detail::LongPath:
        return tr("il percorso ha più di 45 caratteri: Brisel non può avere la song");
    case Detail::LongName:
        return tr("il nome ha più di otto caratteri");
    case Detail::LongFolderName:
        return tr("il nome della cartella ha più di otto caratteri");
    case Detail::UnreadableFolder:
        return tr("la cartella non si può leggere fino alla fine");
    case Detail::UnreadableFile:
        return tr("il file non si può leggere");
    case Detail::ShortFile:
        return tr("il file è vuoto o troppo corto");
    case Detail::NoFile:
        return tr("non è un file");
    case Detail::InvalidName:
        return tr("il nome non è valido");
    case Detail::Outside:
        return tr("porta fuori dalla memoria");
    case Detail::None:
        break;
    }
    if (group == duplicatesGroup)
        return tr("uguale a %1").arg(line.twin);
    if (group == static_cast<std::size_t>(MemoryLook::Kind::WorkFolder))
        return tr("qui il programma tiene i nomi abbreviati e ciò che serve a finire un "
                  "aggiornamento interrotto; Brisel non la usa");
    return {};
}

QString FoldersModel::text(std::size_t group, const Line &line, int column) const
{
    switch (column) {
    case Path:
        return line.path;
    case Size:
        return line.size < 0
                   ? QString()
                   : QLocale().formattedDataSize(line.size, 1, QLocale::DataSizeTraditionalFormat);
    default:
        return noteOf(group, line);
    }
}

int FoldersModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return static_cast<int>(m_shown.size());
    return isTop(parent) && parent.column() == 0
               ? static_cast<int>(m_lines.at(m_shown.at(parent.row())).size())
               : 0;
}

int FoldersModel::columnCount(const QModelIndex & /*parent*/) const
{
    return ColumnCount;
}

QVariant FoldersModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const std::size_t group = m_shown.at(topRow(index));
    const QList<Line> &lines = m_lines.at(group);
    if (isTop(index)) {
        const QString shown = tr("%1: %2").arg(groupText(group), QLocale().toString(lines.size()));
        return role == Qt::DisplayRole && index.column() == Path ? QVariant(shown) : QVariant();
    }
    const QString shown = text(group, lines.at(index.row()), index.column());
    if (role == Qt::DisplayRole)
        return cellText(shown);
    // Rich text would be interpreted.
    return shown.isEmpty() ? QVariant()
                           : QStringLiteral("<p>%1</p>").arg(shown.simplified().toHtmlEscaped());
}

QVariant FoldersModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Path:
        return tr("Percorso");
    case Size:
        return tr("Dimensione");
    default:
        return tr("Nota");
    }
}

} // namespace brisel
