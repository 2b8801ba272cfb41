#pragma once

#include "index/givennames.h"
#include "tests/index/indexsamples.h"
#include "tests/scriptedindex.h"

#include <QCryptographicHash>

namespace brisel
{

/// The file of the given names on a memory.
namespace Sample
{

inline const QString namesFile = u".brisel2pc/names"_qs;
inline const QByteArray namesHead = "brisel2pc names 1\n";

/// The line of the file with these \a fields.
inline QByteArray lineWith(const QByteArray &fields)
{
    return QCryptographicHash::hash(namesHead + fields, QCryptographicHash::Sha1).toHex().left(8) +
           ' ' + fields + '\n';
}

/// Updates the index of \a memory; names are shortened without a question.
inline bool updateNames(const SampleMemory &memory)
{
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    return index.updateIndex(memory.root());
}

/// The path that a file sent as \a name gets on \a memory, both below the root.
inline QString place(const SampleMemory &memory, const QString &name)
{
    GivenNames names;
    names.setRoot(memory.root());
    (void)names.load();
    return names.placeOf(memory.path(name)).mid(memory.root().size() + 1);
}

} // namespace Sample

} // namespace brisel
