#pragma once

#include "base/run.h"
#include "library/placedsong.h"
#include "library/plannedcopies.h"

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

namespace brisel
{

class TransferPlan;

/// Copies the picked files to the player's memory and updates the memory's index. The memory is
/// locked for both, so that no other program changes it in between.
class Transfer
{
    Q_DECLARE_TR_FUNCTIONS(Transfer)

public:
    enum class Outcome {
        Done,
        Failed,         ///< not everything was copied, or the index is incomplete; see the report
        InUse,          ///< another program works on the memory
        SystemDisk,     ///< the folder is not on a memory
        NoSongsFolder,  ///< a memory itself was chosen, and its folder "songs" can't be made
        ReservedFolder, ///< the player uses BRIDGE, SFX and PLAYLIST for other files
    };

    /// The folder for the songs, or the reason why there is no such folder.
    struct Destination {
        Outcome outcome = Outcome::Done;
        QString folder;
    };

    /// Finds the folder for the songs if \a chosen was picked: that folder, or "songs" (made if
    /// missing) if it is a memory itself. Only the last component is compared with the reserved
    /// names.
    [[nodiscard]] static Destination destinationOf(const QString &chosen);
    /// The same, but nothing is made: "songs" may be missing.
    [[nodiscard]] static Destination plannedDestinationOf(const QString &chosen);

    /// Updates the index of the memory that contains \a path. Returns true if it is complete.
    [[nodiscard]] static bool updateIndex(Run &run, const QString &path);

    /// \a chosen is the folder that the user picked.
    Transfer(QStringList files, QString chosen);
    /// Copies the ticked files of \a plan, which has run: what it shows is done without a question.
    explicit Transfer(const TransferPlan &plan);

    [[nodiscard]] Outcome run(Run &run);

    /// The paths of the files on the memory after run(): one for each file, empty for those that
    /// are not there; none if nothing was to be copied at all. A file whose place was not to be
    /// replaced is compared with what is there, in a stage of \a run that can be interrupted.
    [[nodiscard]] QStringList placesThere(Run &run) const;

    /// A text with the room that the copies needed and the free room; empty if there was enough.
    const QString &shortage() const { return m_shortage; }
    /// See FileCopier::speed().
    qint64 speed() const { return m_speed; }

private:
    void answerAsPlanned(Run &run) const;
    bool send(Run &run, const QString &folder);
    void compare(Run &run, const QList<qsizetype> &files, QStringList &places) const;

    const PlannedCopies m_copies; ///< only the files if there was no plan
    const QString m_chosen;
    QList<PlacedSong> m_placed; ///< of each file
    QString m_shortage;
    qint64 m_speed = 0;
};

} // namespace brisel
