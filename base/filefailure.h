#pragma once

#include "base/runreport.h"

/// Why something that was tried with a file did not work, as far as a look at it can tell
/// afterwards.

/// Why the file at \a path, of which more than \a largest bytes are never read, was no song. Reads
/// nothing of it: whether it could be read to its end is known to those who tried.
RunReport::Reason whyUnreadable(const QString &path, qint64 largest);

/// Why the memory \a root has no complete index after a run.
RunReport::Reason whyNotIndexed(const QString &root);

/// Why \a size bytes could not be written to \a path.
RunReport::Reason whyUnwritable(const QString &path, qint64 size);
