#include "library/dialogs/emptytablehint.h"

#include <QAction>
#include <QEvent>
#include <QTableView>
#include <QToolButton>

#include <algorithm>

namespace brisel
{

EmptyTableHint::EmptyTableHint(QTableView &view) : QLabel(view.viewport())
{
    setObjectName(QStringLiteral("emptyTableHint"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAlignment(Qt::AlignCenter);
    setMargin(20);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    hide();
    view.viewport()->installEventFilter(this);
}

void EmptyTableHint::showText(const QString &text)
{
    if (text == this->text())
        return;
    setText(text);
    setVisible(!text.isEmpty());
    place();
}

void EmptyTableHint::offer(QAction &action)
{
    m_button = new QToolButton(parentWidget());
    m_button->setDefaultAction(&action);
    m_button->setFocusPolicy(Qt::TabFocus);
    connect(&action, &QAction::changed, this, &EmptyTableHint::place);
    place();
}

/// The button is below the text, or at the lower edge of a low table.
void EmptyTableHint::place()
{
    constexpr int gap = 12;
    const QRect all = parentWidget()->rect();
    setGeometry(all);
    if (m_button == nullptr)
        return;
    m_button->setVisible(!text().isEmpty() && m_button->defaultAction()->isEnabled());
    m_button->resize(m_button->sizeHint());
    const int textHeight = heightForWidth(all.width()) - 2 * margin();
    const int below = all.center().y() + textHeight / 2 + gap;
    m_button->move(all.center().x() - m_button->width() / 2,
                   std::min(below, all.bottom() - m_button->height()));
}

bool EmptyTableHint::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        place();
    return QLabel::eventFilter(watched, event);
}

} // namespace brisel
