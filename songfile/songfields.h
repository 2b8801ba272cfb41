#pragma once

#include "songfile/fieldchange.h"

namespace brisel
{

/// A set of the fields of a song.
class SongFields
{
public:
    using Field = FieldChange::Field;

    static constexpr SongFields all() { return SongFields(~quint32{0}); }
    static constexpr SongFields none() { return SongFields(0); }

    constexpr bool holds(Field field) const { return (m_bits & bitOf(field)) != 0; }
    constexpr void insert(Field field) { m_bits |= bitOf(field); }
    constexpr void remove(Field field) { m_bits &= ~bitOf(field); }

    constexpr bool operator==(const SongFields &other) const = default;

private:
    explicit constexpr SongFields(quint32 bits) : m_bits(bits) {}
    static constexpr quint32 bitOf(Field field) { return quint32{1} << static_cast<int>(field); }

    quint32 m_bits;
};

} // namespace brisel
