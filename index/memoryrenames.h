#pragma once

#include <QList>
#include <QSet>
#include <QString>

class FolderHandle;
class GivenNames;

/// Gives files and folders of one memory new names, and sees to it that these reach the disk.
///
/// Each name is changed by the system's own rename, never by copying, through a handle of the
/// folder that was reached without following a link: nothing outside of the memory gets a new name,
/// whatever is exchanged for a link meanwhile. On the FAT family the moved file or folder and then
/// its folder are flushed before the next name is changed; elsewhere flush() does it at once for
/// all.
class MemoryRenames
{
public:
    struct NewName {
        QString from;
        QString to;
    };

    /// Begins anew, with the memory whose root is \a root, whose \a given names get
    /// each new one; they are used until the next call.
    void setRoot(const QString &root, GivenNames &given);
    /// Renames entries of \a folder, one after the other: all of them or none. Replaces nothing.
    /// The first new name is remembered, before it is given. False when one can't be renamed, or
    /// \a folder is not on the memory.
    bool rename(const QString &folder, const QList<NewName> &names);
    /// Flushes the new names to the disk. False when one may not have reached it.
    bool flush();

private:
    void makeReady(const QString &folder, const QString &way, const QList<NewName> &names);
    bool renameOne(const FolderHandle &folder, const QString &from, const QString &to);

    QString m_root;
    GivenNames *m_given = nullptr;
    QSet<QString> m_folders;   ///< have new names that are not flushed yet
    QSet<QString> m_ready;     ///< folders on FAT that need not grow
    bool m_isFlushed = true;   ///< no flush has failed
    bool m_isGivenNew = false; ///< the given names have grown since the last flush
};
