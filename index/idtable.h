#pragma once

#include <QList>

#include <algorithm>

namespace brisel
{

/// The ids of an index in ascending order, each once. Finds the position of a song in its list.
class IdTable
{
public:
    void reserve(qsizetype count) { m_ids.reserve(count); }
    /// Appends \a id, which must be above all others.
    void append(quint32 id) { m_ids.append(id); }
    qsizetype size() const { return m_ids.size(); }
    /// The highest id; 0 if the table is empty.
    quint32 highest() const { return m_ids.isEmpty() ? 0 : m_ids.last(); }

    /// Returns the position of \a id; -1 if no song has it.
    qsizetype positionOf(quint32 id) const
    {
        if (m_ids.isEmpty() || id < m_ids.first())
            return -1;
        // Removed songs leave gaps, so a song never stands behind the position that equals its id.
        const qsizetype last = std::min<qsizetype>(id - m_ids.first(), m_ids.size() - 1);
        if (m_ids.at(last) == id)
            return last;
        const auto end = m_ids.cbegin() + last;
        const auto found = std::lower_bound(m_ids.cbegin(), end, id);
        return found != end && *found == id ? found - m_ids.cbegin() : -1;
    }

private:
    QList<quint32> m_ids; ///< apart from the songs, so that a search touches little memory
};

} // namespace brisel
