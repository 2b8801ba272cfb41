#pragma once

#include "index/indexset.h"
#include "index/songinfoindex.h"

#include <QList>

namespace brisel
{

/// A few songs of an index, in the order of their ids, from \a firstId on.
QList<SongInfoIndex> sampleIndexSongs(quint32 firstId = 1);

/// The contents of the fifteen files of a set for \a songs, in the order of IndexSet::names(). No
/// song is treated as an MP3.
QList<QByteArray> sampleSetFiles(const QList<SongInfoIndex> &songs);

/// Stages all fifteen files of a set without content and commits them.
bool commitEmptySet(IndexSet &set);

/// Makes a memory in the folder \a root with only these songs, dated as in the index.
void makeSampleMemory(const QString &root);

} // namespace brisel
