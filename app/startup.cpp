#include "app/startup.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/filewriting.h"
#include "base/settings.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QLocale>
#include <QTranslator>

#include <cstdlib>

namespace brisel
{

namespace
{

const QString logFileName = QStringLiteral("log.txt");
constexpr qint64 largestLog = 1 << 30; ///< bytes

const char *typeTag(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return "D| ";
    case QtWarningMsg:
        return "W| ";
    case QtCriticalMsg:
        return "C| ";
    case QtFatalMsg:
        return "F| ";
    case QtInfoMsg:
        break;
    }
    return nullptr;
}

void writeBanner()
{
    debug() << "|==============================================================================|";
    debug() << "V ========================  Log start  ======================================= V";
    debug() << "(c)Kordia Brisel2 PC";
    debug() << qPrintable(QStringLiteral("Version:  ") + programVersion());
    debug() << qPrintable(QStringLiteral("Build:    %1 - %2").arg(buildDate(), buildTime()));
    debug() << "";
}

} // namespace

QString programVersion()
{
    return QStringLiteral(BRISEL_VERSION);
}

QString buildDate()
{
    return QStringLiteral(__DATE__);
}

QString buildTime()
{
    return QStringLiteral(__TIME__);
}

void startLog(const QSettings &settings)
{
    const bool wanted = Settings::logEnabled.in(settings);
    DebugStream::setHeard(wanted);
    if (!wanted) {
        qInstallMessageHandler(dummyMessageOutput);
        return;
    }
    if (Settings::logClear.in(settings) && isRegularFile(logFileName))
        QFile::remove(logFileName);
    qInstallMessageHandler(myMessageOutput);
    writeBanner();
}

QByteArray logTimeStamp(const QDateTime &time)
{
    return time.toString(QStringLiteral("[dd-MM-yyyy hh:mm:ss]")).toLatin1();
}

void myMessageOutput(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    const char *tag = typeTag(type);
    if (tag == nullptr)
        return;
    const QByteArray stamp = logTimeStamp(QDateTime::currentDateTime());
    QByteArray text = message.toUtf8();
    if (const qsizetype end = text.indexOf('\0'); end >= 0)
        text.truncate(end);
    const QByteArray line = stamp + tag + text + '\n';

    // Opened for each line, so that the log holds the last message before a crash.
    (void)appendToFile(logFileName, line, largestLog);
    if (type == QtFatalMsg)
        std::abort();
}

void dummyMessageOutput(QtMsgType type, const QMessageLogContext & /*context*/,
                        const QString & /*message*/)
{
    if (type == QtFatalMsg)
        std::abort();
}

QString chooseLanguage(QSettings &settings, const QLocale &system)
{
    const QString neverChosen = QStringLiteral("--");
    QString language = settings.value(Settings::language.key, neverChosen).toString();
    if (language != neverChosen)
        return language;
    language = system.language() == QLocale::Italian ? QStringLiteral("it") : QStringLiteral("en");
    Settings::language.store(settings, language);
    return language;
}

void loadTranslations(const QString &language, QTranslator &program, QTranslator &qt)
{
    const auto install = [](QTranslator &translator, const QString &texts) {
        if (translator.load(texts))
            QCoreApplication::installTranslator(&translator);
    };
    if (language == QStringLiteral("it")) {
        install(program, QStringLiteral(":/trans/brisel2pc_it"));
        install(qt, QStringLiteral(":/trans/qt_it"));
    } else {
        install(program, QStringLiteral(":/trans/brisel2pc_en"));
    }
}

void removeStartTranslations()
{
    const auto translators = QCoreApplication::instance()->findChildren<QTranslator *>(
        QString(), Qt::FindDirectChildrenOnly);
    for (QTranslator *translator : translators)
        QCoreApplication::removeTranslator(translator);
}

} // namespace brisel
