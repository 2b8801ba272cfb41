#pragma once

#include "db/songoutcome.h"

#include <QIcon>
#include <QStyledItemDelegate>

class QTableView;

namespace brisel
{

class UserSongsRelTableModel;

/// Draws what became of each song as an icon in a narrow column.
class OutcomeColumn : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// \a view shows \a model. Owned by the view.
    OutcomeColumn(QTableView &view, UserSongsRelTableModel &model);

    /// The icon of an outcome: each has a shape of its own.
    static QIcon icon(SongOutcome outcome);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    UserSongsRelTableModel &m_model;
    std::array<QIcon, allSongOutcomes.size()> m_icons;
};

} // namespace brisel
