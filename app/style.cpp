#include "app/style.h"

#include <QApplication>
#include <QFile>
#include <QPalette>

namespace brisel
{

namespace
{

const QColor windowGrey(66, 66, 66);
const QColor selection(20, 90, 150);

/// The colours that the style sheet can't set: links, placeholders, rich text pages, item views.
QPalette darkPalette()
{
    const QColor dimmed(190, 190, 190);
    const QColor fieldText(16, 16, 16);
    QPalette palette;
    palette.setColor(QPalette::Window, windowGrey);
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::Button, windowGrey);
    palette.setColor(QPalette::ButtonText, Qt::white);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::Base, windowGrey);
    palette.setColor(QPalette::AlternateBase, windowGrey);
    palette.setColor(QPalette::PlaceholderText, fieldText);
    palette.setColor(QPalette::ToolTipBase, windowGrey);
    palette.setColor(QPalette::ToolTipText, Qt::white);
    palette.setColor(QPalette::Highlight, selection);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(140, 200, 255));
    palette.setColor(QPalette::LinkVisited, QColor(200, 180, 255));
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
        palette.setColor(QPalette::Disabled, role, dimmed);
    return palette;
}

} // namespace

void applyDarkStyle(QApplication &application)
{
    application.setStyle(QStringLiteral("Fusion"));
    application.setPalette(darkPalette());
    QFile sheet(QStringLiteral(":/style/dark.qss"));
    if (sheet.open(QIODevice::ReadOnly))
        application.setStyleSheet(QString::fromUtf8(sheet.readAll()));
}

} // namespace brisel
