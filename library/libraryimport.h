#pragma once

#include "base/runreport.h"
#include "library/pulledmemories.h"

#include <QStringList>

class Database;
class Progress;
class UserSongsRelTableModel;

/// What an import or a folder scan has met.
struct SongCounts {
    int songs = 0;                ///< files that opened
    int publisherSongs = 0;       ///< those of them that the publisher published
    int unknown = 0;              ///< files that did not open
    RunReport report{};           ///< of each file that is not in the table
    PulledMemories memories = {}; ///< of the files read so far

    int examined() const { return songs + unknown; }
};

/// Opens the file at \a path, appends it to the library, counts it, shows the count and lets
/// pending events through. A file that does not open is counted and logged. \a logPrefix stands in
/// front of the refusal's text.
void addSongFile(const QString &path, const char *logPrefix, UserSongsRelTableModel &model,
                 Progress &progress, SongCounts &counts);

/// Fills the library table with the songs that the user picked.
class LibraryImport
{
public:
    static constexpr Reason notInTable{
        QT_TRANSLATE_NOOP("RunReport", "la tabella non l'ha accettata")};

    LibraryImport(Database &database, UserSongsRelTableModel &model, Progress &progress);

    /// Empties the table. False, logged, when that fails: the old rows stay.
    bool clearLibrary();

    /// Adds \a files in their order; a sort that was chosen before is carried out at the end. A
    /// cancel does not stop it, a request to end the program does.
    SongCounts readFiles(const QStringList &files);

private:
    Database &m_database;
    UserSongsRelTableModel &m_model;
    Progress &m_progress;
};
