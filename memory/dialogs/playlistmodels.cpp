#include "memory/dialogs/playlistmodels.h"

#include "base/bytes.h"
#include "base/songsuffix.h"
#include "index/indexrecords.h"
#include "index/songinfoindex.h"
#include "library/dialogs/celltext.h"
#include "memory/songdrag.h"

#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace brisel
{

namespace
{

/// The mime type of entries that are moved within their playlist.
const QString entryDragType = QStringLiteral("application/x-brisel2pc-playlist-entries");

QString formatOf(const QByteArray &record)
{
    return SongInfoIndex::typeName(SongRecord::typeOf(byteAt(record, SongRecord::typeAt)));
}

QStringList droppedPaths(const QMimeData &data)
{
    QStringList paths;
    for (const QUrl &url : data.urls()) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    return paths;
}

} // namespace

PlaylistsModel::PlaylistsModel(const PlaylistDocument &document, QObject *parent)
    : QAbstractListModel(parent), m_document(document)
{
    connect(&document, &PlaylistDocument::replaced, this, [this] {
        beginResetModel();
        endResetModel();
    });
    connect(&document, &PlaylistDocument::changed, this, [this](qsizetype playlist) {
        emit dataChanged(index(int(playlist)), index(int(playlist)));
    });
    connect(&document, &PlaylistDocument::modifiedChanged, this, &PlaylistsModel::retranslate);
    connect(&document, &PlaylistDocument::missingChanged, this, &PlaylistsModel::retranslate);
}

void PlaylistsModel::retranslate()
{
    if (rowCount() > 0)
        emit dataChanged(index(0), index(rowCount() - 1));
}

int PlaylistsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_document.count());
}

QVariant PlaylistsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    return textOf(index.row());
}

QString PlaylistsModel::textOf(qsizetype playlist) const
{
    using State = MemoryContents::Playlist::State;
    const QString name = tr("Playlist %1").arg(m_document.number(playlist)) +
                         (m_document.isModified(playlist) ? QStringLiteral(" *") : QString());
    if (m_document.state(playlist) == State::Missing)
        return tr("%1 (il file manca)").arg(name);
    if (m_document.state(playlist) == State::Unreadable)
        return tr("%1 (il file non si legge)").arg(name);
    const QString text = tr("%1 (%2)").arg(name).arg(m_document.size(playlist));
    const qsizetype faults = m_document.faults(playlist);
    if (!m_document.isEditable(playlist))
        return tr("%1 - sola lettura").arg(text);
    return faults == 0 ? text : tr("%1 - da riparare: %2").arg(text).arg(faults);
}

PlaylistEntriesModel::PlaylistEntriesModel(PlaylistDocument &document, const QIcon &warning,
                                           QObject *parent)
    : QAbstractTableModel(parent), m_document(document), m_warning(warning)
{
    connect(&document, &PlaylistDocument::replaced, this, [this] { setPlaylist(-1); });
    connect(&document, &PlaylistDocument::missingChanged, this, [this] {
        if (rowCount() > 0)
            emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    });
    connect(&document, &PlaylistDocument::changed, this,
            [this](qsizetype playlist, const QList<qsizetype> &rows) {
                if (playlist != m_playlist)
                    return;
                setPlaylist(playlist);
                emit rowsChanged(rows);
            });
}

void PlaylistEntriesModel::setPlaylist(qsizetype playlist)
{
    beginResetModel();
    m_playlist = playlist;
    endResetModel();
}

int PlaylistEntriesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || m_playlist < 0 ? 0 : static_cast<int>(m_document.size(m_playlist));
}

int PlaylistEntriesModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

bool PlaylistEntriesModel::isDroppable() const
{
    return m_isWritable && m_playlist >= 0 && m_document.isEditable(m_playlist);
}

Qt::ItemFlags PlaylistEntriesModel::flags(const QModelIndex &index) const
{
    if (!isDroppable())
        return QAbstractTableModel::flags(index);
    return index.isValid() ? QAbstractTableModel::flags(index) | Qt::ItemIsDragEnabled
                           : Qt::ItemIsDropEnabled;
}

QVariant PlaylistEntriesModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const qsizetype entry = index.row();
    if (role == Qt::TextAlignmentRole && (index.column() == Number || index.column() == Tempo))
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::DecorationRole && index.column() == Title)
        return m_document.entryState(m_playlist, entry) == PlaylistDocument::EntryState::Good
                   ? QVariant()
                   : QVariant(m_warning);
    if (role != Qt::DisplayRole && (role != Qt::ToolTipRole || index.column() != Note))
        return {};
    const QByteArray record = m_document.record(m_playlist, entry);
    const quint8 bpm = byteAt(record, SongRecord::bpmAt);
    switch (index.column()) {
    case Number:
        return entry + 1;
    case Title:
        return cellText(m_document.title(m_playlist, entry));
    case Tempo:
        return bpm > 0 ? QString::number(bpm) : QString();
    case Format:
        return formatOf(record);
    case Note:
        return noteOf(entry);
    default:
        return {};
    }
}

QString PlaylistEntriesModel::noteOf(qsizetype entry) const
{
    using State = PlaylistDocument::EntryState;
    switch (m_document.entryState(m_playlist, entry)) {
    case State::Good:
        break;
    case State::Dead:
        return tr("la song non è nell'indice della memoria");
    case State::Wrong:
        return tr("il player suona un'altra song: %1")
            .arg(cellText(m_document.contents()->title(m_document.song(m_playlist, entry))));
    case State::NoFile:
        return tr("il file della song manca");
    }
    return {};
}

QVariant PlaylistEntriesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Number:
        return tr("N.");
    case Title:
        return tr("Titolo");
    case Tempo:
        return tr("Tempo");
    case Format:
        return tr("Formato");
    default:
        return tr("Nota");
    }
}

/// Ids of songs count on this memory only.
QString PlaylistEntriesModel::songPlace() const
{
    return m_document.contents()->root();
}

/// Numbers of entries count in this playlist only.
QString PlaylistEntriesModel::entryPlace() const
{
    return QStringLiteral("%1 %2").arg(m_document.number(m_playlist)).arg(songPlace());
}

bool PlaylistEntriesModel::takes(const QMimeData &data) const
{
    if (data.hasFormat(entryDragType))
        return isDragFrom(entryPlace(), data.data(entryDragType));
    if (data.hasFormat(songDragType))
        return isDragFrom(songPlace(), data.data(songDragType));
    const QStringList paths = droppedPaths(data);
    return std::any_of(paths.cbegin(), paths.cend(),
                       [](const QString &path) { return isSongSuffix(QFileInfo(path).suffix()); });
}

QStringList PlaylistEntriesModel::mimeTypes() const
{
    return {entryDragType, songDragType, QStringLiteral("text/uri-list")};
}

QMimeData *PlaylistEntriesModel::mimeData(const QModelIndexList &indexes) const
{
    QList<quint32> rows;
    for (const QModelIndex &index : indexes)
        rows.append(static_cast<quint32>(index.row()));
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    auto *data = new QMimeData;
    data->setData(entryDragType, songDragData(entryPlace(), rows));
    return data;
}

bool PlaylistEntriesModel::canDropMimeData(const QMimeData *data, Qt::DropAction /*action*/,
                                           int /*row*/, int /*column*/,
                                           const QModelIndex & /*parent*/) const
{
    return isDroppable() && takes(*data);
}

bool PlaylistEntriesModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row,
                                        int column, const QModelIndex &parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    const qsizetype place = row >= 0 ? row : parent.isValid() ? parent.row() : rowCount();
    if (data->hasFormat(entryDragType)) {
        const auto rows =
            idsFromDrag(entryPlace(), data->data(entryDragType)).value_or(QList<quint32>());
        m_document.move(m_playlist, {rows.cbegin(), rows.cend()}, place);
    } else if (data->hasFormat(songDragType)) {
        const auto ids =
            idsFromDrag(songPlace(), data->data(songDragType)).value_or(QList<quint32>());
        const qsizetype added = m_document.add(m_playlist, place, ids);
        if (added < ids.size())
            emit songsRefused(ids.size(), added);
    } else {
        emit filesDropped(droppedPaths(*data), place);
    }
    // The view must remove nothing.
    return false;
}

} // namespace brisel
