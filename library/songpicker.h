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
        Interrupted, ///< by the user or the end of the program
    };

    /// \a paths are paths of files and folders.
    explicit SongPicker(QStringList paths);

    /// Picks the files, and every song below the folders in the order of a folder scan. Skips
    /// missing files, files that are not plain ones, and files without the suffix of a song.
    [[nodiscard]] Outcome run(Run &run);

    const QStringList &songs() const { return m_songs; }

private:
    void add(Run &run, const QString &path);
    bool pick(Run &run, const QString &file);

    const QStringList m_paths;
    QStringList m_songs;
    QSet<QString> m_known; ///< paths of the songs
    FolderWalk m_walk;
};

} // namespace brisel
