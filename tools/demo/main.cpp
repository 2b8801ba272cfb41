#include "app/mainwindow.h"
#include "app/startup.h"
#include "app/style.h"
#include "tools/demo/libraryroad.h"
#include "tools/demo/memoryroad.h"
#include "tools/demo/pagesroad.h"
#include "tools/demo/stage.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QLocale>
#include <QSettings>
#include <QTranslator>

#include <optional>

namespace
{

constexpr QSize pictureSize(1200, 860); ///< wide enough for every column of the table

struct Wishes {
    QString language;
    QString output;
};

/// Reads the command line without an application object, which must come after the home.
std::optional<Wishes> readCommandLine(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const QString it = QStringLiteral("it");
    const QCommandLineOption language(QStringLiteral("language"), QStringLiteral("it or en"),
                                      QStringLiteral("code"), it);
    const QCommandLineOption output(QStringLiteral("output"),
                                    QStringLiteral("folder for the pictures"),
                                    QStringLiteral("folder"), QStringLiteral("demo"));
    QCommandLineParser parser;
    parser.addOptions({language, output});
    const bool isUnderstood = parser.parse(arguments) && parser.positionalArguments().isEmpty();
    const QString code = parser.value(language);
    if (!isUnderstood || (code != it && code != QStringLiteral("en")))
        return std::nullopt;
    return Wishes{code, QDir::current().absoluteFilePath(parser.value(output))};
}

void walk(Stage &stage)
{
    LibraryRoad library(stage);
    library.openWindow();
    library.importSongs();
    library.synchronise();
    library.editOneSong();

    MemoryRoad memory(stage);
    memory.transfer();
    memory.useTheMemory();
    memory.rebuild();
    memory.exportLists();

    readHelp(stage);
    readAbout(stage);
    memory.listIndex();
}

int showRoad(DemoHome &home, Narrator &narrator, bool english)
{
    MainWindow window;
    window.resize(pictureSize);
    window.show();
    Hand hand(window, narrator, english);
    Stage stage{home, window, narrator, hand, writeDemoSongs(home.songs())};
    if (narrator.check(home.isValid() && !stage.songs.isEmpty(),
                       QStringLiteral("%1 sample songs, an empty memory, a home of its own")
                           .arg(stage.songs.size())))
        walk(stage);

    narrator.step(QStringLiteral("The end: %1 pictures, %2 failures")
                      .arg(narrator.pictures())
                      .arg(narrator.failures()));
    return narrator.failures() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

/// Walks the whole road of the program by clicks and keys on its real window, in a world of its
/// own, and fails when any step did not do what it should.
int main(int argc, char **argv)
{
    const std::optional<Wishes> wishes = readCommandLine(argc, argv);
    if (!wishes) {
        qCritical("Usage: brisel2pc-demo [--language it|en] [--output <folder>]");
        return EXIT_FAILURE;
    }
    Narrator narrator(wishes->output, wishes->language);
    DemoHome home(wishes->language);
    QSettings settings(settingsOrganisation, settingsApplication);
    startLog(settings);

    QApplication application(argc, argv);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    applyDarkStyle(application);
    QTranslator program;
    QTranslator qt;
    loadTranslations(chooseLanguage(settings, QLocale::system()), program, qt);
    return showRoad(home, narrator, wishes->language == QStringLiteral("en"));
}
