#pragma once

#include "base/run.h"
#include "library/pulledmemories.h"

#include <QCoreApplication>
#include <QStringList>

namespace brisel
{

class Database;
class UserSongsRelTableModel;

/// What an import or a folder scan has met.
struct SongCounts {
    int songs = 0;          ///< files that opened
    int publisherSongs = 0; ///< those of them that the publisher published
    int unknown = 0;        ///< files that did not open

    int examined() const { return songs + unknown; }
};

/// Appends song files to the library table, one by one, and counts them.
class SongRows
{
public:
    /// Goes on from \a counts.
    explicit SongRows(UserSongsRelTableModel &model, const SongCounts &counts = {});

    /// Opens the file at \a path, appends it to the table, counts it, shows the count and processes
    /// pending events. A file that does not open is counted, logged and reported; \a logPrefix
    /// stands in front of the refusal's text.
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
        Interrupted, ///< by the end of the program, which alone interrupts an import
    };

    static constexpr Reason notInTable{
        QT_TRANSLATE_NOOP("RunReport", "la tabella non l'ha accettata")};

    /// \a files are paths.
    LibraryImport(Database &database, UserSongsRelTableModel &model, QStringList files);

    /// Empties the table and adds the files in their order; a sort that was chosen before is
    /// carried out at the end.
    [[nodiscard]] Outcome run(Run &run);

    const SongCounts &counts() const { return m_songs.counts(); }

private:
    bool clearTable();
    void readFiles(Run &run);

    Database &m_database;
    UserSongsRelTableModel &m_model;
    const QStringList m_files;
    SongRows m_songs;
};

} // namespace brisel
