#include "tools/syntheticcatalogue.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace brisel;

namespace
{

constexpr int largestCatalogue = 1000000;

int refuse(const QString &message)
{
    QTextStream(stderr) << message << '\n';
    return 1;
}

} // namespace

/// makesyntheticcatalogue <output> [rows]: makes a synthetic catalogue for tests and benchmarks.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2 || arguments.size() > 3)
        return refuse(QStringLiteral("usage: makesyntheticcatalogue <output> [rows]"));
    bool isNumber = true;
    const int count = arguments.size() == 3 ? arguments.at(2).toInt(&isNumber) : fullCatalogueSize;
    if (!isNumber || count < 0 || count > largestCatalogue)
        return refuse(QStringLiteral("rows: a number from 0 to %1").arg(largestCatalogue));
    QString error;
    if (!writeCatalogue(arguments.at(1), syntheticCatalogue(count), error))
        return refuse(QStringLiteral("%1: %2").arg(arguments.at(1), error));
    return 0;
}
