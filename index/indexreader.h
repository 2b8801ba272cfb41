#pragma once

#include "index/songinfoindex.h"

class IndexSet;

/// Reads an index set back from a memory.
namespace IndexReader
{

/// Fills \a songs from the set below \a root, in the order of "index.id2". Paths are read as
/// Latin-1 although they are written in "IBM 850": a path with characters above 0x7F doesn't match
/// its file again, and that song is indexed anew. False on any fault; \a songs is then of no use.
bool read(const IndexSet &set, const QString &root, QList<SongInfoIndex> &songs);

} // namespace IndexReader
