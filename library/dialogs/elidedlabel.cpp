#include "library/dialogs/elidedlabel.h"

#include <QPainter>
#include <QStyle>

namespace brisel
{

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void ElidedLabel::setWholeText(const QString &text)
{
    setText(text);
    // A tool tip guesses its format, so the text is escaped and marked as rich text.
    setToolTip(
        text.isEmpty()
            ? QString()
            : QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(text.toHtmlEscaped()));
}

QSize ElidedLabel::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 40, fontMetrics().height() + 2 * margin()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 10, fontMetrics().height() + 2 * margin()};
}

void ElidedLabel::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    const QRect area = contentsRect();
    QString line = text();
    line.replace(u'\n', u' ');
    style()->drawItemText(&painter, area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                          palette(), isEnabled(),
                          fontMetrics().elidedText(line, Qt::ElideMiddle, area.width()),
                          foregroundRole());
}

} // namespace brisel
