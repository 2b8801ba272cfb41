#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace brisel
{

/// A strict reader of ID3v2 tags that shares no code with the program's. It accepts only tags that
/// all readers read in the same way.
namespace Id3Parser
{

struct Frame {
    QByteArray name;     ///< as stored: three letters in version 2.2
    QByteArray flags;    ///< two bytes; empty in version 2.2
    QByteArray content;  ///< as the frame stores it
    qsizetype start = 0; ///< offset in the tag with the unsynchronisation undone
};

struct Tag {
    int version = 0; ///< 2, 3 or 4
    bool isUnsynchronised = false;
    qsizetype size = 0;      ///< bytes in the file, with the header
    qsizetype framesEnd = 0; ///< an offset like a frame's start
    qsizetype padding = 0;   ///< bytes
    QList<Frame> frames;

    /// The name in this version of the frame \a id of version 2.3; empty if the program doesn't
    /// write such a frame.
    QByteArray name(const QByteArray &id) const;
    /// The number of the first frame called \a name; -1 if there is no such frame.
    qsizetype indexOf(const QByteArray &name) const;
    /// The first text of \a frame, not trimmed; nothing if it is ambiguous.
    std::optional<QString> text(const Frame &frame) const;
};

/// The tag at the start of \a file. Returns nothing if it has an unknown version, a flag other than
/// unsynchronisation, an empty frame, an invalid size, other bytes than zeros after the frames, or
/// more than \a maxFrames.
std::optional<Tag> parse(const QByteArray &file, qsizetype maxFrames);

} // namespace Id3Parser

} // namespace brisel
