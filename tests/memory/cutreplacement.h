#pragma once

#include "index/indexset.h"
#include "tests/index/handmadeset.h"

#include <QCryptographicHash>

namespace brisel
{

/// Leaves \a memory as a run does that was cut while it replaced the index by the same one, and the
/// playlist file \a playlist by its present content.
inline void cutReplacement(const SampleMemory &memory, const QString &playlist)
{
    QByteArray mark = "brisel2pc swap 1\n";
    const QStringList names = IndexSet::names() + QStringList{playlist};
    for (const QString &name : names) {
        const QByteArray content = memory.read(name);
        memory.write(u".brisel2pc/"_qs + name.section(u'/', -1), content);
        mark += QCryptographicHash::hash(content, QCryptographicHash::Sha1).toHex() + ' ' +
                QByteArray::number(content.size()) + ' ' + name.toLatin1() + '\n';
    }
    memory.write(u".brisel2pc/swap"_qs,
                 mark + "end " + QCryptographicHash::hash(mark, QCryptographicHash::Sha1).toHex() +
                     '\n');
    for (const QString &name : IndexSet::names())
        memory.remove(name);
}

} // namespace brisel
