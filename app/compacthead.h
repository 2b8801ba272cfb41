#pragma once

#include <QList>
#include <QObject>
#include <QSize>

class QBoxLayout;
class QLabel;
class QToolButton;
class QWidget;

namespace brisel
{

/// Makes the main window's logos, icons and margins smaller while the window is low, so that the
/// table keeps its room on a small screen.
class CompactHead : public QObject
{
    Q_OBJECT

public:
    static constexpr int leastHeight = 660;       ///< pixels; a lower window is always compact
    static constexpr int leastWindowHeight = 480; ///< pixels

    /// \a layout: of the window's content. Owned by \a window.
    CompactHead(QWidget &window, QBoxLayout &layout, const QList<QLabel *> &logos,
                const QList<QToolButton *> &buttons);

    bool isCompact() const { return m_isCompact; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setCompact(bool isCompact);

    QWidget &m_window;
    QBoxLayout &m_layout;
    QList<QLabel *> m_logos;
    QList<QSize> m_logoSizes;
    QList<QToolButton *> m_buttons;
    QSize m_iconSize;
    int m_spacing;   ///< pixels
    int m_saved = 0; ///< pixels of height that the compact head saves at most
    bool m_isCompact = false;
};

} // namespace brisel
