#pragma once

#include <QByteArray>

#include <array>
#include <cstddef>

namespace brisel
{

class IndexSet;

/// The contents of the fifteen files of an index set as they lie on the memory: see
/// docs/formats/player-index.md. A file that is missing or not a plain file is null.
struct SetFiles {
    enum ListIndex : std::size_t { Titles, Artists, Genres, Titles3, Artists3, Genres3, Lists };

    struct List {
        QByteArray content;
        QByteArray alphabet;
    };

    /// Returns true for the lists with group headers.
    static bool isGrouped(std::size_t list) { return list % 3 != Titles; }
    /// Returns true for the lists that have only MP3s.
    static bool isMp3Only(std::size_t list) { return list >= Titles3; }

    /// Reads the files of \a set. Returns false if "index.id2", which has the ids of the songs,
    /// can't be read completely: it may be readable later.
    bool read(const IndexSet &set);

    QByteArray paths;  ///< "index.id2"
    QByteArray order;  ///< "ordfile.id2"
    QByteArray counts; ///< "fsinfos.id2"
    std::array<List, Lists> lists;
};

} // namespace brisel
