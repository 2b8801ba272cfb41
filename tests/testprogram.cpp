#include "tests/testprogram.h"

#include <QFileInfo>

#include <cstdio>
#include <map>

using namespace brisel;

namespace
{

/// The test classes by name. Constructed when the first class is added, before main().
std::map<QString, TestRegistration::Run> &classes()
{
    static std::map<QString, TestRegistration::Run> all;
    return all;
}

} // namespace

TestRegistration::TestRegistration(const char *file, Run run)
{
    const QString name = QFileInfo(QString::fromUtf8(file)).completeBaseName();
    if (!classes().emplace(name, run).second)
        qFatal("two test classes in %s", file);
}

int main(int argc, char **argv)
{
    const auto found = classes().find(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (found == classes().end()) {
        std::fprintf(stderr, "usage: %s <test> [<case>...]\n", argv[0]);
        for (const auto &[name, run] : classes())
            std::fprintf(stderr, "  %s\n", qPrintable(name));
        return 2;
    }
    // The values that ctest sets, for a class that is run by hand.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("TZ", "UTC");
    const TestHome home;
    return found->second(argc - 1, argv + 1);
}
