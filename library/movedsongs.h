#pragma once

#include "songfile/fingerprint.h"

#include <QHash>
#include <QPair>
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

    /// The path of a file with the content \a wanted that no earlier call returned; empty if no
    /// file has it.
    QString find(const Fingerprint &wanted);

private:
    using Kind = QPair<qint64, qint64>; ///< the sizes of the file and of its tag

    void sortBySize();

    QStringList m_paths;
    QHash<qint64, QStringList> m_bySize;
    QHash<Kind, QHash<QByteArray, QStringList>> m_byChecksum;
    bool m_isSorted = false;
};

} // namespace brisel
