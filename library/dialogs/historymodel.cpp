#include "library/dialogs/historymodel.h"

#include "library/dialogs/celltext.h"
#include "library/foundsong.h"
#include "library/songchanges.h"

#include <QHash>
#include <QLocale>

#include <utility>

namespace brisel
{

namespace
{

QString kindText(RunKind kind)
{
    switch (kind) {
    case RunKind::Synchronisation:
        return HistoryModel::tr("Sincronizzazione");
    case RunKind::Edit:
        return HistoryModel::tr("Modifica");
    case RunKind::ApplyToAll:
        return HistoryModel::tr("Applica a tutti");
    case RunKind::Restore:
        return HistoryModel::tr("Ripristino");
    }
    return QStringLiteral("?");
}

QString fileNameOf(const HistorySong &song)
{
    return song.path.section(u'/', -1);
}

} // namespace

/// A run, a song or a field; what the others have is empty.
struct HistoryModel::Node {
    Level level = Level::Run;
    int row = 0;
    Node *parent = nullptr;
    HistoryRun run = {};
    HistorySong song = {};
    QString name = {}; ///< of a song, as it is shown
    FieldChange field = {};
    bool isFetched = false;
    mutable std::optional<QString> state = {}; ///< of a song that was shown
    std::vector<std::unique_ptr<Node>> children = {};
};

HistoryModel::HistoryModel(History &history, QObject *parent)
    : QAbstractItemModel(parent), m_history(history)
{
    reload();
}

HistoryModel::~HistoryModel() = default;

void HistoryModel::reload()
{
    beginResetModel();
    m_runs.clear();
    const QList<HistoryRun> runs = m_history.runs();
    noteTrouble();
    for (const HistoryRun &run : runs) {
        auto node = std::make_unique<Node>();
        node->row = static_cast<int>(m_runs.size());
        node->run = run;
        m_runs.push_back(std::move(node));
    }
    endResetModel();
}

void HistoryModel::noteTrouble()
{
    m_trouble = m_history.trouble();
}

HistoryModel::Node *HistoryModel::nodeOf(const QModelIndex &index)
{
    return static_cast<Node *>(index.internalPointer());
}

HistoryModel::Level HistoryModel::levelOf(const QModelIndex &index)
{
    return nodeOf(index)->level;
}

const HistoryRun &HistoryModel::runOf(const QModelIndex &index) const
{
    const Node *node = nodeOf(index);
    while (node->parent != nullptr)
        node = node->parent;
    return node->run;
}

QList<HistorySong> HistoryModel::songsOf(const QModelIndex &index)
{
    const Node *node = nodeOf(index);
    if (node->level == Level::Run) {
        fetchSongs(index.siblingAtColumn(0));
        QList<HistorySong> songs;
        for (const std::unique_ptr<Node> &child : node->children)
            songs.append(child->song);
        return songs;
    }
    return {node->level == Level::Song ? node->song : node->parent->song};
}

QModelIndex HistoryModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const auto &nodes = parent.isValid() ? nodeOf(parent)->children : m_runs;
    return createIndex(row, column, nodes.at(static_cast<std::size_t>(row)).get());
}

QModelIndex HistoryModel::parent(const QModelIndex &index) const
{
    Node *parent = index.isValid() ? nodeOf(index)->parent : nullptr;
    return parent == nullptr ? QModelIndex() : createIndex(parent->row, 0, parent);
}

int HistoryModel::rowCount(const QModelIndex &parent) const
{
    if (parent.column() > 0)
        return 0;
    return static_cast<int>(parent.isValid() ? nodeOf(parent)->children.size() : m_runs.size());
}

int HistoryModel::columnCount(const QModelIndex & /*parent*/) const
{
    return ColumnCount;
}

bool HistoryModel::hasChildren(const QModelIndex &parent) const
{
    return canFetchMore(parent) || rowCount(parent) > 0;
}

bool HistoryModel::canFetchMore(const QModelIndex &parent) const
{
    return parent.isValid() && parent.column() == 0 && nodeOf(parent)->level != Level::Field &&
           !nodeOf(parent)->isFetched;
}

void HistoryModel::fetchMore(const QModelIndex &parent)
{
    if (!canFetchMore(parent))
        return;
    if (nodeOf(parent)->level == Level::Run)
        fetchSongs(parent);
    else
        fetchFields(parent);
}

void HistoryModel::fetchSongs(const QModelIndex &run)
{
    Node *node = nodeOf(run);
    if (std::exchange(node->isFetched, true))
        return;
    const QList<HistorySong> songs = m_history.songs(node->run.id);
    noteTrouble();
    if (songs.isEmpty())
        return;
    QHash<QString, int> names;
    for (const HistorySong &song : songs)
        ++names[fileNameOf(song)];
    beginInsertRows(run, 0, static_cast<int>(songs.size()) - 1);
    node->children.reserve(static_cast<std::size_t>(songs.size()));
    for (const HistorySong &song : songs) {
        auto child = std::make_unique<Node>();
        child->level = Level::Song;
        child->row = static_cast<int>(node->children.size());
        child->parent = node;
        child->song = song;
        child->name = fileNameOf(song);
        // Songs of one name are told apart by their folders.
        if (names.value(child->name) > 1)
            child->name += QStringLiteral(" - %1").arg(song.path.chopped(child->name.size() + 1));
        node->children.push_back(std::move(child));
    }
    endInsertRows();
}

void HistoryModel::fetchFields(const QModelIndex &song)
{
    Node *node = nodeOf(song);
    node->isFetched = true;
    const QList<FieldChange> fields = m_history.fields(node->song.id);
    noteTrouble();
    if (fields.isEmpty())
        return;
    beginInsertRows(song, 0, static_cast<int>(fields.size()) - 1);
    for (const FieldChange &field : fields) {
        auto child = std::make_unique<Node>();
        child->level = Level::Field;
        child->row = static_cast<int>(node->children.size());
        child->parent = node;
        child->field = field;
        node->children.push_back(std::move(child));
    }
    endInsertRows();
}

QVariant HistoryModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Node &node = *nodeOf(index);
    if (role == Qt::DisplayRole)
        return text(node, index.column());
    if (role != Qt::ToolTipRole || node.level == Level::Run)
        return {};
    const QString shown = node.level == Level::Song && index.column() == What
                              ? node.song.path.simplified()
                              : text(node, index.column());
    // Rich text would be interpreted.
    return shown.isEmpty() ? QVariant() : QStringLiteral("<p>%1</p>").arg(shown.toHtmlEscaped());
}

QString HistoryModel::text(const Node &node, int column) const
{
    switch (node.level) {
    case Level::Run:
        return runText(node.run, column);
    case Level::Song:
        return songText(node, column);
    case Level::Field:
        break;
    }
    switch (column) {
    case What:
        return QCoreApplication::translate("RunReport", fieldName(node.field.field));
    case Before:
        return cellText(node.field.before);
    case After:
        return cellText(node.field.after);
    default:
        return {};
    }
}

QString HistoryModel::runText(const HistoryRun &run, int column)
{
    if (column == What)
        return tr("%1 - %2").arg(QLocale().toString(run.time, QLocale::ShortFormat),
                                 kindText(run.kind));
    return column == State ? tr("%n song", "", run.songs) : QString();
}

QString HistoryModel::songText(const Node &song, int column) const
{
    if (column == What)
        return cellText(song.name);
    if (column != State)
        return {};
    if (!song.state.has_value())
        song.state = stateText(song);
    return *song.state;
}

QString HistoryModel::stateText(const Node &song) const
{
    switch (FoundSong::at(song.song.path, song.song, m_history).kind) {
    case FoundSong::Kind::AsWritten:
        return tr("come scritta allora");
    case FoundSong::Kind::AsBefore:
        return tr("come prima della modifica");
    case FoundSong::Kind::WrittenLater:
        return tr("modificata di nuovo in seguito");
    case FoundSong::Kind::Other:
        return tr("cambiata in seguito da un altro programma");
    case FoundSong::Kind::Nothing:
        break;
    }
    return tr("il file non c'è più");
}

QVariant HistoryModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case What:
        return tr("Operazione, song, dato");
    case Before:
        return tr("Prima");
    case After:
        return tr("Dopo");
    case State:
        return tr("Stato");
    default:
        return {};
    }
}

} // namespace brisel
