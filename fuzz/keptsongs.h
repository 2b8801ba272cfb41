#pragma once

#include <QByteArray>

namespace brisel
{

/// Requires that \a after, the song \a before after the program saved it with other texts and
/// numbers, still has everything else that independent readers find: the other frames and the
/// audio, the other events at their ticks, the other bytes of a container's header. Parts that
/// those readers reject are not compared.
void requireAllElseKept(const QByteArray &before, const QByteArray &after);

} // namespace brisel
