#pragma once

#include "songfile/songinfo.h"

#include <QAbstractTableModel>
#include <QList>

namespace brisel
{

/// The markers of a song in the order of their bars; those of one bar keep their order.
class MarkersModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Bar, Text, ColumnCount };

    /// \a isWritable: whether the cells can be edited.
    MarkersModel(const QList<Marker> &markers, bool isWritable, QObject *parent = nullptr);

    const QList<Marker> &markers() const { return m_markers; }
    /// \a markers in the order of the table.
    static QList<Marker> sorted(QList<Marker> markers);

    /// Adds a marker without a text in the bar after that of \a row, or in the first one if there
    /// is no such row. Returns its row.
    int addAfter(int row);
    void removeMarkers(QList<int> rows);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    /// Refuses a marker that a song can't hold; a text loses its surrounding white space.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void setBar(int row, int bar);

    QList<Marker> m_markers;
    const bool m_isWritable;
};

} // namespace brisel
