#pragma once

#include <QList>

#include <algorithm>

/// The ids of an index in ascending order, each once: at which position of its list is which song.
class IdTable
{
public:
    void reserve(qsizetype count) { m_ids.reserve(count); }
    /// Appends \a id, which is above all that there are.
    void append(quint32 id) { m_ids.append(id); }
    qsizetype size() const { return m_ids.size(); }
    /// The highest id; 0 when there is none.
    quint32 highest() const { return m_ids.isEmpty() ? 0 : m_ids.last(); }

    /// The position of \a id; -1 when no song has it.
    qsizetype positionOf(quint32 id) const
    {
        if (m_ids.isEmpty() || id < m_ids.first())
            return -1;
        // Songs that have gone leave gaps, so that none stands behind the place its id would have.
        const qsizetype last = std::min<qsizetype>(id - m_ids.first(), m_ids.size() - 1);
        if (m_ids.at(last) == id)
            return last;
        const auto end = m_ids.cbegin() + last;
        const auto found = std::lower_bound(m_ids.cbegin(), end, id);
        return found != end && *found == id ? found - m_ids.cbegin() : -1;
    }

private:
    QList<quint32> m_ids; ///< apart from the songs: a search for one is to touch little memory
};
