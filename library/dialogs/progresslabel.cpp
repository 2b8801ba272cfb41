#include "library/dialogs/progresslabel.h"

namespace brisel
{

ProgressLabel::ProgressLabel(const QString &text) : QLabel(text), m_second(new QLabel(this))
{
    m_second->setObjectName(QStringLiteral("timeLeftLabel"));
    for (QLabel *label : {static_cast<QLabel *>(this), m_second}) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
    }
    setContentsMargins(0, 0, 0, m_second->fontMetrics().height());
}

void ProgressLabel::setSecondLine(const QString &text)
{
    if (m_second->text() != text)
        m_second->setText(text);
}

void ProgressLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    const int line = m_second->fontMetrics().height();
    m_second->setGeometry(0, height() - line, width(), line);
}

} // namespace brisel
