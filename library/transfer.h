#pragma once

#include <QString>

/// Why songs can't be transferred to a chosen folder.
enum class TransferRefusal {
    None,
    SystemDisk,     ///< the folder does not lie on a memory
    NoSongsFolder,  ///< a memory itself was chosen, and it takes no folder "songs"
    ReservedFolder, ///< BRIDGE, SFX and PLAYLIST serve the player for other things
};

/// Finds in \a destination the folder that songs go to when \a chosen was picked: that folder, or
/// "songs" (made where missing) when it is a memory itself. Only the last component is looked at
/// for the reserved names.
TransferRefusal findTransferFolder(const QString &chosen, QString &destination);
