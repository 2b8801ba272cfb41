/// Opens every window of the program in one language and prints what does not fit, a line each, and
/// the size of the screen at the end. Usage: measurewindows <language>. The screen and its scale
/// are those of the environment.

#include "app/screenfit.h"
#include "app/startup.h"
#include "app/style.h"
#include "tests/app/everywindow.h"
#include "tests/testhome.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QHeaderView>
#include <QScreen>
#include <QSettings>
#include <QTableView>
#include <QTest>
#include <QTextStream>
#include <QTranslator>

using namespace brisel;

namespace
{

/// "10,20 300x200"
QString textOf(const QRect &rect)
{
    return QStringLiteral("%1,%2 %3x%4")
        .arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height());
}

/// Whether \a widget is scrolled by one of its parents.
bool isScrolled(const QWidget *widget)
{
    const QWidget *parent = widget->parentWidget();
    return parent != nullptr &&
           (qobject_cast<const QAbstractScrollArea *>(parent) != nullptr || isScrolled(parent));
}

/// What is wrong with \a top, for the room of the screen.
QStringList problemsOf(const QWidget *top)
{
    QStringList problems;
    const QRect room = top->screen()->availableGeometry();
    if (!room.contains(top->frameGeometry()))
        problems.append(QStringLiteral("is at ") + textOf(top->frameGeometry()));
    for (const auto *button : top->findChildren<QAbstractButton *>()) {
        if (!button->isVisible() || button->window() != top || isScrolled(button))
            continue;
        const QRect place(button->mapTo(top, QPoint(0, 0)), button->size());
        const QSize least = button->minimumSizeHint().boundedTo(button->maximumSize());
        if (!top->rect().contains(place) ||
            button->visibleRegion().boundingRect().size() != place.size() ||
            place.width() < least.width() || place.height() < least.height())
            problems.append(button->objectName() + u' ' + button->text() +
                            QStringLiteral(" is at ") + textOf(place));
    }
    return problems;
}

/// Whether the columns of the songs are visible without scrolling where the window is \a width
/// wide.
bool showsAllColumns(QWidget *window, int width)
{
    window->resize(width, window->height());
    QCoreApplication::processEvents();
    const auto *table = window->findChild<QTableView *>();
    return window->width() == width &&
           table->horizontalHeader()->length() <= table->viewport()->width();
}

void measure(const QString &name, QTextStream &out)
{
    const std::unique_ptr<QWidget> window = makeWindow(name);
    QWidget *top = shown(*window);
    if (!QTest::qWaitForWindowExposed(top))
        out << name << ": is not shown" << Qt::endl;
    QCoreApplication::processEvents();
    for (const QString &problem : problemsOf(top))
        out << name << ": " << problem << Qt::endl;
    constexpr int widthOfAllColumns = 1000;
    if (name == QStringLiteral("main") &&
        top->screen()->availableSize().width() >= widthOfAllColumns &&
        !showsAllColumns(top, widthOfAllColumns))
        out << name << ": columns are out of sight" << Qt::endl;
}

} // namespace

int main(int argc, char **argv)
{
    const TestHome home;
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    QApplication application(argc, argv);
    QTextStream out(stdout);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2)
        return 2;
    applyDarkStyle(application);
    QTranslator programTexts;
    QTranslator qtTexts;
    QSettings(settingsOrganisation, settingsApplication)
        .setValue(QStringLiteral("language"), arguments.at(1));
    loadTranslations(arguments.at(1), programTexts, qtTexts);
    const ScreenFit screenFit(nullptr);
    for (const QString &name : windowNames)
        measure(name, out);
    out << textOf(QGuiApplication::primaryScreen()->geometry()) << Qt::endl;
    return 0;
}
