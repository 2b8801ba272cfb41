#pragma once

#include "base/run.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace brisel
{

/// Copies the picked files to the player's memory and brings the memory's index up to date. Both
/// are one: no other program works on the memory in between.
class Transfer
{
    Q_DECLARE_TR_FUNCTIONS(Transfer)

public:
    enum class Outcome {
        Done,
        Failed,         ///< not all was copied, or the index is not complete; see the report
        InUse,          ///< another program works on the memory
        SystemDisk,     ///< the folder does not lie on a memory
        NoSongsFolder,  ///< a memory itself was chosen, and it takes no folder "songs"
        ReservedFolder, ///< BRIDGE, SFX and PLAYLIST serve the player for other things
    };

    /// The folder that songs go to, or why there is none.
    struct Destination {
        Outcome outcome = Outcome::Done;
        QString folder;
    };

    /// Finds the folder that songs go to when \a chosen was picked: that folder, or "songs" (made
    /// where missing) when it is a memory itself. Only the last component is compared with
    /// the reserved names.
    [[nodiscard]] static Destination destinationOf(const QString &chosen);

    /// Brings the index of the memory that holds \a path up to date; true when it is complete.
    [[nodiscard]] static bool updateIndex(Run &run, const QString &path);

    /// \a chosen is the folder that the user picked.
    Transfer(QStringList files, QString chosen);

    [[nodiscard]] Outcome run(Run &run);

    /// How much room the copies needed, and how much there was; empty when there was enough.
    const QString &shortage() const { return m_shortage; }

private:
    bool send(Run &run, const QString &folder);

    const QStringList m_files;
    const QString m_chosen;
    QString m_shortage;
};

} // namespace brisel
