#pragma once

#include "base/reason.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace brisel
{

class MemoryContents;

/// The files on a memory that are meant by paths of its index. Such a path may have '?' in place of
/// characters that the player's code page lacks, and other upper and lower case letters than the
/// file. Each folder is read once, when it is first needed.
class SongFiles
{
public:
    /// The path matches more than one file, or more than one song of the index.
    static constexpr Reason unclear{
        QT_TRANSLATE_NOOP("RunReport", "più file o più song hanno questo percorso")};

    struct Place {
        QString path; ///< of the file, absolute; empty if there is a problem
        /// FileReason::missing only if no file has the path's sort key.
        std::optional<Reason> problem;
    };

    /// For the memory \a root, a path without "/" at its end. \a contents are those of its index,
    /// empty if it has none; only read here.
    SongFiles(QString root, const MemoryContents &contents);

    /// The one file that the absolute path \a path can mean. A path outside of the memory means
    /// itself.
    [[nodiscard]] Place find(const QString &path);
    /// The number of folders that were read.
    qsizetype foldersRead() const { return m_foldersRead; }

private:
    /// The entries of all folders whose paths have one sort key.
    struct Level {
        QHash<QByteArray, QStringList> entries; ///< absolute paths, by the sort keys of their names
        bool isComplete = true;                 ///< false: a folder could not be read to its end
    };

    const Level &levelOf(const QByteArray &folder);
    void read(const QString &folder, Level &level);

    const QString m_root;
    QHash<QByteArray, int> m_songs; ///< the number of songs of each sort key with '?'
    QHash<QByteArray, Level> m_levels;
    qsizetype m_foldersRead = 0;
};

} // namespace brisel
