#pragma once

#include "base/reason.h"

#include <QSet>
#include <QString>

#include <optional>

namespace brisel
{

/// What is known of the copy of a file before it is made.
namespace CopyChecks
{

/// The path of \a source in the folder \a destDir under its own name.
QString destinationOf(const QString &source, const QString &destDir);

/// Returns true if \a source is at \a destination already.
bool isSamePath(const QString &source, const QString &destination);

/// Returns why the file \a source can't be opened; empty if it can.
std::optional<Reason> whyNotOpened(const QString &source);

/// Returns why \a source can't be copied to \a place, so that the user need not be asked; empty if
/// it can. \a sources are the identities of all files that were picked.
std::optional<Reason> whyHopeless(const QString &source, const QString &place,
                                  const QSet<QString> &sources);

} // namespace CopyChecks

} // namespace brisel
