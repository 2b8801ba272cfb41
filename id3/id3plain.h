#pragma once

#include <QByteArray>

/// A tag's plain form, in which frames are read, changed and written: of the same version, without
/// what other programs read differently from each other. See docs/formats/id3.md.
namespace Id3Plain
{

/// Size of the footer behind the tag that begins \a file, in bytes: 10, or 0 without a footer.
qsizetype footerSize(const QByteArray &file);

/// \a stored, a tag without its footer, with the unsynchronisation of the whole tag undone, without
/// an extended header, and with the frame sizes that version 2.4 asks for. Its own size field says
/// how long it is. A part of a tag gives a part. A flag that is set without cause is cleared, too;
/// the extended header of a tag that can't be walked stays.
[[nodiscard]] QByteArray tag(const QByteArray &stored);

} // namespace Id3Plain
