#pragma once

#include "base/folderwalk.h"
#include "base/run.h"

#include <QCoreApplication>
#include <QSet>
#include <QString>
#include <QStringList>

namespace brisel
{

/// The names that song files have, as a file dialog's filter takes them.
QString songNamePatterns();

/// Makes of files and folders the list that a user would have picked in a file dialog: the full
/// paths of all files that have a song's name. Nothing is picked twice under one path.
class SongPicker
{
    Q_DECLARE_TR_FUNCTIONS(SongPicker)

public:
    enum class Outcome {
        Done,
        NoSongs,
        Interrupted, ///< by the user or the end of the program
    };

    /// \a paths are those of files and folders.
    explicit SongPicker(QStringList paths);

    /// Picks the files, and every song below the folders in the order of a folder scan. What is
    /// missing, is not a plain file or is of another kind is passed over.
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
