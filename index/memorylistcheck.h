#pragma once

#include "base/run.h"
#include "index/memoryfile.h"

#include <QCoreApplication>
#include <QHash>
#include <QList>

namespace brisel
{

class MemoryFindings;

/// Counts one step of a check. Returns false if \a run must end.
[[nodiscard]] inline bool countStep(Run &run)
{
    run.pulse();
    return run.mayGoOn();
}

/// The songs of "index.id2", for comparison with the lists.
struct IndexedSongs {
    MemoryFile paths;                     ///< "index.id2"
    QHash<quint32, qsizetype> recordOfId; ///< the first record with an id
    MemoryFile titles;                    ///< "title.id2"
    QList<qsizetype> titleOfRecord;       ///< its record in "title.id2"; -1 if it has none
};

/// Checks one list of an index, of titles or of groups, for the check of a memory.
///
/// Texts are stored truncated in Latin-1, but ordered by their full Unicode form: where a '?' or
/// the truncation hides the difference, any order is accepted.
class MemoryListCheck
{
    Q_DECLARE_TR_FUNCTIONS(MemoryListCheck)

public:
    /// For the list \a file with the name \a name; \a grouped if it has group headers.
    MemoryListCheck(const QString &name, const MemoryFile &file, bool grouped,
                    MemoryFindings &findings, Run &run);

    /// Checks that every one of \a songs, or with \a mp3Only every MP3, is in the list once, with
    /// the data of "title.id2", and no others.
    void checkSongs(const IndexedSongs &songs, bool mp3Only);
    /// Checks the order of the songs, or of the groups and the songs of each, and the counts of the
    /// headers.
    void checkOrder();
    /// Checks that the alphabet table \a table with the name \a tableName leads to the first text
    /// of each initial.
    void checkAlphabet(const QString &tableName, const MemoryFile &table);
    /// The count for "fsinfos.id2": of songs, or of the headers of a grouped list.
    int count() const;

private:
    struct Order;

    bool isEntry(qsizetype record) const { return !m_grouped || m_file.isHeader(record); }
    void checkGroup(qsizetype header, int songsBefore);
    bool canStandFor(quint32 offset, quint32 first, int initial) const;

    const QString m_name;
    const MemoryFile &m_file;
    const bool m_grouped;
    MemoryFindings &m_findings;
    Run &m_run;
};

} // namespace brisel
