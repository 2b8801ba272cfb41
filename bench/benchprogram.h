#pragma once

#include <QTemporaryDir>

/// What the benchmarks share. Each is a program of rows "what/data/who", which ./bench/run
/// compares.
namespace BenchProgram
{

/// Ends the program with status 1 unless \a holds; \a what goes to the standard error. For what a
/// measurement stands on, and for peers that answer something else than ours.
void require(bool holds, const char *what);

/// True when the arguments ask for the smallest sizes ("--smallest", which is taken out of them):
/// they measure nothing, but every row is run.
bool takeSmallest(int &argc, char **argv);

/// Runs the rows that the arguments choose. Call it after the rows were registered. False when one
/// of the arguments is unknown; a message is written then.
bool run(int &argc, char **argv);

/// True when all rows were measured: none was only listed, and none left out. To be asked after
/// run(), for what is printed below the rows.
bool ranAllRows();

/// Gives a program with windows and its children a home and a temporary folder of their own, so
/// that the user's settings are neither read nor written and nothing is left behind, and no
/// display. Construct it before the application object.
class Home
{
public:
    Home();

private:
    QTemporaryDir m_folder;
};

} // namespace BenchProgram
