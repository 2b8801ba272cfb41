#pragma once

#include <QTimer>
#include <QWidget>

class QAbstractItemModel;
class QLabel;

/// What the main window's status bar says: the number of songs in the table.
class StatusLine : public QWidget
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget *parent = nullptr);

    /// Shows from now on how many rows \a songs has. Rows that come by the thousand are counted a
    /// few times a second.
    void setModel(const QAbstractItemModel *songs);

protected:
    void changeEvent(QEvent *event) override;

private:
    void showSongs();

    const QAbstractItemModel *m_songs = nullptr; ///< null while there is no library
    QTimer m_recount;
    QLabel *m_songsLabel;
};
