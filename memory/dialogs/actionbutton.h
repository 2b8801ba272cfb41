#pragma once

#include <QPushButton>

class QAction;

namespace brisel
{

/// A button that shows and triggers an action, with its mnemonic.
class ActionButton : public QPushButton
{
    Q_OBJECT

public:
    /// \a action must outlive this.
    explicit ActionButton(QAction &action, QWidget *parent = nullptr);

private:
    void follow();

    QAction &m_action;
};

} // namespace brisel
