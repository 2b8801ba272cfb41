#pragma once

#include "base/folderwalk.h"
#include "base/run.h"

#include <QCoreApplication>
#include <QSet>
#include <QString>
#include <QStringList>

namespace brisel
{

/// The names of song files, as patterns of a file dialog's filter.
QString songNamePatterns();

/// Converts files and folders to the list that a user would have picked in a file dialog: the full
/// paths of all files with the names of songs, each once.
class SongPicker
{
    Q_DECLARE_TR_FUNCTIONS(SongPicker)

public:
    enum class Outcome {
        Done,
        NoSongs,
        NoNewSongs,  ///< all songs are in the list already
        Interrupted, ///< by the user or the end of the program
    };

    /// \a paths are paths of files and folders.
    explicit SongPicker(QStringList paths);
    /// For songs that are added to the list \a listed, which may be empty: a file that is in the
    /// list or was picked already, under any name, is not picked.
    SongPicker(QStringList paths, QStringList listed);

    /// Picks the files, and every song below the folders in the order of a folder scan. Skips
    /// missing files, files that are not plain ones, and files without the suffix of a song.
    [[nodiscard]] Outcome run(Run &run);

    const QStringList &songs() const { return m_songs; }
    /// The number of songs that were not picked because they are in the list already.
    int listedCount() const { return m_listedCount; }

private:
    void add(Run &run, const QString &path);
    bool pick(Run &run, const QString &file);
    bool isListed(const QString &file);
    void readListed(Run &run);

    const QStringList m_paths;
    const QStringList m_listed;
    const bool m_isAdding;
    QStringList m_songs;
    QSet<QString> m_known;       ///< paths of the songs
    QSet<QString> m_listedFiles; ///< identities of the files in the list, and paths of missing ones
    int m_listedCount = 0;
    FolderWalk m_walk;
};

} // namespace brisel
