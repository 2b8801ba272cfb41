#include "app/outcomecolumn.h"

#include "db/usersongsreltablemodel.h"

#include <QTableView>

#include <algorithm>

namespace brisel
{

static constexpr int iconSize = 16; // pixels

OutcomeColumn::OutcomeColumn(QTableView &view, UserSongsRelTableModel &model)
    : QStyledItemDelegate(&view), m_model(model)
{
    std::transform(allSongOutcomes.begin(), allSongOutcomes.end(), m_icons.begin(), &icon);
    const int column = model.colIdxOutcome();
    view.setItemDelegateForColumn(column, this);
}

QIcon OutcomeColumn::icon(SongOutcome outcome)
{
    static constexpr std::array<const char *, allSongOutcomes.size()> names{
        "imported",  "updated",  "edited",      "restored",
        "not-found", "declined", "not-written", "not-readable"};
    const QLatin1StringView name(names.at(static_cast<size_t>(outcome)));
    return QIcon(QStringLiteral(":/imgs/outcome-%1.png").arg(name));
}

void OutcomeColumn::paint(QPainter *painter, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    QRect place(0, 0, iconSize, iconSize);
    place.moveCenter(option.rect.center());
    m_icons.at(static_cast<size_t>(m_model.outcome(index.row()))).paint(painter, place);
}

} // namespace brisel
