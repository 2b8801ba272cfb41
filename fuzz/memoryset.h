#pragma once

#include "index/indexset.h"
#include "index/songinfoindex.h"

#include <QList>

/// A few songs as an index knows them, in the order of their ids, from \a firstId on.
QList<SongInfoIndex> sampleIndexSongs(quint32 firstId = 1);

/// What the fifteen files of a set hold for \a songs, in the order of IndexSet::names(). None of
/// the songs is taken for an MP3.
QList<QByteArray> sampleSetFiles(const QList<SongInfoIndex> &songs);

/// Stages all fifteen files of a set without content and puts them in place.
bool commitEmptySet(IndexSet &set);

/// Makes a memory in the folder \a root with nothing but these songs, which have the dates that
/// they have in the index.
void makeSampleMemory(const QString &root);
