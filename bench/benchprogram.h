#pragma once

#include <QTemporaryDir>

namespace brisel
{

/// Shared functions of the benchmarks. Each benchmark is a program of rows "what/data/who", which
/// ./bench/run compares.
namespace BenchProgram
{

/// Ends the program with status 1 and \a what on the standard error unless \a holds. For the
/// conditions of a measurement, and for peers whose results differ from ours.
void require(bool holds, const char *what);

/// Removes "--smallest" from the arguments and returns whether it was there. It asks for the
/// smallest sizes, which measure nothing but run every row.
bool takeSmallest(int &argc, char **argv);

/// Runs the rows that the arguments choose, after all rows were registered. Returns false, with a
/// message written, if an argument is unknown.
bool run(int &argc, char **argv);

/// True if run() measured all rows, and did not only list them or leave some out. Decides whether
/// notes are printed below the rows.
bool ranAllRows();

/// Gives a program with windows, and its child processes, a separate home and temporary folder and
/// no display: the user's settings are neither read nor written, and no files are left. Construct
/// it before the application object.
class Home
{
public:
    Home();

private:
    QTemporaryDir m_folder;
};

} // namespace BenchProgram

} // namespace brisel
