#pragma once

#include "base/reason.h"

#include <optional>

namespace brisel
{

/// Why something that was tried with a file did not work, as far as a look at it can show
/// afterwards.
namespace FileReason
{

inline constexpr Reason missing(QT_TRANSLATE_NOOP("RunReport", "il file non esiste"));
inline constexpr Reason unreachable(QT_TRANSLATE_NOOP("RunReport", "il file non è accessibile"));
inline constexpr Reason notAFile(QT_TRANSLATE_NOOP("RunReport", "non è un file"));
inline constexpr Reason empty(QT_TRANSLATE_NOOP("RunReport", "il file è vuoto"));
inline constexpr Reason tooLarge(QT_TRANSLATE_NOOP("RunReport",
                                                   "il file è troppo grande per essere una song"));
inline constexpr Reason folderMissing(QT_TRANSLATE_NOOP("RunReport", "la cartella non esiste più"));
inline constexpr Reason writeProtected(QT_TRANSLATE_NOOP("RunReport",
                                                         "la memoria è protetta da scrittura"));
inline constexpr Reason
    notAllowed(QT_TRANSLATE_NOOP("RunReport", "manca il permesso di scrivere nella cartella"));
inline constexpr Reason noSpace(QT_TRANSLATE_NOOP("RunReport", "spazio insufficiente sul disco"));
inline constexpr Reason unwritable(QT_TRANSLATE_NOOP("RunReport",
                                                     "non è stato possibile scrivere il file"));
/// Fewer bytes could be read than the file holds.
inline constexpr Reason truncated(
    QT_TRANSLATE_NOOP("RunReport", "non è stato possibile leggere il file fino alla fine"));
/// It no longer is what was read.
inline constexpr Reason
    changed(QT_TRANSLATE_NOOP("RunReport", "nel frattempo un altro programma l'ha cambiata"));

} // namespace FileReason

/// True when the file system that holds \a path lets nobody change it.
bool isWriteProtected(const QString &path);

/// Why the file at \a path, of which more than \a largest bytes are never read, can't be read.
/// Empty when its content must be the reason: it is not opened.
std::optional<Reason> whyUnreadable(const QString &path, qint64 largest);

/// Why \a size bytes could not be written to \a path.
Reason whyUnwritable(const QString &path, qint64 size);

/// Why \a size bytes could not be written into \a folder, which is there.
Reason whyUnwritableIn(const QString &folder, qint64 size);

} // namespace brisel
