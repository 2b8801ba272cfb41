#include "library/dialogs/emptytablehint.h"

#include <QEvent>
#include <QTableView>

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
    setGeometry(parentWidget()->rect());
}

bool EmptyTableHint::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QLabel::eventFilter(watched, event);
}

} // namespace brisel
