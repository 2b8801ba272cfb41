#pragma once

#include <QList>
#include <QSet>
#include <QString>

namespace brisel
{

class FolderHandle;
class GivenNames;

/// Renames files and folders of one memory, and flushes the new names to the disk.
///
/// Files are renamed by the system, never copied, through a handle of their folder that was opened
/// without following links: nothing outside of the memory is renamed, even if a folder is replaced
/// by a link during the run. On the FAT family the renamed file or folder and then its parent
/// folder are flushed before the next one is renamed; on other systems flush() does it for all at
/// the end.
class MemoryRenames
{
public:
    struct NewName {
        QString from;
        QString to;
    };

    /// The next calls are about the memory with the root \a root. New names are added to \a given,
    /// which must outlive this.
    void setRoot(const QString &root, GivenNames &given);
    /// From now on rename() fails if it can't write the new name to the given names. Nothing else
    /// would lead from the earlier name to a name that the user chose.
    void setMustStoreNames() { m_mustStore = true; }
    /// Renames entries of \a folder, one after the other: all of them or none. Replaces nothing.
    /// The first new name is added to the given names before the rename. Returns false if one can't
    /// be renamed, or \a folder is not on the memory.
    [[nodiscard]] bool rename(const QString &folder, const QList<NewName> &names);
    /// Flushes the new names to the disk. Returns false if one may not have reached it.
    [[nodiscard]] bool flush();

private:
    void makeReady(const QString &folder, const QString &way, const QList<NewName> &names);
    bool renameOne(const FolderHandle &folder, const QString &from, const QString &to);

    QString m_root;
    GivenNames *m_given = nullptr;
    QSet<QString> m_folders;   ///< with new names that are not flushed
    QSet<QString> m_ready;     ///< folders on FAT that need not grow
    bool m_isFlushed = true;   ///< false after a failed flush
    bool m_mustStore = false;  ///< see setMustStoreNames()
    bool m_isGivenNew = false; ///< the given names have grown since the last flush
};

} // namespace brisel
