#pragma once

#include <QObject>

class QMenu;
class QMenuBar;

namespace brisel
{

/// Gives each entry of \a menu that has no mnemonic one that no other entry has: if possible the
/// first letter of a word.
void addMnemonics(QMenu &menu);

/// The mnemonics of a menu bar and its menus, in any language: those of the bar are set anew when
/// the language changes, those of a menu whenever it opens.
class Mnemonics : public QObject
{
    Q_OBJECT

public:
    /// \a bar has all its menus; it owns this.
    explicit Mnemonics(QMenuBar &bar);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QMenuBar &m_bar;
};

} // namespace brisel
