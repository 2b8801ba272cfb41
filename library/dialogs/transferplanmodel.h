#pragma once

#include "library/transferplan.h"

#include <QAbstractTableModel>
#include <QList>

namespace brisel
{

/// The plan of a transfer as a table, one row for each song, with the ticks.
class TransferPlanModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { SongColumn, OutcomeColumn, NameColumn, SizeColumn };
    static constexpr int columns = 4;

    /// The rows that are shown. The numbers are those of the dialog's list.
    enum class Filter { All = 0, New = 1, Same = 2, Replaces = 3, NoRoom = 4, Failed = 5 };

    /// \a plan has run, and must outlive this.
    explicit TransferPlanModel(TransferPlan &plan, QObject *parent = nullptr);

    /// The rows stay the same until the next call, whatever is ticked.
    void setFilter(Filter filter);
    /// Ticks or unticks all rows that are shown.
    void tickShown(bool isTicked);
    /// Shows all texts in the current language.
    void retranslate();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

signals:
    void ticksChanged();

private:
    void fillRows();
    void tick(const QList<qsizetype> &numbers, bool isTicked);
    bool hasTick(const QModelIndex &index) const;
    QString text(qsizetype number, int column) const;
    QString outcomeText(const TransferPlan::Song &song) const;
    QString toolTip(qsizetype number, int column) const;

    TransferPlan &m_plan;
    QList<qsizetype> m_rows; ///< numbers of songs
    Filter m_filter = Filter::All;
};

} // namespace brisel
