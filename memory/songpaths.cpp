#include "memory/songpaths.h"

#include "index/givennames.h"
#include "index/songinfoindex.h"
#include "memory/memorycontents.h"

namespace brisel
{

SongPaths::SongPaths(const MemoryContents &contents, const GivenNames &names) : m_names(names)
{
    m_positions.reserve(contents.size());
    for (qsizetype position = contents.size() - 1; position >= 0; --position)
        m_positions.insert(pathSortKey(contents.path(position)), position);
}

qsizetype SongPaths::find(const QString &path) const
{
    const auto found = m_positions.constFind(pathSortKey(path));
    return found != m_positions.cend() ? *found
                                       : m_positions.value(pathSortKey(m_names.follow(path)), -1);
}

} // namespace brisel
