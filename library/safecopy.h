#pragma once

#include <QString>

/// Copies of single files that are whole or not there at all.

/// Copies the plain file \a source (or the one that it links to) to \a destination, which must not
/// exist. The copy grows under a name of its own, is flushed to the disk and only then gets its
/// name; it has the permissions of the source. False when there is no copy afterwards; nothing of
/// it is left behind then.
bool copyToNewFile(const QString &source, const QString &destination);

/// As above, but the plain file \a destination exists and is replaced. It is deleted first only
/// when the disk has no room for both and its room is what the copy lacks; in every other failure
/// it stays as it was.
bool copyOverFile(const QString &source, const QString &destination);

/// True when \a newSize bytes don't fit into \a freeSize, but do so once the \a oldSize bytes of
/// the file that they replace are free.
bool mustDeleteFirst(qint64 freeSize, qint64 oldSize, qint64 newSize);
