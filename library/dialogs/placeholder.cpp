#include "library/dialogs/placeholder.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

namespace brisel
{

namespace
{

QFont slanted(QFont font, bool isItalic)
{
    font.setItalic(isItalic);
    return font;
}

} // namespace

void showPlaceholder(QLineEdit &field, const QString &text)
{
    const QColor darkBlue(10, 10, 100);
    field.setPlaceholderText(text);
    field.setFont(slanted(field.font(), !text.isEmpty()));
    field.ensurePolished(); // the style sheet makes the colour half transparent
    QPalette palette = field.palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::PlaceholderText, darkBlue);
    palette.setColor(QPalette::Disabled, QPalette::PlaceholderText,
                     palette.color(QPalette::Disabled, QPalette::Text));
    field.setPalette(palette);
}

void showPlaceholder(QComboBox &list, const QString &text)
{
    const bool isShown = !text.isEmpty() && list.currentIndex() < 0;
    list.setPlaceholderText(text);
    list.setFont(slanted(list.font(), isShown));
    list.view()->setFont(slanted(list.font(), false));
}

} // namespace brisel
