#pragma once

#include "base/run.h"
#include "index/memoryfile.h"

#include <QCoreApplication>
#include <QHash>
#include <QList>

class MemoryFindings;

/// Counts one step of a check. False once \a run is to end.
[[nodiscard]] inline bool countStep(Run &run)
{
    run.pulse();
    return run.mayGoOn();
}

/// The songs of "index.id2" as the lists should have them.
struct IndexedSongs {
    MemoryFile paths;                     ///< "index.id2"
    QHash<quint32, qsizetype> recordOfId; ///< the first record with an id
    MemoryFile titles;                    ///< "title.id2"
    QList<qsizetype> titleOfRecord;       ///< its record in "title.id2"; -1 when it has none
};

/// Checks one list of an index, of titles or of groups, for the check of a memory.
///
/// Texts are stored truncated in Latin-1, but ordered by their full Unicode form: where a '?' or
/// the truncation hides the difference, any order is accepted.
class MemoryListCheck
{
    Q_DECLARE_TR_FUNCTIONS(MemoryListCheck)

public:
    /// The list \a file with the name \a name; \a grouped when its songs stand behind headers.
    MemoryListCheck(const QString &name, const MemoryFile &file, bool grouped,
                    MemoryFindings &findings, Run &run);

    /// Every song of \a songs stands in the list once, with the data of "title.id2"; only MP3
    /// songs when \a mp3Only.
    void checkSongs(const IndexedSongs &songs, bool mp3Only);
    /// Songs, or groups and the songs of each, stand in their order, and the headers count right.
    void checkOrder();
    /// The alphabet table \a table with the name \a tableName leads to the first of each initial.
    void checkAlphabet(const QString &tableName, const MemoryFile &table);
    /// The number for "fsinfos.id2": songs, or headers of a grouped list.
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
