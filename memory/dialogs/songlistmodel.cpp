#include "memory/dialogs/songlistmodel.h"

#include "library/dialogs/celltext.h"
#include "memory/songdrag.h"

#include <QMimeData>

#include <algorithm>
#include <utility>

namespace brisel
{

SongListModel::SongListModel(QIcon warning, QObject *parent)
    : TwoLevelModel(parent), m_warning(std::move(warning))
{
}

void SongListModel::setContents(std::shared_ptr<const MemoryContents> contents)
{
    beginResetModel();
    m_list.setContents(std::move(contents));
    endResetModel();
}

void SongListModel::setList(std::size_t list)
{
    beginResetModel();
    m_list.setList(list);
    endResetModel();
}

void SongListModel::setSearch(const SongSearch &search)
{
    beginResetModel();
    m_list.setSearch(search);
    endResetModel();
}

void SongListModel::setLook(const MemoryLook *look)
{
    m_list.setLook(look);
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

std::pair<qsizetype, qsizetype> SongListModel::songsOf(const QModelIndex &index) const
{
    if (!index.isValid())
        return {0, 0};
    if (!m_list.isGrouped())
        return {index.row(), 1};
    if (isGroup(index)) {
        const PlayerList::Group &group = m_list.groups().at(index.row());
        return {group.first, group.count};
    }
    return {m_list.groups().at(topRow(index)).first + index.row(), 1};
}

QModelIndex SongListModel::indexOf(qsizetype shown) const
{
    if (shown < 0 || shown >= m_list.size())
        return {};
    if (!m_list.isGrouped())
        return index(static_cast<int>(shown), 0);
    const QList<PlayerList::Group> &groups = m_list.groups();
    const auto next = std::upper_bound(
        groups.cbegin(), groups.cend(), shown,
        [](qsizetype song, const PlayerList::Group &group) { return song < group.first; });
    const auto group = std::prev(next);
    return index(static_cast<int>(shown - group->first), 0,
                 index(static_cast<int>(group - groups.cbegin()), 0));
}

QString SongListModel::reasonOf(PlayerList::Marks marks)
{
    using Mark = PlayerList::Mark;
    const std::pair<Mark, QString> reasons[] = {
        {Mark::NoPath, tr("l'indice non ha il suo percorso")},
        {Mark::QuestionMark, tr("«?» nel percorso: Brisel non trova il file")},
        {Mark::NotListed, tr("manca in un elenco di Brisel")},
        {Mark::IdTwice, tr("il suo numero c'è due volte")},
        {Mark::NoFile, tr("il file non c'è")},
        {Mark::OtherDate, tr("il file è cambiato dopo l'ultimo aggiornamento")},
        {Mark::Unreadable, tr("il file non si può leggere")}};
    QStringList texts;
    for (const auto &[mark, reason] : reasons) {
        if (marks.testFlag(mark))
            texts.append(reason);
    }
    return texts.join(QStringLiteral("; "));
}

bool SongListModel::isGroup(const QModelIndex &index) const
{
    return m_list.isGrouped() && index.isValid() && isTop(index);
}

int SongListModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return static_cast<int>(m_list.isGrouped() ? m_list.groups().size() : m_list.size());
    return isGroup(parent) && parent.column() == 0 ? m_list.groups().at(parent.row()).count : 0;
}

int SongListModel::columnCount(const QModelIndex & /*parent*/) const
{
    return ColumnCount;
}

bool SongListModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

QVariant SongListModel::data(const QModelIndex &index, int role) const
{
    const int column = index.column();
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole &&
                             (role != Qt::DecorationRole || column != Title)))
        return {};
    if (isGroup(index)) {
        const QString text = groupText(m_list.groups().at(index.row()), column);
        return role == Qt::DisplayRole ? QVariant(text) : QVariant();
    }
    const PlayerList::Song &song = m_list.song(songsOf(index).first);
    if (role == Qt::DecorationRole)
        return m_list.marks(song) ? QVariant(m_warning) : QVariant();
    const QString text = songText(song, column);
    if (role == Qt::DisplayRole)
        return cellText(text);
    QStringList lines{text.simplified().toHtmlEscaped(),
                      reasonOf(m_list.marks(song)).toHtmlEscaped()};
    lines.removeDuplicates();
    lines.removeAll(QString());
    // Rich text would be interpreted.
    return lines.isEmpty() ? QVariant()
                           : QStringLiteral("<p>%1</p>").arg(lines.join(QStringLiteral("<br>")));
}

QString SongListModel::groupText(const PlayerList::Group &group, int column) const
{
    using Kind = PlayerList::Group::Kind;
    if (column == Path)
        return tr("%n song", "", group.count);
    if (column != Title)
        return {};
    if (group.kind == Kind::Lacking)
        return tr("(non in questo elenco)");
    return group.kind == Kind::Unnamed ? tr("(senza nome)") : cellText(m_list.groupName(group));
}

QString SongListModel::songText(const PlayerList::Song &song, int column) const
{
    switch (column) {
    case Title:
        return m_list.title(song);
    case Path:
        return m_list.path(song);
    case Tempo:
        return m_list.bpm(song) == 0 ? QString() : QString::number(m_list.bpm(song));
    case Format:
        return m_list.format(song);
    case Markers:
        return m_list.hasMarkers(song) ? tr("sì") : QString();
    default:
        return reasonOf(m_list.marks(song));
    }
}

QVariant SongListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Title:
        return tr("Titolo");
    case Path:
        return tr("Percorso");
    case Tempo:
        return tr("Tempo");
    case Format:
        return tr("Formato");
    case Markers:
        return tr("Marker");
    default:
        return tr("Nota");
    }
}

Qt::ItemFlags SongListModel::flags(const QModelIndex &index) const
{
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled
                           : Qt::NoItemFlags;
}

QStringList SongListModel::mimeTypes() const
{
    return {songDragType};
}

/// Songs whose id the index lacks have nothing to be dragged.
QMimeData *SongListModel::mimeData(const QModelIndexList &indexes) const
{
    QList<bool> isDragged(m_list.size(), false);
    for (const QModelIndex &index : indexes) {
        const auto [first, count] = songsOf(index);
        std::fill_n(isDragged.begin() + first, count, true);
    }
    QList<quint32> ids;
    for (qsizetype shown = 0; shown < isDragged.size(); ++shown) {
        if (isDragged.at(shown) && m_list.song(shown).position >= 0)
            ids.append(m_list.id(m_list.song(shown)));
    }
    if (ids.isEmpty())
        return nullptr;
    auto *data = new QMimeData;
    data->setData(songDragType, songDragData(m_list.contents().root(), ids));
    return data;
}

} // namespace brisel
