#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// A strict reader of ID3v2 tags that shares no code with the program's: it understands only what
/// no two readers can read differently.
namespace Id3Parser
{

struct Frame {
    QByteArray name;     ///< as it stands there: three letters in version 2.2
    QByteArray flags;    ///< two bytes, none in version 2.2
    QByteArray content;  ///< as the frame stores it
    qsizetype start = 0; ///< counted as if the tag had never been unsynchronised
};

struct Tag {
    int version = 0; ///< 2, 3 or 4
    bool isUnsynchronised = false;
    qsizetype size = 0;      ///< bytes in the file, with the header
    qsizetype framesEnd = 0; ///< counted like the frames' starts
    qsizetype padding = 0;   ///< bytes
    QList<Frame> frames;

    /// What this version calls the frame \a id of version 2.3; empty for one that the program
    /// doesn't write.
    QByteArray name(const QByteArray &id) const;
    /// The number of the first frame called \a name; -1 when there is no such frame.
    qsizetype indexOf(const QByteArray &name) const;
    /// The first text of \a frame, not trimmed; nothing for one that needs to be guessed.
    std::optional<QString> text(const Frame &frame) const;
};

/// The tag that begins \a file. Nothing when there is another version or flag than
/// unsynchronisation, an empty frame, an invalid size, anything but zero bytes behind the frames,
/// or more than \a maxFrames.
std::optional<Tag> parse(const QByteArray &file, qsizetype maxFrames);

} // namespace Id3Parser
