#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace brisel
{

class GivenNames;
class MemoryContents;

/// The songs of a memory by their paths, without regard to case.
class SongPaths
{
public:
    /// \a names, which must outlive this, are those that songs got on the memory.
    SongPaths(const MemoryContents &contents, const GivenNames &names);

    /// The position of the song with a path below the root, which begins with "/", or with the name
    /// that this path got; -1 if there is none. Of songs with the same path it is the first.
    qsizetype find(const QString &path) const;

private:
    const GivenNames &m_names;
    QHash<QByteArray, qsizetype> m_positions;
};

} // namespace brisel
