#pragma once

#include <QCompleter>

class QComboBox;
class QLineEdit;

namespace brisel
{

/// Offers the entries of an editable combo box that contain the typed text, in any case. The text
/// changes only when the user chooses an entry; QComboBox's own completer also replaces a text that
/// differs from an entry in case only.
class PopupCompleter : public QCompleter
{
    Q_OBJECT

public:
    /// Replaces the completer of \a combo, which owns this one.
    explicit PopupCompleter(QComboBox &combo);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void offer(const QString &typed);
    void take(const QString &entry);

    QLineEdit &m_edit;
};

} // namespace brisel
