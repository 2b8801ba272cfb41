#include "library/dialogs/previewmodel.h"

#include "library/dialogs/celltext.h"

#include <QFont>

#include <algorithm>
#include <utility>

namespace brisel
{

namespace
{

QString fieldText(FieldChange::Field field)
{
    using Field = FieldChange::Field;
    switch (field) {
    case Field::Title:
        return PreviewModel::tr("Titolo");
    case Field::Artist:
        return PreviewModel::tr("Artista");
    case Field::Genre:
        return PreviewModel::tr("Genere");
    case Field::Author:
        return PreviewModel::tr("Autore");
    case Field::Length:
        return PreviewModel::tr("Durata");
    case Field::Bpm:
        return PreviewModel::tr("Bpm");
    case Field::Key:
        return PreviewModel::tr("Tonalità");
    case Field::Markers:
        return PreviewModel::tr("Marker");
    }
    return {};
}

QString foundByText(const PreviewSong &song)
{
    if (!song.wasFound())
        return {};
    switch (*song.foundBy) {
    case FoundBy::FileName:
        return PreviewModel::tr("nome del file");
    case FoundBy::LongName:
        return PreviewModel::tr("nome lungo");
    case FoundBy::Title:
        return PreviewModel::tr("titolo");
    case FoundBy::Hand:
        return PreviewModel::tr("a mano");
    }
    return {};
}

/// What is shown in place of a field.
QString outcomeText(const PreviewSong &song)
{
    if (song.whyNotRead.has_value())
        return PreviewModel::tr("non letta: %1").arg(song.whyNotRead->text());
    return song.wasFound() ? PreviewModel::tr("nessun dato cambia")
                           : PreviewModel::tr("non trovata");
}

} // namespace

PreviewModel::PreviewModel(QList<PreviewSong> songs, bool ticksUnpublished, QObject *parent)
    : QAbstractTableModel(parent), m_songs(std::move(songs))
{
    m_ticked.reserve(m_songs.size());
    for (const PreviewSong &song : std::as_const(m_songs)) {
        const bool isTicked = song.wasFound() && (song.isPublished || ticksUnpublished);
        m_ticked.append(isTicked ? SongFields::all() : SongFields::none());
    }
    fillRows();
}

void PreviewModel::setFilter(Filter filter)
{
    beginResetModel();
    m_filter = filter;
    fillRows();
    endResetModel();
}

void PreviewModel::fillRows()
{
    m_rows.clear();
    for (qint32 number = 0; number < m_songs.size(); ++number) {
        const PreviewSong &song = m_songs.at(number);
        if (!isShown(song))
            continue;
        if (song.changes.isEmpty() && m_filter != Filter::LosesText)
            m_rows.push_back({number, -1});
        for (qint32 change = 0; change < song.changes.size(); ++change) {
            if (m_filter != Filter::LosesText || losesText(song.changes.at(change)))
                m_rows.push_back({number, change});
        }
    }
}

bool PreviewModel::isShown(const PreviewSong &song) const
{
    switch (m_filter) {
    case Filter::Found:
        return song.wasFound();
    case Filter::NotFound:
        return !song.wasFound();
    case Filter::Published:
        return song.isPublished;
    default:
        return true;
    }
}

int PreviewModel::songNumber(int row) const
{
    return row >= 0 && row < rowCount() ? m_rows[static_cast<size_t>(row)].song : -1;
}

void PreviewModel::replaceSong(int number, const PreviewSong &song)
{
    beginResetModel();
    m_songs[number] = song;
    m_ticked[number] = song.wasFound() ? SongFields::all() : SongFields::none();
    fillRows();
    endResetModel();
    emit ticksChanged();
}

int PreviewModel::firstRow(int number) const
{
    const auto row = std::lower_bound(m_rows.begin(), m_rows.end(), number,
                                      [](const Row &a, int song) { return a.song < song; });
    return row != m_rows.end() && row->song == number ? static_cast<int>(row - m_rows.begin()) : -1;
}

void PreviewModel::tickShown(bool isTicked)
{
    if (m_rows.empty())
        return;
    for (const Row &row : m_rows)
        tickRow(row, isTicked);
    emit dataChanged(index(0, 0), index(rowCount() - 1, columns - 1), {Qt::CheckStateRole});
    emit ticksChanged();
}

void PreviewModel::tickRow(const Row &row, bool isTicked)
{
    if (!m_songs.at(row.song).wasFound())
        return;
    if (row.change < 0) {
        tickSong(row.song, isTicked);
        return;
    }
    const FieldChange::Field field = m_songs.at(row.song).changes.at(row.change).field;
    if (isTicked)
        m_ticked[row.song].insert(field);
    else
        m_ticked[row.song].remove(field);
}

void PreviewModel::tickSong(int number, bool isTicked)
{
    m_ticked[number] = isTicked ? SongFields::all() : SongFields::none();
}

Qt::CheckState PreviewModel::tickOfSong(int number) const
{
    const QList<FieldChange> &changes = m_songs.at(number).changes;
    const SongFields ticked = m_ticked.at(number);
    const auto isTicked = [ticked](const FieldChange &change) {
        return ticked.holds(change.field);
    };
    if (changes.isEmpty())
        return ticked == SongFields::none() ? Qt::Unchecked : Qt::Checked;
    if (std::all_of(changes.begin(), changes.end(), isTicked))
        return Qt::Checked;
    return std::any_of(changes.begin(), changes.end(), isTicked) ? Qt::PartiallyChecked
                                                                 : Qt::Unchecked;
}

PreviewModel::Counts PreviewModel::counts() const
{
    Counts counts;
    for (int number = 0; number < m_songs.size(); ++number) {
        if (tickOfSong(number) == Qt::Unchecked)
            continue;
        ++counts.songs;
        for (const FieldChange &change : m_songs.at(number).changes)
            counts.fields += m_ticked.at(number).holds(change.field) ? 1 : 0;
    }
    return counts;
}

SyncPlan PreviewModel::plan() const
{
    SyncPlan plan;
    for (int number = 0; number < m_songs.size(); ++number) {
        if (tickOfSong(number) == Qt::Unchecked)
            continue;
        SongFields fields = SongFields::all();
        for (const FieldChange &change : m_songs.at(number).changes) {
            if (!m_ticked.at(number).holds(change.field))
                fields.remove(change.field);
        }
        plan.add(m_songs.at(number), fields);
    }
    return plan;
}

void PreviewModel::retranslate()
{
    emit headerDataChanged(Qt::Horizontal, 0, columns - 1);
    if (!m_rows.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, columns - 1));
}

int PreviewModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int PreviewModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

bool PreviewModel::isFirstOfSong(int row) const
{
    return row == 0 || songNumber(row - 1) != songNumber(row);
}

const FieldChange *PreviewModel::change(const QModelIndex &index) const
{
    const Row &row = m_rows[static_cast<size_t>(index.row())];
    return row.change < 0 ? nullptr : &m_songs.at(row.song).changes.at(row.change);
}

bool PreviewModel::hasTick(const QModelIndex &index) const
{
    if (!m_songs.at(songNumber(index.row())).wasFound())
        return false;
    return index.column() == SongColumn ? isFirstOfSong(index.row())
                                        : index.column() == FieldColumn && change(index) != nullptr;
}

Qt::CheckState PreviewModel::tickOf(const QModelIndex &index) const
{
    const int number = songNumber(index.row());
    if (index.column() == SongColumn)
        return tickOfSong(number);
    return m_ticked.at(number).holds(change(index)->field) ? Qt::Checked : Qt::Unchecked;
}

QString PreviewModel::text(const QModelIndex &index) const
{
    const PreviewSong &song = m_songs.at(songNumber(index.row()));
    const FieldChange *field = change(index);
    switch (index.column()) {
    case SongColumn:
        return song.path.section(u'/', -1);
    case FieldColumn:
        return field != nullptr ? fieldText(field->field) : outcomeText(song);
    case OldColumn:
        return field != nullptr ? cellText(field->before) : QString();
    case NewColumn:
        return field != nullptr ? cellText(field->after) : QString();
    default:
        return foundByText(song);
    }
}

/// Escaped, because a tool tip may be read as HTML.
QString PreviewModel::toolTip(const QModelIndex &index) const
{
    const FieldChange *field = change(index);
    if (index.column() == SongColumn)
        return m_songs.at(songNumber(index.row())).path.toHtmlEscaped();
    QString shown = text(index).toHtmlEscaped();
    if (field == nullptr || index.column() != OldColumn || !losesText(*field))
        return shown;
    return tr("%1 (questo testo andrebbe perso)").arg(shown);
}

QVariant PreviewModel::data(const QModelIndex &index, int role) const
{
    if (songNumber(index.row()) < 0)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(index);
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        return toolTip(index);
    case Qt::CheckStateRole:
        return hasTick(index) ? QVariant(tickOf(index)) : QVariant();
    case Qt::FontRole:
        if (const FieldChange *field = change(index);
            field != nullptr && index.column() == OldColumn && losesText(*field)) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        return {};
    default:
        return {};
    }
}

bool PreviewModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || songNumber(index.row()) < 0 || !hasTick(index))
        return false;
    const bool isTicked = value.toInt() == Qt::Checked;
    const int number = songNumber(index.row());
    if (index.column() == SongColumn)
        tickSong(number, isTicked);
    else
        tickRow(m_rows[static_cast<size_t>(index.row())], isTicked);
    const int first = firstRow(number);
    int last = first;
    while (songNumber(last + 1) == number)
        ++last;
    emit dataChanged(this->index(first, SongColumn), this->index(last, FieldColumn),
                     {Qt::CheckStateRole});
    emit ticksChanged();
    return true;
}

QVariant PreviewModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case SongColumn:
        return tr("Song");
    case FieldColumn:
        return tr("Campo");
    case OldColumn:
        return tr("Testo attuale");
    case NewColumn:
        return tr("Testo nuovo");
    case FoundByColumn:
        return tr("Trovata per");
    default:
        return {};
    }
}

Qt::ItemFlags PreviewModel::flags(const QModelIndex &index) const
{
    if (songNumber(index.row()) < 0)
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return hasTick(index) ? flags | Qt::ItemIsUserCheckable : flags;
}

} // namespace brisel
