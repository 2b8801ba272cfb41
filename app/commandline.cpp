#include "app/commandline.h"

#include "app/startup.h"
#include "base/fileidentity.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <cstdio>

namespace brisel
{

namespace
{

const QString programName = QStringLiteral("brisel2pc");

/// Those of the application object, which are known before it is made.
void addOptionsOfQt(QCommandLineParser &parser)
{
    const auto add = [&parser](const QStringList &names, const QString &valueName) {
        QCommandLineOption option(names, QString(), valueName);
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    };
    for (const char *name : {"platform", "platformpluginpath", "platformtheme", "plugin",
                             "qwindowgeometry", "geometry", "qwindowicon", "icon", "qwindowtitle",
                             "title", "style", "stylesheet", "session", "display", "qmljsdebugger"})
        add({QString::fromLatin1(name)}, QStringLiteral("value"));
    for (const char *name : {"reverse", "widgetcount", "nograb", "dograb"})
        add({QString::fromLatin1(name)}, QString());
}

/// The names of files that begin with "-" as absolute paths, so that they are not read as options.
QStringList withFilesAsPaths(const QStringList &arguments)
{
    QStringList all{programName};
    bool areOptionsOver = false;
    for (const QString &argument : arguments) {
        const bool looksLikeOption = !areOptionsOver && argument.startsWith(u'-');
        areOptionsOver = areOptionsOver || argument == QStringLiteral("--");
        all.append(looksLikeOption && entryExists(argument) ? QFileInfo(argument).absoluteFilePath()
                                                            : argument);
    }
    return all;
}

void print(std::FILE *stream, const QString &text)
{
    (void)std::fputs(text.toLocal8Bit().constData(), stream);
}

} // namespace

CommandLine::CommandLine(const QStringList &arguments)
    : m_parser(std::make_unique<QCommandLineParser>())
{
    m_parser->addOptions({{{QStringLiteral("h"), QStringLiteral("help")}, QString()},
                          {{QStringLiteral("v"), QStringLiteral("version")}, QString()}});
    addOptionsOfQt(*m_parser);
    m_parser->setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    m_isUnderstood = m_parser->parse(withFilesAsPaths(arguments));
}

CommandLine::~CommandLine() = default;

bool CommandLine::isAnswer() const
{
    return !m_isUnderstood || m_parser->isSet(QStringLiteral("help")) ||
           m_parser->isSet(QStringLiteral("version"));
}

int CommandLine::answer() const
{
    if (!m_isUnderstood) {
        print(stderr, programName + QStringLiteral(": ") + m_parser->errorText() + u'\n' +
                          tr("Le opzioni sono elencate da: %1").arg(programName) +
                          QStringLiteral(" --help\n"));
        return usageError;
    }
    print(stdout, m_parser->isSet(QStringLiteral("help"))
                      ? helpText()
                      : QStringLiteral("Brisel2 PC %1\n").arg(programVersion()));
    return 0;
}

QString CommandLine::helpText() const
{
    return tr("Uso: %1 [opzioni] [brano | cartella ...]\n"
              "Prepara le basi musicali per il lettore Brisel. I brani indicati, e quelli nelle\n"
              "cartelle, vengono importati all'apertura della finestra.\n"
              "\n"
              "Opzioni:\n"
              "  -h, --help     mostra questo aiuto\n"
              "  -v, --version  mostra la versione\n"
              "  --             gli argomenti che seguono sono brani o cartelle\n")
        .arg(programName);
}

QStringList CommandLine::paths() const
{
    return m_parser->positionalArguments();
}

QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

} // namespace brisel
