#pragma once

#include "id3/id3header.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QVarLengthArray>

#include <optional>

namespace brisel
{

/// One frame of an ID3v2 tag. Positions count from the start of the tag.
struct Id3Frame {
    qsizetype start = 0;
    qsizetype size = 0;       ///< bytes, with the header; the existing bytes of a truncated frame
    qsizetype headerSize = 0; ///< bytes: 10, or 6 in version 2.2
    quint8 format = 0;        ///< the flags for how the content is stored; 0 in version 2.2
    qint64 claimed = 0;       ///< bytes of content by the frame's own size field
    bool isSearched = false;  ///< found by searching for its name, where no walk was possible
};

/// The frames of a tag, found by walking it by the rules of its version: see docs/formats/id3.md.
/// If the walk reaches bytes that are neither a frame nor padding, the rest of the tag is searched
/// for the four bytes of a frame's name; the walked part is never searched. The tag may be
/// truncated: its existing bytes are read.
class Id3Frames
{
public:
    Id3Frames() = default;
    /// \a tag starts with its header and is not unsynchronised as a whole any more; it ends at \a
    /// end, which may be after the data.
    Id3Frames(const QByteArray &tag, qint64 end);

    /// Walks \a tag again after a change of its frames; it now ends at \a end. Its sizes are read
    /// as the same kind as before, even if a broken frame after the new ones suggests the other
    /// kind.
    void walkAgain(const QByteArray &tag, qint64 end);

    /// The start of the first frame, after the header and the extended header.
    qsizetype framesStart() const { return m_framesStart; }
    /// The end of the last frame, where the padding or other bytes start.
    qsizetype framesEnd() const { return m_framesEnd; }
    /// True if only zero bytes follow the last frame.
    bool endsInPadding() const { return m_end == End::Clean; }
    /// True if the walk reached the end of the tag or of the data.
    bool isWalked() const { return m_end != End::Broken; }
    /// True if not even the first frame could be walked.
    bool isUnknown() const { return m_end == End::Broken && m_frames.isEmpty(); }

    /// The first frame with the name \a id of version 2.3, four letters; in a tag of version 2.2
    /// the frame with the older name. Only names that start before \a limit are found.
    [[nodiscard]] std::optional<Id3Frame> find(const QByteArray &tag, QByteArrayView id,
                                               qsizetype limit) const;

    /// The content of \a frame without the bytes added by its flags (group, length, zero bytes of
    /// unsynchronisation); empty if it is compressed or encrypted.
    [[nodiscard]] QByteArray content(const QByteArray &tag, const Id3Frame &frame) const;

    /// True if \a frame is compressed, encrypted or grouped.
    bool isBeyondText(const Id3Frame &frame) const;

    /// A frame called \a id with \a content, in the form of the tag's version; empty if the version
    /// has no such name.
    [[nodiscard]] QByteArray frame(QByteArrayView id, const QByteArray &content) const;

    /// Rewrites the sizes of the frames of \a tag, which has version 2.4 and was walked by plain
    /// sizes. A tag that was not walked to its end is not changed.
    void makeSizesSynchsafe(QByteArray &tag) const;

private:
    /// After the last frame: only zero bytes; other bytes after a zero; bytes that are not a frame.
    enum class End { Clean, Opaque, Broken };
    enum class Sizes { Plain, Synchsafe };

    bool findStart(const QByteArray &tag);
    void walk(const QByteArray &tag, Sizes sizes);
    /// The start of the last frame: the walk is known to be valid up to there, because the last
    /// frame's own size may lead anywhere.
    qsizetype lastStart() const { return m_frames.isEmpty() ? 0 : m_frames.last().start; }
    bool takeFrame(const QByteArray &tag, qint64 dataEnd);
    bool mayFollow(const QByteArray &tag, qint64 pos, qint64 dataEnd) const;
    bool isFrameName(const QByteArray &tag, qsizetype pos) const;
    qint64 contentSize(const QByteArray &tag, qsizetype pos) const;
    qsizetype frameHeaderSize() const;
    bool isCalled(const QByteArray &tag, qsizetype pos, const QByteArray &name) const;
    QByteArray nameInVersion(QByteArrayView id) const;
    std::optional<Id3Frame> search(const QByteArray &tag, QByteArrayView id, qsizetype limit) const;

    Id3Header m_header;
    QVarLengthArray<Id3Frame, 32> m_frames;
    qsizetype m_framesStart = 0;
    qsizetype m_framesEnd = 0;
    qint64 m_tagEnd = 0;
    bool m_isWalkable = false;
    End m_end = End::Broken;
    Sizes m_sizes = Sizes::Plain;
};

} // namespace brisel
