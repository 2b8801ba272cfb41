#pragma once

#include "base/run.h"
#include "memory/songfiles.h"

#include <QCoreApplication>
#include <QStringList>

namespace brisel
{

/// Copies songs of a memory, with their graphics files, into a folder of the computer. No file
/// there is replaced: a song whose name the folder already has gets a number.
class CopyBack
{
    Q_DECLARE_TR_FUNCTIONS(CopyBack)

public:
    enum class Outcome {
        Done,
        NoFolder, ///< the folder does not exist
        OnMemory, ///< the folder is on the memory itself
        InUse,    ///< another program works on the memory
        NoRoom,   ///< nothing was copied; see shortage()
        Interrupted,
        Failed, ///< not all songs were copied: see the report
    };

    /// For \a files, absolute paths on the memory \a root, as in its index or of the files
    /// themselves (see SongFiles). \a contents are those of its index, empty if it has none; only
    /// read here.
    CopyBack(QString root, QStringList files, QString folder, const MemoryContents &contents);

    [[nodiscard]] Outcome run(Run &run);
    /// A text with the room that was needed and the free room, after NoRoom.
    const QString &shortage() const { return m_shortage; }

private:
    [[nodiscard]] QStringList findFiles(Run &run);

    const QString m_root;
    QStringList m_paths; ///< each once
    SongFiles m_files;
    const QString m_folder;
    QString m_shortage;
};

} // namespace brisel
