#include "tests/app/startuptest.h"

#include "tests/testprogram.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>

using namespace brisel;

/// The program itself, started as by a user. Each case starts with an empty settings store and no
/// log in the working folder.
class TestProgram : public StartupTest
{
    Q_OBJECT

private slots:
    void init() { startAnew(); }
    void logsWhatIsSaidWhileTheApplicationIsMade();
    void saysNothingWithoutALog();
    void showsTheChosenLanguage_data();
    void showsTheChosenLanguage();
    void showsTheDarkStyleAndItsIcon();
    void returnsWhatTheEventLoopReturns();
    void writesLogWhateverTheLoggingRulesSay();
    void runsTheProgramFromBannerToWindow();
    void importsTheSongsOfItsArguments();
    void answersOnTheTerminal_data();
    void answersOnTheTerminal();
    void refusesAnUnknownOption_data();
    void refusesAnUnknownOption();

private:
    /// The result of a run with the probe: see programprobe.cpp.
    struct Run {
        bool ended = false; ///< by itself
        int code = -1;
        QJsonObject seen; ///< empty if no window was shown
        QByteArray errors;
    };
    static Run runWithProbe(int code = 0);
};

TestProgram::Run TestProgram::runWithProbe(int code)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(BRISEL_PROBE_FOLDER));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"),
                       QStringLiteral("brisel_probe:%1").arg(code));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(BRISEL_PROGRAM), QStringList());
    Run run;
    run.ended = program.waitForFinished(60000) && program.exitStatus() == QProcess::NormalExit;
    run.code = program.exitCode();
    run.seen = QJsonDocument::fromJson(program.readAllStandardOutput()).object();
    run.errors = program.readAllStandardError();
    return run;
}

void TestProgram::logsWhatIsSaidWhileTheApplicationIsMade()
{
    set(QStringLiteral("logenabled"), true);
    const Run run = runWithProbe();
    QVERIFY(run.ended);
    QStringList texts;
    for (const QString &line : logLines())
        texts.append(textOf(line));
    const qsizetype probe = texts.indexOf(QStringLiteral("W| the probe is loaded"));
    QVERIFY2(probe >= 6, "after the six lines of the banner");
    QVERIFY(texts.indexOf(QStringLiteral("D| DB initialized correctly ")) > probe);
    QCOMPARE(run.errors, QByteArray());
}

void TestProgram::saysNothingWithoutALog()
{
    const Run run = runWithProbe();
    QVERIFY(run.ended);
    QCOMPARE(run.errors, QByteArray());
    QVERIFY(!QFile::exists(QStringLiteral("log.txt")));
}

void TestProgram::showsTheChosenLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("menus");
    QTest::addColumn<QString>("yes");
    QTest::newRow("it") << "it"
                        << "File|Preferenze|Vista|Strumenti|Aiuto" << QStringLiteral("&Sì");
    QTest::newRow("en") << "en"
                        << "File|Preferences|View|Tools|Help"
                        << "&Yes";
}

void TestProgram::showsTheChosenLanguage()
{
    QFETCH(QString, language);
    set(QStringLiteral("language"), language);
    const Run run = runWithProbe();
    QVERIFY(run.ended);
    QTEST(run.seen.value(QStringLiteral("menus")).toString(), "menus");
    QTEST(run.seen.value(QStringLiteral("yes")).toString(), "yes");
}

void TestProgram::showsTheDarkStyleAndItsIcon()
{
    const Run run = runWithProbe();
    QVERIFY(run.ended);
    QCOMPARE(run.seen.value(QStringLiteral("ground")).toString(), QStringLiteral("#424242"));
    QVERIFY(run.seen.value(QStringLiteral("styled")).toBool());
    QVERIFY(run.seen.value(QStringLiteral("icon")).toBool());
}

void TestProgram::returnsWhatTheEventLoopReturns()
{
    for (const int code : {0, 42}) {
        const Run run = runWithProbe(code);
        QVERIFY(run.ended);
        QCOMPARE(run.code, code);
    }
}

void TestProgram::writesLogWhateverTheLoggingRulesSay()
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("*.debug=false"));
    program.setProcessEnvironment(environment);
    set(QStringLiteral("logenabled"), true);
    program.start(QStringLiteral(BRISEL_PROGRAM), QStringList());
    QTRY_VERIFY_WITH_TIMEOUT(
        fileContent(QStringLiteral("log.txt")).contains("DB initialized correctly"), 20000);
    program.kill();
    program.waitForFinished();
}

void TestProgram::runsTheProgramFromBannerToWindow()
{
    set(QStringLiteral("logenabled"), true);
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(BRISEL_PROGRAM), QStringList());
    QTRY_VERIFY_WITH_TIMEOUT(
        fileContent(QStringLiteral("log.txt")).contains("D| DB initialized correctly \n"), 20000);
    QCOMPARE(program.state(), QProcess::Running);
    program.kill();
    program.waitForFinished();
    QVERIFY(textOf(logLines().first()).startsWith(QStringLiteral("D| |=====")));
    QCOMPARE(QSettings(settingsOrganisation, settingsApplication)
                 .value(QStringLiteral("language"))
                 .toString(),
             QStringLiteral("en"));
}

void TestProgram::importsTheSongsOfItsArguments()
{
    set(QStringLiteral("logenabled"), true);
    makeFile(QStringLiteral("given/100% uno.mid"), "no song in truth");
    makeFile(QStringLiteral("given/in/-due.MP3"), "nor this");
    makeFile(QStringLiteral("given/in/tre.txt"), "no song's name");
    makeFile(QStringLiteral("-quattro.kar"), "looks like an option");
    QProcess program;
    program.start(
        QStringLiteral(BRISEL_PROGRAM),
        {QStringLiteral("given"), QStringLiteral("missing.mid"), QStringLiteral("-quattro.kar")});
    QTRY_VERIFY_WITH_TIMEOUT(fileContent(QStringLiteral("log.txt")).count("Unknown/corrupted") == 3,
                             20000);
    program.kill();
    program.waitForFinished();
    QStringList found;
    for (const QString &line : logLines()) {
        if (line.contains(QStringLiteral("Found file: ")))
            found.append(textOf(line).section(u'"', 1, 1));
    }
    const QDir here;
    QCOMPARE(found, QStringList({here.absoluteFilePath(QStringLiteral("given/100% uno.mid")),
                                 here.absoluteFilePath(QStringLiteral("given/in/-due.MP3")),
                                 here.absoluteFilePath(QStringLiteral("-quattro.kar"))}));
}

void TestProgram::answersOnTheTerminal_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("start");
    const QString version = QStringLiteral("Brisel2 PC 2.");
    QTest::newRow("help") << "en" << QStringList{QStringLiteral("--help")}
                          << QStringLiteral("Usage: brisel2pc [options] [song | folder ...]\n");
    QTest::newRow("help in Italian")
        << "it" << QStringList{QStringLiteral("song.mid"), QStringLiteral("-h")}
        << QStringLiteral("Uso: brisel2pc [opzioni] [brano | cartella ...]\n");
    QTest::newRow("version") << "en" << QStringList{QStringLiteral("--version")} << version;
    QTest::newRow("short version") << "it" << QStringList{QStringLiteral("-v")} << version;
}

/// Also without a display, and with a log that is on.
void TestProgram::answersOnTheTerminal()
{
    QFETCH(QString, language);
    QFETCH(QStringList, arguments);
    QFETCH(QString, start);
    set(QStringLiteral("language"), language);
    set(QStringLiteral("logenabled"), true);
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("no such platform"));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(BRISEL_PROGRAM), arguments);
    QVERIFY(program.waitForFinished(20000));
    QCOMPARE(program.readAllStandardError(), QByteArray());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    const QString answer = QString::fromUtf8(program.readAllStandardOutput());
    QVERIFY2(answer.startsWith(start) && answer.endsWith(u'\n'), qPrintable(answer));
    QVERIFY(!QFile::exists(QStringLiteral("log.txt")));
}

void TestProgram::refusesAnUnknownOption_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("error");
    QTest::newRow("long") << "en"
                          << "--fast"
                          << "brisel2pc: Unknown option 'fast'.\n"
                             "The options are listed by: brisel2pc --help\n";
    QTest::newRow("one dash") << "it"
                              << "-nessuno.mid"
                              << "brisel2pc: Opzione sconosciuta 'nessuno.mid'.\n"
                                 "Le opzioni sono elencate da: brisel2pc --help\n";
    QTest::newRow("value") << "en"
                           << "--version=2"
                           << "brisel2pc: Unexpected value after '--version'.\n"
                              "The options are listed by: brisel2pc --help\n";
}

void TestProgram::refusesAnUnknownOption()
{
    QFETCH(QString, language);
    QFETCH(QString, argument);
    QFETCH(QString, error);
    set(QStringLiteral("language"), language);
    QProcess program;
    program.start(QStringLiteral(BRISEL_PROGRAM), {argument});
    QVERIFY(program.waitForFinished(20000));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(QString::fromUtf8(program.readAllStandardError()), error);
    QCOMPARE(program.readAllStandardOutput(), QByteArray());
}

BRISEL_TEST(QCoreApplication, TestProgram)
#include "tst_program.moc"
