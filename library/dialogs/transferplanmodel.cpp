#include "library/dialogs/transferplanmodel.h"

#include "library/dialogs/celltext.h"

#include <QDateTime>
#include <QLocale>

namespace brisel
{

namespace
{

using PlanFilter = TransferPlanModel::Filter;

PlanFilter filterOf(TransferPlan::Outcome outcome)
{
    switch (outcome) {
    case TransferPlan::Outcome::New:
        return PlanFilter::New;
    case TransferPlan::Outcome::Same:
        return PlanFilter::Same;
    case TransferPlan::Outcome::Replaces:
    case TransferPlan::Outcome::ReplacesSong:
        return PlanFilter::Replaces;
    case TransferPlan::Outcome::NoRoom:
        return PlanFilter::NoRoom;
    case TransferPlan::Outcome::Failed:
        return PlanFilter::Failed;
    }
    return PlanFilter::All;
}

QString lastPart(const QString &path)
{
    return path.section(u'/', -1);
}

} // namespace

TransferPlanModel::TransferPlanModel(TransferPlan &plan, QObject *parent)
    : QAbstractTableModel(parent), m_plan(plan)
{
    fillRows();
}

void TransferPlanModel::setFilter(Filter filter)
{
    beginResetModel();
    m_filter = filter;
    fillRows();
    endResetModel();
}

void TransferPlanModel::fillRows()
{
    m_rows.clear();
    for (qsizetype number = 0; number < m_plan.songs().size(); ++number) {
        if (m_filter == Filter::All || filterOf(m_plan.songs().at(number).outcome) == m_filter)
            m_rows.append(number);
    }
}

void TransferPlanModel::tickShown(bool isTicked)
{
    tick(m_rows, isTicked);
}

/// What one tick changes is seen in other rows, too.
void TransferPlanModel::tick(const QList<qsizetype> &numbers, bool isTicked)
{
    m_plan.tick(numbers, isTicked);
    if (!m_rows.isEmpty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, columns - 1));
    emit ticksChanged();
}

void TransferPlanModel::retranslate()
{
    emit headerDataChanged(Qt::Horizontal, 0, columns - 1);
    if (!m_rows.isEmpty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, columns - 1));
}

int TransferPlanModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int TransferPlanModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

bool TransferPlanModel::hasTick(const QModelIndex &index) const
{
    return index.column() == SongColumn && m_plan.isTickable(m_rows.at(index.row()));
}

QString TransferPlanModel::outcomeText(const TransferPlan::Song &song) const
{
    switch (song.outcome) {
    case TransferPlan::Outcome::New:
        return tr("nuova");
    case TransferPlan::Outcome::Same:
        return tr("c'è già, uguale");
    case TransferPlan::Outcome::Replaces:
        return tr("sostituisce %1 (%2, %3)")
            .arg(lastPart(song.place), CopyRoom::sizeText(song.there.size),
                 QLocale().toString(QDateTime::fromSecsSinceEpoch(song.there.modified),
                                    QLocale::ShortFormat));
    case TransferPlan::Outcome::ReplacesSong:
        return tr("sostituisce un'altra song scelta: %1")
            .arg(m_plan.songs().at(song.replaced).source);
    case TransferPlan::Outcome::NoRoom:
        return tr("non ci sta");
    case TransferPlan::Outcome::Failed:
        return tr("non si può copiare: %1").arg(song.failure->text());
    }
    return {};
}

QString TransferPlanModel::text(qsizetype number, int column) const
{
    const TransferPlan::Song &song = m_plan.songs().at(number);
    const bool isFailed = song.outcome == TransferPlan::Outcome::Failed;
    switch (column) {
    case SongColumn:
        return cellText(lastPart(song.source));
    case OutcomeColumn:
        return cellText(outcomeText(song));
    case NameColumn:
        return m_plan.isTicked(number) || song.outcome == TransferPlan::Outcome::Same
                   ? cellText(song.newPath.mid(m_plan.root().size() + 1))
                   : QString();
    case SizeColumn:
        return isFailed ? QString() : CopyRoom::sizeText(song.bytes);
    default:
        return {};
    }
}

QString TransferPlanModel::toolTip(qsizetype number, int column) const
{
    const QString shown =
        column == SongColumn ? m_plan.songs().at(number).source : text(number, column);
    // Rich text would be interpreted.
    return shown.isEmpty() ? QString() : QStringLiteral("<p>%1</p>").arg(shown.toHtmlEscaped());
}

QVariant TransferPlanModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const qsizetype number = m_rows.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return text(number, index.column());
    case Qt::ToolTipRole:
        return toolTip(number, index.column());
    case Qt::CheckStateRole:
        if (!hasTick(index))
            return {};
        return m_plan.isTicked(number) ? Qt::Checked : Qt::Unchecked;
    case Qt::TextAlignmentRole:
        return index.column() == SizeColumn
                   ? QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter))
                   : QVariant();
    default:
        return {};
    }
}

bool TransferPlanModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !index.isValid() || !hasTick(index))
        return false;
    tick({m_rows.at(index.row())}, value.toInt() == Qt::Checked);
    return true;
}

QVariant TransferPlanModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case SongColumn:
        return tr("Song");
    case OutcomeColumn:
        return tr("Che cosa succede");
    case NameColumn:
        return tr("Nome sulla memoria");
    case SizeColumn:
        return tr("Dimensione");
    default:
        return {};
    }
}

Qt::ItemFlags TransferPlanModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return hasTick(index) ? flags | Qt::ItemIsUserCheckable : flags;
}

} // namespace brisel
