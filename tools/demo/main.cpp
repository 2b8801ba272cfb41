#include "app/mainwindow.h"
#include "app/startup.h"
#include "app/style.h"
#include "tools/demo/changestour.h"
#include "tools/demo/librarytour.h"
#include "tools/demo/listeningtour.h"
#include "tools/demo/memorytour.h"
#include "tools/demo/memorywindowtour.h"
#include "tools/demo/pagestour.h"
#include "tools/demo/stage.h"
#include "tools/demo/tabletour.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QLocale>
#include <QSettings>
#include <QTranslator>

#include <optional>

using namespace brisel;

namespace
{

constexpr QSize pictureSize(1200, 860); ///< wide enough for every column of the table

struct Options {
    QString language;
    QString output;
};

/// Reads the command line without an application object, which must come after the home.
std::optional<Options> readCommandLine(int argc, char **argv)
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
    return Options{code, QDir::current().absoluteFilePath(parser.value(output))};
}

void runSteps(Stage &stage)
{
    LibraryTour library(stage);
    library.openWindow();
    library.importSongs();
    addSongs(stage);
    listenToASong(stage);
    previewChanges(stage);
    library.synchronise();
    lookAtTheTable(stage);
    const SongContents synchronised = songContents(stage);
    library.editOneSong();
    takeChangesBack(stage, synchronised);
    restoreBackup(stage);
    editSeveralSongs(stage);

    MemoryTour memory(stage);
    memory.transfer();
    memory.useTheMemory();
    memory.rebuild();
    memory.exportLists();

    MemoryWindowTour shown(stage);
    if (shown.open()) {
        shown.lookAtTheLists();
        shown.lookAtTheFolders();
        shown.changeAPlaylist();
        shown.renameASong();
        shown.removeASong();
        shown.copyASong();
        shown.planATransfer();
        shown.close();
    }

    resumeTheList(stage);
    readHelp(stage);
    readAbout(stage);
    memory.listIndex();
}

int showTour(DemoHome &home, Narrator &narrator, bool english)
{
    MainWindow window;
    window.resize(pictureSize);
    window.show();
    Hand hand(window, narrator, english);
    Stage stage{home, window, narrator, hand, writeDemoSongs(home.songs())};
    if (narrator.check(home.isValid() && !stage.songs.isEmpty(),
                       QStringLiteral("%1 sample songs, an empty memory, a temporary home")
                           .arg(stage.songs.size())))
        runSteps(stage);

    narrator.step(QStringLiteral("The end: %1 pictures, %2 failures")
                      .arg(narrator.pictures())
                      .arg(narrator.failures()));
    return narrator.failures() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

/// Runs a tour of the whole program by clicks and keys on its real window, in a temporary home, and
/// fails if a step did not have the right result.
int main(int argc, char **argv)
{
    const std::optional<Options> options = readCommandLine(argc, argv);
    if (!options) {
        qCritical("Usage: brisel2pc-demo [--language it|en] [--output <folder>]");
        return EXIT_FAILURE;
    }
    Narrator narrator(options->output, options->language);
    DemoHome home(options->language);
    QSettings settings(settingsOrganisation, settingsApplication);
    startLog(settings);

    QApplication application(argc, argv);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    applyDarkStyle(application);
    QTranslator program;
    QTranslator qt;
    loadTranslations(chooseLanguage(settings, QLocale::system()), program, qt);
    return showTour(home, narrator, options->language == QStringLiteral("en"));
}
