#include "app/compacthead.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QToolButton>
#include <QWidget>

#include <algorithm>

namespace brisel
{

static constexpr int compactSpacing = 4; // pixels

CompactHead::CompactHead(QWidget &window, QBoxLayout &layout, const QList<QLabel *> &logos,
                         const QList<QToolButton *> &buttons)
    : QObject(&window), m_window(window), m_layout(layout), m_logos(logos), m_buttons(buttons),
      m_iconSize(buttons.constFirst()->iconSize()), m_spacing(layout.spacing())
{
    for (const QLabel *logo : logos)
        m_logoSizes.append(logo->maximumSize());
    m_saved = logos.constFirst()->maximumHeight() / 2 +
              static_cast<int>(buttons.size()) * m_iconSize.height() / 2 +
              layout.count() * (m_spacing - compactSpacing);
    // The layout's own minimum would be that of the large head, which a user could not go below.
    window.setMinimumHeight(leastWindowHeight);
    window.installEventFilter(this);
}

bool CompactHead::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) {
        const int full = m_window.minimumSizeHint().height() + (m_isCompact ? m_saved : 0);
        setCompact(m_window.height() < std::max(leastHeight, full));
    }
    return QObject::eventFilter(watched, event);
}

void CompactHead::setCompact(bool isCompact)
{
    if (isCompact == m_isCompact)
        return;
    m_isCompact = isCompact;
    m_layout.setSpacing(isCompact ? compactSpacing : m_spacing);
    for (qsizetype i = 0; i < m_logos.size(); ++i)
        m_logos.at(i)->setFixedSize(isCompact ? m_logoSizes.at(i) / 2 : m_logoSizes.at(i));
    for (QToolButton *button : m_buttons)
        button->setIconSize(isCompact ? m_iconSize / 2 : m_iconSize);
}

} // namespace brisel
