#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class QProcess;
class QProcessEnvironment;

/// Runs a job of worker.cpp in a separate process, for the tests that must not be linked to the
/// shim that is preloaded into it.
namespace Worker
{

struct Outcome {
    bool isKilled = false;
    bool saidTrue = false;
    QByteArray log;
};

/// A fault of the shim: step \a number goes wrong by \a action.
struct Fault {
    int number = 0;
    const char *action = "kill";
};

/// How many steps a run took, and a line for each.
struct Steps {
    int count = 0;
    QList<QByteArray> trace;
};

/// Runs the worker with \a arguments, its settings and temporary files in \a folder, and waits for
/// its end. A crash, or a job that does not exist, ends the test program.
Outcome run(const QStringList &arguments, const QString &folder,
            const QProcessEnvironment &environment);

/// Starts the same without waiting.
void start(QProcess &worker, const QStringList &arguments, const QString &folder,
           const QProcessEnvironment &environment);
/// Waits until it stops itself by the action "stop". Returns false if it has ended instead.
bool waitForStop(QProcess &worker);
/// Waits for its end.
Outcome outcomeOf(QProcess &worker);

/// The environment of a worker whose steps below \a folder are counted, with files in \a home.
QProcessEnvironment watched(const QString &folder, const QString &home, Fault fault);
/// What the last watched worker with the same home did.
Steps stepsIn(const QString &home);

} // namespace Worker
