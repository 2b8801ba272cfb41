#include "app/commandline.h"
#include "app/mainwindow.h"
#include "app/openedfiles.h"
#include "app/screenfit.h"
#include "app/startup.h"
#include "app/style.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QTimer>
#include <QTranslator>

using namespace brisel;

namespace
{

/// The translators belong to the application.
void loadStartTranslations(QCoreApplication &application, QSettings &settings)
{
    loadTranslations(chooseLanguage(settings, QLocale::system()), *new QTranslator(&application),
                     *new QTranslator(&application));
}

} // namespace

int main(int argc, char **argv)
{
    QSettings settings = openSettings();
    const CommandLine commandLine(argumentsOf(argc, argv));
    if (commandLine.isAnswer()) {
        QCoreApplication application(argc, argv);
        loadStartTranslations(application, settings);
        return commandLine.answer();
    }
    startLog(settings);

    QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/imgs/brisel2pc.png")));
    applyDarkStyle(application);
    loadStartTranslations(application, settings);

    const ScreenFit screenFit(nullptr);
    MainWindow window;
    window.show();
    const OpenedFiles openedFiles(nullptr);
    QObject::connect(&openedFiles, &OpenedFiles::opened, &window, &MainWindow::openSongs);
    // A file manager passes songs and folders as arguments.
    const QStringList paths = commandLine.paths();
    if (!paths.isEmpty())
        QTimer::singleShot(0, &window, [&window, paths] { window.openSongs(paths); });
    return QApplication::exec();
}
