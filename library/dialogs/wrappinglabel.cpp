#include "library/dialogs/wrappinglabel.h"

#include <QPainter>
#include <QTextLayout>

#include <cmath>

namespace brisel
{

/// Breaks the text of \a layout into lines of \a width pixels and returns their height.
static int breakLines(QTextLayout &layout, int width)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    qreal height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, height});
        height += line.height();
    }
    layout.endLayout();
    return static_cast<int>(std::ceil(height));
}

WrappingLabel::WrappingLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

QSize WrappingLabel::sizeHint() const
{
    const int width = std::max(minimumWidth(), fontMetrics().averageCharWidth() * 40);
    return {width, heightForWidth(width)};
}

QSize WrappingLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 20, fontMetrics().height()};
}

int WrappingLabel::heightForWidth(int width) const
{
    QTextLayout layout(shownText(), font());
    return breakLines(layout, width);
}

void WrappingLabel::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    QTextLayout layout(shownText(), font());
    breakLines(layout, width());
    layout.draw(&painter, {0, 0});
}

QString WrappingLabel::shownText() const
{
    QString shown = text();
    if (shown.size() > longestText)
        shown = shown.left(longestText / 2) + u'…' + shown.right(longestText / 2);
    return shown.replace(u'\n', QChar::LineSeparator);
}

} // namespace brisel
