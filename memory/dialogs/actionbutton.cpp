#include "memory/dialogs/actionbutton.h"

#include <QAction>

namespace brisel
{

ActionButton::ActionButton(QAction &action, QWidget *parent) : QPushButton(parent), m_action(action)
{
    setAutoDefault(false);
    setObjectName(action.objectName() + QStringLiteral("Button"));
    connect(&action, &QAction::changed, this, &ActionButton::follow);
    connect(this, &QPushButton::clicked, &action, &QAction::trigger);
    follow();
}

void ActionButton::follow()
{
    setText(m_action.text());
    setToolTip(m_action.toolTip());
    setAccessibleDescription(m_action.toolTip());
    setEnabled(m_action.isEnabled());
}

} // namespace brisel
