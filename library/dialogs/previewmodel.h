#pragma once

#include "library/previewsong.h"
#include "library/syncplan.h"

#include <QAbstractTableModel>
#include <QList>

#include <vector>

namespace brisel
{

/// The preview of a synchronisation as a table: one row for each song and field that would change,
/// one for a song without such fields. The first row of a song has its tick, each field its own.
class PreviewModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { SongColumn, FieldColumn, OldColumn, NewColumn, FoundByColumn };
    static constexpr int columns = 5;

    /// The rows that are shown. The numbers are those of the dialog's list.
    enum class Filter {
        All = 0,
        Found = 1,
        NotFound = 2, ///< or not read
        Published = 3,
        LosesText = 4, ///< fields only
    };

    struct Counts {
        int songs = 0;
        int fields = 0;
    };

    /// Found songs are ticked with all their fields; songs that the publisher did not publish only
    /// if \a ticksUnpublished.
    PreviewModel(QList<PreviewSong> songs, bool ticksUnpublished, QObject *parent = nullptr);

    void setFilter(Filter filter);
    /// The number of the song in \a row; -1 if there is no such row.
    int songNumber(int row) const;
    /// \a number: see songNumber().
    const PreviewSong &song(int number) const { return m_songs.at(number); }
    /// Shows \a song instead of the song \a number, ticked if it was found.
    void replaceSong(int number, const PreviewSong &song);
    /// The first row of the song \a number; -1 if the filter hides it.
    int firstRow(int number) const;
    /// Ticks or unticks all rows that are shown.
    void tickShown(bool isTicked);

    /// What is ticked, shown or not.
    Counts counts() const;
    SyncPlan plan() const;

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
    struct Row {
        qint32 song;
        qint32 change; ///< -1 for a song without fields
    };

    void fillRows();
    bool isShown(const PreviewSong &song) const;
    bool isFirstOfSong(int row) const;
    bool hasTick(const QModelIndex &index) const;
    Qt::CheckState tickOf(const QModelIndex &index) const;
    Qt::CheckState tickOfSong(int number) const;
    void tickSong(int number, bool isTicked);
    void tickRow(const Row &row, bool isTicked);
    QString text(const QModelIndex &index) const;
    QString toolTip(const QModelIndex &index) const;
    const FieldChange *change(const QModelIndex &index) const;

    QList<PreviewSong> m_songs;
    QList<SongFields> m_ticked; ///< by song; all or none for a song without fields
    std::vector<Row> m_rows;
    Filter m_filter = Filter::All;
};

} // namespace brisel
