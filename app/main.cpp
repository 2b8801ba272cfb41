#include "app/mainwindow.h"
#include "app/startup.h"
#include "app/style.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QTimer>
#include <QTranslator>

using namespace brisel;

int main(int argc, char **argv)
{
    QSettings settings = openSettings();
    startLog(settings);

    QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/imgs/brisel2pc.png")));
    applyDarkStyle(application);

    QTranslator programTranslator;
    QTranslator qtTranslator;
    loadTranslations(chooseLanguage(settings, QLocale::system()), programTranslator, qtTranslator);

    MainWindow window;
    window.show();
    // The other arguments are songs and folders, such as a file manager passes.
    const QStringList paths = QApplication::arguments().mid(1);
    if (!paths.isEmpty())
        QTimer::singleShot(0, &window, [&window, paths] { window.openSongs(paths); });
    return QApplication::exec();
}
