#pragma once

#include "base/runreport.h"

/// Why something that was tried with a file did not work, as far as a look at it can tell
/// afterwards.

/// True when the file system that holds \a path lets nobody change it.
bool isWriteProtected(const QString &path);

/// Why the file at \a path, of which more than \a largest bytes are never read, was no song. Reads
/// nothing of it: whether it could be read to its end is known to those who tried.
RunReport::Reason whyUnreadable(const QString &path, qint64 largest);

/// Why a run that was to write \a size bytes of index to the memory \a root failed.
RunReport::Reason whyNotIndexed(const QString &root, qint64 size);

/// Why \a size bytes could not be written to \a path.
RunReport::Reason whyUnwritable(const QString &path, qint64 size);
