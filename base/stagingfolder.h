#pragma once

#include "base/filedescriptor.h"

#include <QString>

class QFile;

namespace brisel
{

/// The folder ".brisel2pc/lot" at the root of a memory, in which new files are written before they
/// are renamed to their places.
///
/// On FAT this is necessary, because a rename is not written in one step: the new entry and the
/// removal of the temporary one are separate writes, and with both in one folder, one block may
/// have half of one rename and the whole of another. Flushing only this folder removes the
/// temporary names on the disk, and the next flush writes the new ones. It is below another folder
/// because its parent folder is written with it.
class StagingFolder
{
public:
    /// Makes the folder in \a root if it is missing, on FAT with room for all files of a lot, and
    /// flushes it.
    explicit StagingFolder(const QString &root);
    /// Removes the folder, unless it has files of other programs. On FAT flushes its parent then,
    /// and with it the room freed by replaced files.
    ~StagingFolder();
    StagingFolder(const StagingFolder &) = delete;
    StagingFolder &operator=(const StagingFolder &) = delete;

    /// The topmost folder of the FAT file system of \a folder. If it writes each entry at once,
    /// \a folder itself: there both names of a file are on the disk for a short time, and a repair
    /// truncates the file of the lower one, which it finds second.
    static QString rootOf(const QString &folder);

    /// Returns false if the folder could not be made, or a link has its name.
    [[nodiscard]] bool isOpen() const { return m_lot.isOpen(); }

    /// Opens a new file for reading and writing. Returns its path, which is not set in \a file;
    /// empty on failure.
    [[nodiscard]] QString makeFile(QFile &file);

    /// Removes what interrupted runs have left in the open work folder \a workFolder, except on a
    /// FAT that is mounted with "sync": there a file of the memory may share its clusters.
    static void clear(int workFolder);

    /// ".brisel2pc", the folder for the files of runs in the root of a memory.
    static QString workFolderName() { return QStringLiteral(".brisel2pc"); }

    /// The maximum number of files in it.
    static constexpr int maxFiles = 200;

private:
    QString m_root;
    QString m_path;
    FileDescriptor m_work; ///< the work folder
    FileDescriptor m_lot;  ///< the folder itself, in the work folder
    bool m_isFat = false;
    int m_next = 0; ///< number of the next file
};

} // namespace brisel
