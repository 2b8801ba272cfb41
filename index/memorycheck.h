#pragma once

#include "index/memoryfile.h"
#include "index/memoryfindings.h"
#include "index/memorylistcheck.h"
#include "index/memorysongs.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <array>

namespace brisel
{

/// Checks whether the index on a memory is sound: every record points to a song that is there,
/// every song of the memory is indexed once, orders, groups, alphabet tables and counts agree, and
/// playlists name songs that are there. It changes nothing. See docs/formats/player-index.md, "How
/// a memory is checked".
class MemoryCheck : public QObject
{
    Q_OBJECT

public:
    /// \a run shows the progress, with a pulse for each file, record and table entry. It must
    /// outlive this.
    explicit MemoryCheck(Run &run, QObject *parent = nullptr) : QObject(parent), m_run(run) {}

    /// Checks the memory \a root. Returns false, without findings, if the program was asked to end
    /// or the memory was removed. Returns false also if another program works on the memory; then
    /// that is the only finding.
    [[nodiscard]] bool run(const QString &root);

    /// A line of plain text for each finding of the last run, in the language at that time; if
    /// there are too many, a last line has the number of the others.
    QStringList findings() const { return m_findings.lines(); }
    /// Returns true if the index itself is damaged; changes of songs and playlists since it was
    /// written are not damage.
    bool hasDamage() const { return m_findings.hasDamage(); }

signals:
    /// The maximum is 0 while songs are searched and their number is not known.
    void progressMaxSetup(int maximum);
    void progressValueChanged(int value);
    /// An empty text at the end.
    void currentPathChanged(const QString &path);

private:
    bool checkAll();
    MemoryFile readFile(const QString &name, int unit, qint64 least, qint64 most);
    void checkPaths();
    void checkIds();
    void checkRecord(qsizetype record, int timesMet);
    void checkUnindexedSongs(const QHash<QByteArray, int> &records);
    void checkPathOrder();
    void checkLists();
    void checkCounts();
    void checkPlaylists();
    void checkPlaylist(const QString &name);
    void checkEntry(const QString &name, const MemoryFile &playlist, qsizetype place);
    void setMaximum(int maximum);
    void step(const QString &name);

    Run &m_run;
    QString m_root;
    MemorySongs m_memory;
    IndexedSongs m_index;
    std::array<int, 6> m_counts{}; ///< the right counts for "fsinfos.id2"; -1 for a file not read
    int m_progress = 0;
    MemoryFindings m_findings;
};

} // namespace brisel
