#include "tests/app/planwindow.h"

#include "library/dialogs/transferplandialog.h"
#include "library/transferplan.h"
#include "tests/app/editwindows.h"
#include "tools/samplesongs.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>
#include <QTimeZone>

namespace brisel
{

namespace
{

/// The plan for the sample songs and a memory that has some of them.
struct Planned {
    Planned()
    {
        const QString folder = QDir::current().filePath(QStringLiteral("songs"));
        QStringList paths;
        if (!QDir::current().mkpath(folder) || !SampleSongs::writeSet(folder, &paths) ||
            !QDir(volumes.path()).mkpath(QStringLiteral("BRISEL/songs")))
            return;
        const QByteArray before = qgetenv("BRISEL_VOLUMES");
        qputenv("BRISEL_VOLUMES", QFile::encodeName(volumes.path()));
        const QString memory = volumes.filePath(QStringLiteral("BRISEL"));
        const auto placeOf = [&](qsizetype song) {
            return memory + QStringLiteral("/songs/") + paths.at(song).section(u'/', -1);
        };
        QFile::copy(paths.at(0), placeOf(0));
        QFile::copy(paths.at(0), placeOf(1));
        QFile other(placeOf(1));
        // The pictures of a window are the same on every day.
        static_cast<void>(other.open(QIODevice::ReadWrite) &&
                          other.setFileTime(QDateTime({2024, 5, 4}, {12, 0}, QTimeZone::utc()),
                                            QFileDevice::FileModificationTime));
        other.close();
        paths.append(longPath);
        plan = std::make_unique<TransferPlan>(paths, memory);
        Run run;
        static_cast<void>(plan->run(run));
        qputenv("BRISEL_VOLUMES", before);
    }

    QTemporaryDir volumes{QDir::current().filePath(QStringLiteral("volumes-XXXXXX"))};
    std::unique_ptr<TransferPlan> plan;
};

} // namespace

std::unique_ptr<QWidget> makePlanWindow()
{
    constexpr qint64 speed = 2000; // bytes per second
    class Window : private Planned, public TransferPlanDialog
    {
    public:
        Window() : TransferPlanDialog(*plan, speed)
        {
            // The room of this disk is another one on each day.
            findChild<QLabel *>(QStringLiteral("roomLabel"))
                ->setText(QCoreApplication::translate("brisel::TransferPlanDialog",
                                                      "Spazio: servono %1, liberi %2")
                              .arg(CopyRoom::sizeText(368000), CopyRoom::sizeText(14200000000)));
        }
    };
    return std::make_unique<Window>();
}

} // namespace brisel
