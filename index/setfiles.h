#pragma once

#include <QByteArray>

#include <array>
#include <cstddef>

class IndexSet;

/// The contents of the fifteen files of an index set as they lie on the memory: see
/// docs/formats/player-index.md. A file that is missing or not a plain file is null.
struct SetFiles {
    enum ListIndex : std::size_t { Titles, Artists, Genres, Titles3, Artists3, Genres3, Lists };

    struct List {
        QByteArray content;
        QByteArray alphabet;
    };

    /// True for the lists whose songs stand behind group headers.
    static bool isGrouped(std::size_t list) { return list % 3 != Titles; }
    /// True for the lists of MP3s alone.
    static bool isMp3Only(std::size_t list) { return list >= Titles3; }

    /// Reads the files of \a set. False when "index.id2", which has the ids of the songs, can't be
    /// read to its end: what it holds may be readable another day.
    bool read(const IndexSet &set);

    QByteArray paths;  ///< "index.id2"
    QByteArray order;  ///< "ordfile.id2"
    QByteArray counts; ///< "fsinfos.id2"
    std::array<List, Lists> lists;
};
