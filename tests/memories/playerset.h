#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace brisel
{

/// Reads the index set of a memory as the player does; shares no code with the program. See
/// docs/formats/player-index.md.
class PlayerSet
{
public:
    /// Reads the fifteen files in the folder \a root.
    explicit PlayerSet(const QString &root);

    /// The first fault of the set; empty if all files belong together.
    const QString &problem() const { return m_problem; }
    /// The content of the set, line by line, with paths instead of ids and record numbers: equal
    /// for two sets that differ in numbers only.
    const QStringList &lines() const { return m_lines; }

    /// Paths below the root in code page "IBM 850", by id.
    const QHash<quint32, QByteArray> &paths() const { return m_paths; }
    /// The records of "title.id2", 64 bytes each, by id.
    const QHash<quint32, QByteArray> &records() const { return m_records; }

private:
    void check(bool isGood, const QString &problem);
    QByteArray read(const QString &name, qsizetype unit);
    void readPaths();
    void readOrder();
    void readList(const QString &name);
    void readTable(const QString &name, const QByteArray &list, bool isGrouped);
    void readCounts();

    const QString m_root;
    QString m_problem;
    QStringList m_lines;
    QList<QByteArray> m_pathRecords;
    QHash<quint32, QByteArray> m_paths;
    QHash<quint32, QByteArray> m_records;
    QList<int> m_counts;
};

/// One record of a playlist.
struct PlaylistEntry {
    quint32 id = 0;
    QByteArray title; ///< Latin-1

    bool operator==(const PlaylistEntry &other) const = default;
};

/// The records of the playlist file \a path.
QList<PlaylistEntry> playlistEntries(const QString &path);

/// The certain ids of "index.id2" in \a root, in any state of the set: ids that occur once, with a
/// path that occurs once, and that are in the right order or in two of the lists.
QHash<QByteArray, quint32> certainIds(const QString &root);

/// \a path in code page "IBM 850" as far as the names of these tests need it.
QByteArray codePageBytes(const QString &path);

} // namespace brisel
