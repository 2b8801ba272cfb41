#include "tests/app/startuptest.h"

#include "base/debugstream.h"
#include "tests/fulldisk.h"
#include "tests/hangwatch.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QDir>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QTest>
#include <QTranslator>

#include <csignal>
#include <fcntl.h>
#include <optional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace brisel;

namespace
{

/// Has its own name as the translation of every text.
class NamedTexts : public QTranslator
{
public:
    explicit NamedTexts(QString name) : m_name(std::move(name)) {}
    QString translate(const char *, const char *, const char *, int) const override
    {
        return m_name;
    }

private:
    QString m_name;
};

} // namespace

/// Each case starts with an empty settings store and no log in the working folder.
class TestStartup : public StartupTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void writesNoLogWhenOff();
    void buildsMessagesOnlyForALog();
    void keepsOldLogWhenOffThoughClearIsOn();
    void appendsBannerToTheOldLog();
    void clearsTheOldLogFirst();
    void writesBannerWordForWord();
    void writesOneLineForEachKind();
    void writesNothingForInfo();
    void padsEveryFieldOfTheTimeStamp();
    void writesUtf8UpToTheFirstZero();
    void keepsALineBreakOfASongInItsLine();
    void dropsLinesWhenTheLogCannotBeOpened();
    void writesNothingIntoAFifoOrDevice();
    void addsNothingToAnEnormousLog();
    void abortsAfterAFatalMessage_data();
    void abortsAfterAFatalMessage();
    void choosesLanguageAtTheFirstStart_data();
    void choosesLanguageAtTheFirstStart();
    void keepsAChosenLanguage();
    void loadsItalianForTheDialogsOfQtToo();
    void asksForTextsOfQtFirst();
    void loadsEnglishForEveryOtherLanguage_data();
    void loadsEnglishForEveryOtherLanguage();

private:
    static void start() { startLog(QSettings(settingsOrganisation, settingsApplication)); }

    QtMessageHandler m_handler = nullptr;
};

void TestStartup::init()
{
    startAnew();
    m_handler = qInstallMessageHandler(nullptr);
    DebugStream::setHeard(true);
}

void TestStartup::cleanup()
{
    qInstallMessageHandler(m_handler);
}

void TestStartup::writesNoLogWhenOff()
{
    start();
    debug() << "lost";
    QVERIFY(!QFile::exists(QStringLiteral("log.txt")));
}

void TestStartup::buildsMessagesOnlyForALog()
{
    start();
    QVERIFY(!DebugStream::isHeard());
    {
        const LogCapture log; // an installed handler receives the messages
        debug() << "kept";
        QCOMPARE(log.messages(), QStringList{QStringLiteral("kept ")});
    }
    QVERIFY(!DebugStream::isHeard());
    set(QStringLiteral("logenabled"), true);
    start();
    QVERIFY(DebugStream::isHeard());
}

void TestStartup::keepsOldLogWhenOffThoughClearIsOn()
{
    makeFile(QStringLiteral("log.txt"), "old\n");
    set(QStringLiteral("logclear"), true);
    start();
    debug() << "lost";
    QCOMPARE(fileContent(QStringLiteral("log.txt")), QByteArray("old\n"));
}

void TestStartup::appendsBannerToTheOldLog()
{
    makeFile(QStringLiteral("log.txt"), "old\n");
    set(QStringLiteral("logenabled"), true);
    start();
    QCOMPARE(logLines().size(), 7);
    QCOMPARE(logLines().first(), QStringLiteral("old"));
}

void TestStartup::clearsTheOldLogFirst()
{
    makeFile(QStringLiteral("log.txt"), "old\n");
    set(QStringLiteral("logenabled"), true);
    set(QStringLiteral("logclear"), true);
    start();
    QCOMPARE(logLines().size(), 6);
    QVERIFY(textOf(logLines().first()).startsWith(QStringLiteral("D| |=====")));
}

void TestStartup::writesBannerWordForWord()
{
    set(QStringLiteral("logenabled"), true);
    start();
    const QStringList lines = logLines();
    QCOMPARE(lines.size(), 6);
    QCOMPARE(textOf(lines.at(0)),
             QStringLiteral("D| |") + QString(78, u'=') + QStringLiteral("| "));
    QCOMPARE(textOf(lines.at(1)), QStringLiteral("D| V ========================  Log start  "
                                                 "======================================= V "));
    QCOMPARE(textOf(lines.at(1)).size(), 3 + 80 + 1);
    QCOMPARE(textOf(lines.at(2)), QStringLiteral("D| (c)Kordia Brisel2 PC "));
    QCOMPARE(textOf(lines.at(3)), QStringLiteral("D| Version:  2.0 "));
    const QRegularExpression build(QStringLiteral(
        "\\AD\\| Build:    [A-Z][a-z]{2} [ 1-3]\\d \\d{4} - \\d\\d:\\d\\d:\\d\\d \\z"));
    QVERIFY2(build.match(textOf(lines.at(4))).hasMatch(), qPrintable(lines.at(4)));
    QCOMPARE(textOf(lines.at(5)), QStringLiteral("D|  "));
}

void TestStartup::writesOneLineForEachKind()
{
    const QMessageLogContext context;
    myMessageOutput(QtDebugMsg, context, QStringLiteral("one "));
    myMessageOutput(QtWarningMsg, context, QStringLiteral("two"));
    myMessageOutput(QtCriticalMsg, context, QStringLiteral("three"));
    const QStringList lines = logLines();
    QCOMPARE(lines.size(), 3);
    QCOMPARE(textOf(lines.at(0)), QStringLiteral("D| one "));
    QCOMPARE(textOf(lines.at(1)), QStringLiteral("W| two"));
    QCOMPARE(textOf(lines.at(2)), QStringLiteral("C| three"));
}

void TestStartup::writesNothingForInfo()
{
    myMessageOutput(QtInfoMsg, QMessageLogContext(), QStringLiteral("news"));
    QVERIFY(!QFile::exists(QStringLiteral("log.txt")));
}

void TestStartup::padsEveryFieldOfTheTimeStamp()
{
    const QDateTime morning(QDate(2025, 2, 1), QTime(8, 5, 3));
    QCOMPARE(logTimeStamp(morning), QByteArray("[01-02-2025 08:05:03]"));
    const QDateTime evening(QDate(2024, 12, 31), QTime(23, 59, 58));
    QCOMPARE(logTimeStamp(evening), QByteArray("[31-12-2024 23:59:58]"));

    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    myMessageOutput(QtDebugMsg, QMessageLogContext(), QStringLiteral("x"));
    const QString stamp = logLines().constFirst().left(21);
    const QRegularExpression form(
        QStringLiteral("\\A\\[\\d\\d-\\d\\d-\\d{4} \\d\\d:\\d\\d:\\d\\d\\]\\z"));
    QVERIFY2(form.match(stamp).hasMatch(), qPrintable(stamp));
    const auto time =
        QDateTime::fromString(stamp, QStringLiteral("'['dd'-'MM'-'yyyy' 'hh':'mm':'ss']'"));
    QVERIFY(time >= before && time <= QDateTime::currentDateTime());
}

void TestStartup::writesUtf8UpToTheFirstZero()
{
    const QString message = QStringLiteral("perché") + QChar(u'\0') + QStringLiteral("cut");
    myMessageOutput(QtDebugMsg, QMessageLogContext(), message);
    const QByteArray log = fileContent(QStringLiteral("log.txt"));
    QCOMPARE(log.mid(21), QByteArray("D| perch\xc3\xa9\n"));
}

void TestStartup::keepsALineBreakOfASongInItsLine()
{
    qInstallMessageHandler(myMessageOutput);
    debug() << "  Title:" << QStringLiteral("A\n[01-01-2025 00:00:00]D| forged\r");
    QCOMPARE(logLines().size(), 1);
    QCOMPARE(textOf(logLines().constFirst()),
             QStringLiteral("D|   Title: \"A\\n[01-01-2025 00:00:00]D| forged\\r\" "));
}

void TestStartup::dropsLinesWhenTheLogCannotBeOpened()
{
    QVERIFY(QDir().mkpath(QStringLiteral("log.txt")));
    myMessageOutput(QtDebugMsg, QMessageLogContext(), QStringLiteral("x"));
    QVERIFY(QFileInfo(QStringLiteral("log.txt")).isDir());
    QVERIFY(QDir().rmdir(QStringLiteral("log.txt")));
}

void TestStartup::writesNothingIntoAFifoOrDevice()
{
    const HangWatch watch;
    QCOMPARE(::mkfifo("log.txt", 0600), 0);
    myMessageOutput(QtDebugMsg, QMessageLogContext(), QStringLiteral("no reader"));
    const int reader = ::open("log.txt", O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    QVERIFY(reader >= 0);
    myMessageOutput(QtDebugMsg, QMessageLogContext(), QStringLiteral("a reader"));
    char byte = 0;
    QCOMPARE(::read(reader, &byte, 1), 0);
    ::close(reader);
    set(QStringLiteral("logenabled"), true);
    set(QStringLiteral("logclear"), true);
    start();
    QVERIFY(QFileInfo::exists(QStringLiteral("log.txt")));
    QVERIFY(QFile::remove(QStringLiteral("log.txt")));
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), QStringLiteral("log.txt")));
    myMessageOutput(QtDebugMsg, QMessageLogContext(), QStringLiteral("a device"));
    QVERIFY(QFileInfo(QStringLiteral("log.txt")).isSymLink());
}

void TestStartup::addsNothingToAnEnormousLog()
{
    constexpr qint64 largest = 1 << 30;
    makeFile(QStringLiteral("log.txt"), "x");
    QVERIFY(QFile::resize(QStringLiteral("log.txt"), largest + 1));
    myMessageOutput(QtDebugMsg, QMessageLogContext(), QStringLiteral("x"));
    QCOMPARE(QFileInfo(QStringLiteral("log.txt")).size(), largest + 1);
    QVERIFY(QFile::resize(QStringLiteral("log.txt"), largest));
    myMessageOutput(QtDebugMsg, QMessageLogContext(), QStringLiteral("x"));
    QVERIFY(QFileInfo(QStringLiteral("log.txt")).size() > largest);
}

void TestStartup::abortsAfterAFatalMessage_data()
{
    QTest::addColumn<QtMessageHandler>("output");
    QTest::addColumn<QString>("obstacle");
    QTest::addColumn<QByteArray>("logged");
    QTest::newRow("log on") << &myMessageOutput << "" << QByteArray("F| the end\n");
    QTest::newRow("log off") << &dummyMessageOutput << "" << QByteArray();
    QTest::newRow("log is a folder") << &myMessageOutput << "folder" << QByteArray();
    QTest::newRow("disk is full") << &myMessageOutput << "full disk" << QByteArray();
}

void TestStartup::abortsAfterAFatalMessage()
{
    QFETCH(QtMessageHandler, output);
    QFETCH(QString, obstacle);
    QDir here;
    if (obstacle == QStringLiteral("folder"))
        QVERIFY(here.mkdir(QStringLiteral("log.txt")));
    const pid_t child = fork();
    if (child == 0) {
        const struct rlimit none {
        };
        setrlimit(RLIMIT_CORE, &none);
        std::signal(SIGABRT, SIG_DFL);
        std::optional<FullDisk> disk;
        if (obstacle == QStringLiteral("full disk"))
            disk.emplace(0);
        output(QtFatalMsg, QMessageLogContext(), QStringLiteral("the end"));
        _exit(0);
    }
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    const QByteArray log = fileContent(QStringLiteral("log.txt"));
    here.rmdir(QStringLiteral("log.txt"));
    if (output == dummyMessageOutput)
        QVERIFY(!QFile::exists(QStringLiteral("log.txt")));
    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(WTERMSIG(status), SIGABRT);
    QTEST(log.mid(21), "logged");
}

void TestStartup::choosesLanguageAtTheFirstStart_data()
{
    QTest::addColumn<QString>("system");
    QTest::addColumn<QString>("language");
    QTest::newRow("italian") << "it_IT"
                             << "it";
    QTest::newRow("swiss italian") << "it_CH"
                                   << "it";
    QTest::newRow("german") << "de_DE"
                            << "en";
    QTest::newRow("english") << "en_GB"
                             << "en";
    QTest::newRow("none") << "C"
                          << "en";
}

void TestStartup::choosesLanguageAtTheFirstStart()
{
    QFETCH(QString, system);
    QFETCH(QString, language);
    QSettings settings(settingsOrganisation, settingsApplication);
    QCOMPARE(chooseLanguage(settings, QLocale(system)), language);
    QCOMPARE(QSettings(settingsOrganisation, settingsApplication)
                 .value(QStringLiteral("language"))
                 .toString(),
             language);
}

void TestStartup::keepsAChosenLanguage()
{
    set(QStringLiteral("language"), QStringLiteral("de"));
    QSettings settings(settingsOrganisation, settingsApplication);
    QCOMPARE(chooseLanguage(settings, QLocale(QStringLiteral("it_IT"))), QStringLiteral("de"));
}

void TestStartup::loadsItalianForTheDialogsOfQtToo()
{
    QTranslator program;
    QTranslator qt;
    loadTranslations(QStringLiteral("it"), program, qt);
    QVERIFY(!program.isEmpty());
    const QMessageBox box(QMessageBox::Question, QString(), QString(),
                          QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(box.button(QMessageBox::Yes)->text(), QStringLiteral("&Sì"));
    QCOMPARE(QCoreApplication::translate("brisel::MainWindow", "Esci"), QStringLiteral("Esci"));
}

void TestStartup::asksForTextsOfQtFirst()
{
    NamedTexts program(QStringLiteral("program"));
    NamedTexts qt(QStringLiteral("qt"));
    loadTranslations(QStringLiteral("it"), program, qt);
    QCOMPARE(program.filePath(), QStringLiteral(":/trans/brisel2pc_it"));
    QCOMPARE(qt.filePath(), QStringLiteral(":/trans/qt_it"));
    QCOMPARE(QCoreApplication::translate("Any", "text in both"), QStringLiteral("qt"));
    QCoreApplication::removeTranslator(&qt);
    QCOMPARE(QCoreApplication::translate("Any", "text in both"), QStringLiteral("program"));
}

void TestStartup::loadsEnglishForEveryOtherLanguage_data()
{
    QTest::addColumn<QString>("language");
    for (const char *language : {"en", "de", "fr", ""})
        QTest::newRow(language) << QString::fromLatin1(language);
}

void TestStartup::loadsEnglishForEveryOtherLanguage()
{
    QFETCH(QString, language);
    QTranslator program;
    QTranslator qt;
    loadTranslations(language, program, qt);
    QCOMPARE(QCoreApplication::translate("brisel::MainWindow", "Esci"), QStringLiteral("Quit"));
    QVERIFY(qt.isEmpty());
    const QMessageBox box(QMessageBox::Question, QString(), QString(), QMessageBox::Yes);
    QCOMPARE(box.button(QMessageBox::Yes)->text(), QStringLiteral("&Yes"));
}

BRISEL_TEST(QApplication, TestStartup)
#include "tst_startup.moc"
