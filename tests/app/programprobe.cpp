// A plugin that looks at the real program from inside. Qt loads it while the application object is
// made, where QT_PLUGIN_PATH has its folder and QT_QPA_GENERIC_PLUGINS is "brisel_probe:<code>". It
// warns at once, prints what the window shows as a JSON object as soon as the event loop runs, and
// ends the loop with that code.

#include <QApplication>
#include <QGenericPlugin>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <cstdio>

class ProgramProbe : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "programprobe.json")

public:
    QObject *create(const QString &key, const QString &code) override;
};

namespace
{

const QMainWindow *shownWindow()
{
    for (const QWidget *widget : QApplication::topLevelWidgets()) {
        const auto *window = qobject_cast<const QMainWindow *>(widget);
        if (window != nullptr && window->isVisible())
            return window;
    }
    return nullptr;
}

bool showsImageOfTheProgram(const QIcon &icon)
{
    const QSize size(32, 32);
    const QImage shown = icon.pixmap(size).toImage();
    return !shown.isNull() &&
           shown == QIcon(QStringLiteral(":/imgs/brisel2pc.png")).pixmap(size).toImage();
}

/// Empty if no window is shown.
QJsonObject whatIsSeen()
{
    const QMainWindow *window = shownWindow();
    if (window == nullptr)
        return {};
    QStringList menus;
    for (const QAction *menu : window->menuBar()->actions())
        menus.append(menu->text().remove(u'&'));
    const QMessageBox box(QMessageBox::Question, QString(), QString(), QMessageBox::Yes);
    QWidget *middle = window->centralWidget();
    const QImage picture = middle->grab().toImage();
    return {
        {QStringLiteral("menus"), menus.join(u'|')},
        {QStringLiteral("yes"), box.button(QMessageBox::Yes)->text()},
        {QStringLiteral("ground"), picture.pixelColor(1, 1).name()},
        {QStringLiteral("styled"), !qApp->styleSheet().isEmpty()},
        {QStringLiteral("icon"), showsImageOfTheProgram(window->windowIcon())},
    };
}

} // namespace

QObject *ProgramProbe::create(const QString &key, const QString &code)
{
    if (key != QStringLiteral("brisel_probe"))
        return nullptr;
    qWarning("the probe is loaded");
    auto *probe = new QObject;
    QTimer::singleShot(0, probe, [code] {
        std::fputs(QJsonDocument(whatIsSeen()).toJson().constData(), stdout);
        QCoreApplication::exit(code.toInt());
    });
    return probe;
}

#include "programprobe.moc"
