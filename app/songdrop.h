#pragma once

#include <QObject>

namespace brisel
{

/// Accepts files and folders that are dragged from other programs onto a window, as copies; with
/// the Ctrl key they are to be added to the list. During a run no drag is accepted, and never one
/// from a window of this program.
class SongDrop : public QObject
{
    Q_OBJECT

public:
    /// Owned by \a window.
    explicit SongDrop(QWidget &window);

signals:
    /// One of these is emitted after the drop has ended, so that its source does not wait for the
    /// import.
    void dropped(const QStringList &paths);
    void droppedToAdd(const QStringList &paths);
    /// An accepted drag is over the window; \a adds: as it is now, it would add.
    void hovered(bool adds);
    /// It has left the window or was dropped.
    void ended();
    /// A drag was refused because a run is under way.
    void refused();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void end();
    void takeLater(const QStringList &paths, bool adds);

    bool m_isWanted = false; ///< the drag over the window has local files
    bool m_isOver = false;   ///< and is accepted
};

} // namespace brisel
