#pragma once

#include "base/reason.h"

#include <optional>

namespace brisel
{

/// The reason why an operation on a file failed, as far as it can be determined afterwards.
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
/// Fewer bytes could be read than the file has.
inline constexpr Reason truncated(
    QT_TRANSLATE_NOOP("RunReport", "non è stato possibile leggere il file fino alla fine"));
/// The file was changed since it was read.
inline constexpr Reason
    changed(QT_TRANSLATE_NOOP("RunReport", "nel frattempo un altro programma l'ha cambiata"));

} // namespace FileReason

/// Returns true if the file system of \a path is mounted read-only.
bool isWriteProtected(const QString &path);

/// Returns why the file at \a path, of at most \a largest bytes, can't be read. Empty if only its
/// content can be the reason; the file is not opened.
std::optional<Reason> whyUnreadable(const QString &path, qint64 largest);

/// Returns why \a size bytes could not be written to \a path.
Reason whyUnwritable(const QString &path, qint64 size);

/// Returns why \a size bytes could not be written into the existing \a folder.
Reason whyUnwritableIn(const QString &folder, qint64 size);

} // namespace brisel
