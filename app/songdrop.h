#pragma once

#include <QObject>

/// Takes files and folders that are dragged from elsewhere onto a window, as copies: their owner
/// keeps them. While a run is under way no drag is accepted.
class SongDrop : public QObject
{
    Q_OBJECT

public:
    /// Belongs to \a window.
    explicit SongDrop(QWidget &window);

signals:
    /// Comes after the drop has ended, so that its source waits for no import.
    void dropped(const QStringList &paths);
    /// A drag has come while a run is under way.
    void refused();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_isWanted = false; ///< the drag over the window holds local files
};
