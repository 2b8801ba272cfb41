#pragma once

#include "base/filedescriptor.h"

#include <QString>

class QFile;

namespace brisel
{

/// The folder ".brisel2pc/lot" at the root of a memory, in which new files grow before they get
/// their names.
///
/// On FAT they must: a new name can't reach the disk there in one step. The entry under the new
/// name and the end of the one under the temporary name are writes of their own, and with both in
/// one folder, one block may hold the half of one rename and the whole of another. Flushing this
/// folder alone takes the temporary names off the disk, and what is flushed after that gives the
/// files their new ones. It lies below another one because the folder above is written with it.
class StagingFolder
{
public:
    /// Makes the folder in \a root where there is none, and on FAT with room for as many files as a
    /// lot has, and flushed.
    explicit StagingFolder(const QString &root);
    /// Removes the folder, unless it holds files of another program. On FAT its parent is flushed
    /// then, and with it the room that replaced files have freed.
    ~StagingFolder();
    StagingFolder(const StagingFolder &) = delete;
    StagingFolder &operator=(const StagingFolder &) = delete;

    /// The topmost folder of the FAT file system on which \a folder lies. Where it writes each
    /// entry by itself at once, \a folder: there both names of a file reach the disk for a moment,
    /// and the one below, which is found second, is the one that a repair cuts off.
    static QString rootOf(const QString &folder);

    /// False when no such folder could be made, or a link stands there.
    [[nodiscard]] bool isOpen() const { return m_lot.isOpen(); }

    /// Opens a new file for reading and writing. Returns its path, which \a file does not know;
    /// empty on failure.
    [[nodiscard]] QString makeFile(QFile &file);

    /// Removes what interrupted runs have left in the open work folder \a workFolder, except on a
    /// FAT that is mounted with "sync": there a file of the memory may share its clusters.
    static void clear(int workFolder);

    /// ".brisel2pc", the folder in the root of a memory for what a run keeps there.
    static QString workFolderName() { return QStringLiteral(".brisel2pc"); }

    /// The most files that may lie there at a time.
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
