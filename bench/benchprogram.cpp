#include "bench/benchprogram.h"

#include <QFile>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string_view>

namespace brisel
{

static bool isListOnly = false;

void BenchProgram::require(bool holds, const char *what)
{
    if (holds)
        return;
    std::cerr << "failed: " << what << '\n';
    std::exit(1);
}

bool BenchProgram::takeSmallest(int &argc, char **argv)
{
    char **end = std::remove_if(argv + 1, argv + argc, [](const char *argument) {
        return std::string_view(argument) == "--smallest";
    });
    const bool isAsked = end != argv + argc;
    argc = static_cast<int>(end - argv);
    argv[argc] = nullptr;
    return isAsked;
}

bool BenchProgram::run(int &argc, char **argv)
{
    isListOnly = std::any_of(argv, argv + argc, [](std::string_view argument) {
        return argument.starts_with("--benchmark_list_tests") && !argument.ends_with("=false");
    });
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return false;
    benchmark::RunSpecifiedBenchmarks();
    return true;
}

bool BenchProgram::ranAllRows()
{
    const std::string filter = benchmark::GetBenchmarkFilter();
    return !isListOnly && (filter.empty() || filter == "." || filter == "all");
}

BenchProgram::Home::Home()
{
    require(m_folder.isValid(), "no folder for the home");
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "TMPDIR"})
        qputenv(name, QFile::encodeName(m_folder.path()));
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

} // namespace brisel
