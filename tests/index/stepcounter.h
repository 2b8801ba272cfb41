#pragma once

#include <QByteArray>

/// Counts the steps by which this program changes the files below one folder (open for writing,
/// write, rename, delete, folder made or removed), and lets a chosen one go wrong. It stands
/// between the program and the C library, so that the product needs no hook.
namespace StepCounter
{

enum Fault {
    Kill,    ///< the process ends before the step
    Tear,    ///< the process ends after half of a write, before any other step
    NoSpace, ///< from that step on nothing can be written; deleting goes on
    IoError, ///< that one step fails
};

constexpr int killedExit = 42;

/// From now on: step \a number below \a folder meets \a fault.
void arm(const QByteArray &folder, int number, Fault fault);
/// Ends it. The number of steps since arm().
int disarm();

} // namespace StepCounter
