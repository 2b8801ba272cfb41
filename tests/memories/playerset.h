#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

/// The index set of a memory as the player reads it, by code that shares nothing with the program.
/// See docs/formats/player-index.md.
class PlayerSet
{
public:
    /// Reads the fifteen files in the folder \a root.
    explicit PlayerSet(const QString &root);

    /// The first fault of the set; empty when all files belong together.
    const QString &problem() const { return m_problem; }
    /// All that the set says, line by line, with paths in the place of ids and record numbers:
    /// equal for two sets that differ in numbers only.
    const QStringList &lines() const { return m_lines; }

    /// By id: paths below the root, in code page "IBM 850".
    const QHash<quint32, QByteArray> &paths() const { return m_paths; }
    /// By id: the records of "title.id2", 64 bytes.
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

/// What "index.id2" in \a root says for certain, whatever state the set is in: the ids that it
/// gives once, to a path that it holds once, and that stand in their order or in two of the lists.
QHash<QByteArray, quint32> certainIds(const QString &root);

/// \a path in code page "IBM 850" as far as the names of these tests need it.
QByteArray codePageBytes(const QString &path);
