#pragma once

#include "id3/id3frames.h"
#include "tests/literalbytes.h"

#include <QByteArray>

namespace brisel
{

/// ID3v2 tags written out by hand.
namespace HandMade
{

using LiteralBytes::bytes;

/// Two frames of version 2.3, which are the same in version 2.4.
inline const QByteArray titleOne = bytes("TIT2\0\0\0\4\0\0\0One");
inline const QByteArray artistTwo = bytes("TPE1\0\0\0\4\0\0\0Two");

/// A frame of version 2.4 called \a name with 200 bytes of content and the size field \a size.
inline QByteArray frameOf200(const QByteArray &name, const QByteArray &size)
{
    return name + size + bytes("\0\0\0") + QByteArray(199, 'x');
}

/// A tag: its header, and then \a body.
inline QByteArray tag(int version, int flags, const QByteArray &body)
{
    QByteArray header = bytes("ID3\0\0\0");
    header[3] = static_cast<char>(version);
    header[5] = static_cast<char>(flags);
    for (const int shift : {21, 14, 7, 0})
        header += static_cast<char>((body.size() >> shift) & 0x7F);
    return header + body;
}

/// A whole tag and its frames.
struct Walked {
    explicit Walked(const QByteArray &whole) : tag(whole), frames(tag, tag.size()) {}

    /// The content of the frame \a id; "none" if the tag has no such frame.
    QByteArray content(const char *id) const
    {
        const std::optional<Id3Frame> frame = frames.find(tag, id, tag.size());
        return frame ? frames.content(tag, *frame) : QByteArray("none");
    }

    /// The start of the frame \a id; -1 if the tag has no such frame.
    qsizetype start(const char *id) const
    {
        const std::optional<Id3Frame> frame = frames.find(tag, id, tag.size());
        return frame ? frame->start : -1;
    }

    QByteArray tag;
    Id3Frames frames;
};

} // namespace HandMade

} // namespace brisel
