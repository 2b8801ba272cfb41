#pragma once

#include <QByteArray>

namespace brisel
{

/// A tag's plain form, in which frames are read, changed and written: the same version without the
/// features that other programs read differently. See docs/formats/id3.md.
namespace Id3Plain
{

/// The size in bytes of the footer after the tag at the start of \a file: 10, or 0 without a
/// footer.
qsizetype footerSize(const QByteArray &file);

/// The plain form of \a stored, a tag without its footer: the unsynchronisation of the whole tag is
/// undone, the extended header left out, and version 2.4 has its own kind of frame sizes. The size
/// field gives the tag's length; for a part of a tag the result is a part. A wrong flag is cleared,
/// too; a tag that can't be walked keeps its extended header.
[[nodiscard]] QByteArray tag(const QByteArray &stored);

} // namespace Id3Plain

} // namespace brisel
