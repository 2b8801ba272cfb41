#include "library/dialogs/windowplace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace brisel
{

namespace
{

const QString maximised = QStringLiteral("max");

/// Invalid if \a text is not four numbers.
QRect rectangle(const QStringList &parts)
{
    QList<int> numbers;
    for (const QString &part : parts) {
        bool isNumber = false;
        constexpr int most = 1 << 20; // pixels
        numbers.append(std::clamp(part.toInt(&isNumber), -most, most));
        if (!isNumber)
            return {};
    }
    return numbers.size() == 4 ? QRect(numbers.at(0), numbers.at(1), numbers.at(2), numbers.at(3))
                               : QRect();
}

} // namespace

void restorePlace(QWidget &window, const QSettings &settings, const Setting<QString> &stored)
{
    QStringList parts = stored.in(settings).split(u',');
    const bool isMaximised = parts.removeOne(maximised);
    QRect place = rectangle(parts);
    if (!place.isValid())
        return;
    const QScreen *screen = QGuiApplication::screenAt(place.center());
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    const QRect available = screen->availableGeometry().adjusted(0, title, 0, 0);
    place.setSize(place.size().boundedTo(available.size()));
    place.moveLeft(
        std::clamp(place.left(), available.left(), available.right() + 1 - place.width()));
    place.moveTop(
        std::clamp(place.top(), available.top(), available.bottom() + 1 - place.height()));
    window.setGeometry(place);
    if (isMaximised)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void storePlace(const QWidget &window, QSettings &settings, const Setting<QString> &stored)
{
    const bool isNormal = !window.isMaximized() && !window.isMinimized() && !window.isFullScreen();
    const QRect place = isNormal ? window.geometry() : window.normalGeometry();
    if (!place.isValid())
        return;
    QString text = QStringLiteral("%1,%2,%3,%4")
                       .arg(place.x())
                       .arg(place.y())
                       .arg(place.width())
                       .arg(place.height());
    if (window.isMaximized())
        text += u',' + maximised;
    if (text != stored.in(settings))
        stored.store(settings, text);
}

} // namespace brisel
