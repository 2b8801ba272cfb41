#pragma once

#include "base/run.h"
#include "library/pulledmemories.h"

#include <QCoreApplication>
#include <QStringList>

namespace brisel
{

class Database;
class UserSongsRelTableModel;

/// The counts of an import or a folder scan.
struct SongCounts {
    int songs = 0;          ///< files that opened
    int publisherSongs = 0; ///< those of them that the publisher published
    int unknown = 0;        ///< files that did not open

    int examined() const { return songs + unknown; }
};

/// Appends song files to the library table and counts them.
class SongRows
{
public:
    /// Continues counting from \a counts.
    explicit SongRows(UserSongsRelTableModel &model, const SongCounts &counts = {});

    /// Opens the file at \a path, appends it to the table, counts it, shows the count and processes
    /// pending events. A file that does not open is counted, logged after \a logPrefix, and
    /// reported.
    void add(Run &run, const QString &path, const char *logPrefix);

    const SongCounts &counts() const { return m_counts; }

private:
    UserSongsRelTableModel &m_model;
    SongCounts m_counts;
    PulledMemories m_memories;
};

/// Fills the library table with the songs that the user picked.
class LibraryImport
{
    Q_DECLARE_TR_FUNCTIONS(LibraryImport)

public:
    enum class Outcome {
        Done,
        NotCleared,  ///< the table could not be emptied: the old rows stay
        Interrupted, ///< by the end of the program only: the user can't interrupt an import
    };

    enum class Mode {
        Replace, ///< empties the table first
        Add,     ///< the songs of the table stay
    };

    static constexpr Reason notInTable{
        QT_TRANSLATE_NOOP("RunReport", "la tabella non l'ha accettata")};

    /// \a files are paths.
    LibraryImport(Database &database, UserSongsRelTableModel &model, QStringList files,
                  Mode mode = Mode::Replace);

    /// Adds the files in their order; then sorts the rows as chosen before.
    [[nodiscard]] Outcome run(Run &run);

    const SongCounts &counts() const { return m_songs.counts(); }

private:
    bool clearTable();
    void readFiles(Run &run);

    Database &m_database;
    UserSongsRelTableModel &m_model;
    const QStringList m_files;
    const Mode m_mode;
    SongRows m_songs;
};

} // namespace brisel
