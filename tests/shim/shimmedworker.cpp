#include "tests/shim/shimmedworker.h"

#include "tests/testfiles.h"

#include <QProcess>

#include <csignal>
#include <cstring>

using namespace brisel;

using namespace Qt::StringLiterals;

void Worker::start(QProcess &worker, const QStringList &arguments, const QString &folder,
                   const QProcessEnvironment &environment)
{
    QProcessEnvironment own = environment;
    own.insert(u"XDG_CONFIG_HOME"_s, folder);
    own.insert(u"TMPDIR"_s, folder);
    own.insert(u"QT_FORCE_STDERR_LOGGING"_s, u"1"_s);
    worker.setProcessEnvironment(own);
    worker.start(QStringLiteral(BRISEL_WORKER), arguments);
    if (!worker.waitForStarted())
        qFatal("the worker does not start");
}

bool Worker::waitForStop(QProcess &worker)
{
    const QString status = u"/proc/%1/stat"_s.arg(worker.processId());
    constexpr int pause = 2; // milliseconds
    do {
        const QByteArray line = fileContent(status);
        if (line.mid(line.lastIndexOf(')') + 2).startsWith('T'))
            return true;
    } while (!worker.waitForFinished(pause) && worker.state() == QProcess::Running);
    return false;
}

Worker::Outcome Worker::outcomeOf(QProcess &worker)
{
    if (worker.state() != QProcess::NotRunning && !worker.waitForFinished(60000))
        qFatal("the worker hangs");
    Outcome outcome;
    outcome.log = worker.readAllStandardError();
    outcome.isKilled = worker.exitStatus() == QProcess::CrashExit && worker.exitCode() == SIGKILL;
    if (!outcome.isKilled && (worker.exitStatus() == QProcess::CrashExit || worker.exitCode() > 1))
        qFatal("the worker failed: %s", outcome.log.constData());
    outcome.saidTrue = !outcome.isKilled && worker.exitCode() == 0;
    return outcome;
}

Worker::Outcome Worker::run(const QStringList &arguments, const QString &folder,
                            const QProcessEnvironment &environment)
{
    QProcess worker;
    start(worker, arguments, folder, environment);
    return outcomeOf(worker);
}

QProcessEnvironment Worker::watched(const QString &folder, const QString &home, Fault fault)
{
    makeFile(home + u"/count"_s, QByteArray(sizeof(int), '\0'));
    makeFile(home + u"/trace"_s, {});
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LD_PRELOAD"_s, QStringLiteral(BRISEL_SHIM));
    environment.insert(u"BRISEL_SHIM_FOLDER"_s, folder);
    environment.insert(u"BRISEL_SHIM_AT"_s, QString::number(fault.number));
    environment.insert(u"BRISEL_SHIM_ACTION"_s, QLatin1StringView(fault.action));
    environment.insert(u"BRISEL_SHIM_COUNT"_s, home + u"/count"_s);
    environment.insert(u"BRISEL_SHIM_TRACE"_s, home + u"/trace"_s);
    return environment;
}

Worker::Steps Worker::stepsIn(const QString &home)
{
    Steps steps;
    steps.trace = fileContent(home + u"/trace"_s).trimmed().split('\n');
    std::memcpy(&steps.count, fileContent(home + u"/count"_s).constData(), sizeof(int));
    return steps;
}
