#include "library/dialogs/popupcompleter.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace brisel
{

PopupCompleter::PopupCompleter(QComboBox &combo)
    : QCompleter(combo.model(), &combo), m_edit(*combo.lineEdit())
{
    combo.setCompleter(nullptr);
    setCaseSensitivity(Qt::CaseInsensitive);
    setFilterMode(Qt::MatchContains);
    setWidget(
        &m_edit); // QLineEdit::setCompleter() would change the text with the highlighted entry
    connect(&m_edit, &QLineEdit::textEdited, this, &PopupCompleter::offer);
    connect(this, qOverload<const QString &>(&QCompleter::activated), this, &PopupCompleter::take);
}

/// Without a chosen entry, Return and Tab do what they do without the list.
bool PopupCompleter::eventFilter(QObject *watched, QEvent *event)
{
    // popup() makes the list at its first call, during which events arrive here.
    const auto *list = qobject_cast<QAbstractItemView *>(watched);
    if (event->type() == QEvent::KeyPress && list != nullptr && !list->currentIndex().isValid()) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab ||
            key == Qt::Key_Backtab) {
            popup()->hide();
            return QCoreApplication::sendEvent(&m_edit, event);
        }
    }
    return QCompleter::eventFilter(watched, event);
}

void PopupCompleter::offer(const QString &typed)
{
    setCompletionPrefix(typed);
    const bool isEntry = completionCount() == 1 && currentCompletion() == typed;
    if (typed.isEmpty() || completionCount() == 0 || isEntry)
        popup()->hide();
    else
        complete();
}

void PopupCompleter::take(const QString &entry)
{
    m_edit.selectAll();
    m_edit.insert(entry);
}

} // namespace brisel
