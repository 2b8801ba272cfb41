#pragma once

#include <QObject>

namespace brisel
{

/// Accepts files and folders that are dragged from other programs onto a window, as copies. During
/// a run no drag is accepted.
class SongDrop : public QObject
{
    Q_OBJECT

public:
    /// Owned by \a window.
    explicit SongDrop(QWidget &window);

signals:
    /// Emitted after the drop has ended, so that its source does not wait for the import.
    void dropped(const QStringList &paths);
    /// A drag was refused because a run is under way.
    void refused();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_isWanted = false; ///< the drag over the window has local files
};

} // namespace brisel
