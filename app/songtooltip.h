#pragma once

#include <QObject>

class QTableView;

namespace brisel
{

class SongInfo;
class UserSongsRelTableModel;

/// The tool tip of a song in the library's table, with data that its row does not show: the full
/// path, the status in words, and the markers, which are read from the file on demand.
class SongToolTip : public QObject
{
    Q_OBJECT

public:
    /// \a view shows \a model. Owned by the view.
    SongToolTip(QTableView &view, UserSongsRelTableModel &model);

    /// The text for a row, as HTML; the texts of the song are escaped.
    QString textFor(int row) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static QStringList markerLines(const QString &path);

    QTableView &m_view;
    UserSongsRelTableModel &m_model;
};

} // namespace brisel
