#pragma once

#include "songfile/fingerprint.h"

#include <QHash>
#include <QStringList>

#include <utility>

namespace brisel
{

/// Finds songs by their content among the files of a list. Reads only files of the wanted size,
/// each once for every length of a tag that is looked for.
class MovedSongs
{
public:
    /// \a paths: the files in which songs are looked for.
    explicit MovedSongs(QStringList paths = {}) : m_paths(std::move(paths)) {}

    /// The path of the first file of the list with the content \a wanted that no earlier call
    /// returned; empty if no file has it.
    QString find(const Fingerprint &wanted);
    /// The file at \a path, which is in the list, has a new content: find() may return it again.
    void add(const QString &path);

private:
    using Paths = QHash<QByteArray, QStringList>; ///< by checksum

    void sortBySize();
    void insert(const QString &path, QStringList &paths) const;

    QStringList m_paths;
    QHash<QString, qsizetype> m_positions; ///< in the list
    QHash<qint64, QStringList> m_bySize;
    QHash<qint64, QHash<qint64, Paths>> m_byChecksum; ///< by the sizes of the file and of its tag
    bool m_isSorted = false;
};

} // namespace brisel
