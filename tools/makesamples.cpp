/// Writes sample songs into a folder. Usage: makesamples <folder> [<count>]: without a count at
/// least one song of each kind, with a count that many mixed songs for measuring.

#include "tools/samplesongs.h"

#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

using namespace brisel;

namespace
{

int fail(int code, const QString &message)
{
    QTextStream(stderr) << message << Qt::endl;
    return code;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    // The codec logs every song, which is of no use here.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const QStringList arguments = QCoreApplication::arguments();
    bool isCount = true;
    const int count = arguments.size() == 3 ? arguments.at(2).toInt(&isCount) : 0;
    if (arguments.size() < 2 || arguments.size() > 3 || !isCount || count < 0)
        return fail(2, u"usage: makesamples <folder> [<count>]"_qs);

    const QString &folder = arguments.at(1);
    if (!QDir().mkpath(folder))
        return fail(1, u"makesamples: can't make the folder "_qs + folder);
    QStringList paths;
    const bool isWritten = arguments.size() == 3 ? SampleSongs::writeMany(folder, count, &paths)
                                                 : SampleSongs::writeSet(folder, &paths);
    QTextStream(stdout) << paths.size() << " songs in " << folder << Qt::endl;
    return isWritten ? 0 : fail(1, u"makesamples: could not write all songs"_qs);
}
