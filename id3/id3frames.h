#pragma once

#include "id3/id3header.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QVarLengthArray>

#include <optional>

/// One frame of an ID3v2 tag. Positions count from the start of the tag.
struct Id3Frame {
    qsizetype start = 0;
    qsizetype size = 0;       ///< bytes, with the header; all that is there of a cut frame
    qsizetype headerSize = 0; ///< bytes: 10, or 6 in version 2.2
    quint8 format = 0;        ///< the flags of how the content is stored, 0 in version 2.2
    qint64 claimed = 0;       ///< bytes of content by the frame's own size field
    bool isSearched = false;  ///< found by its name alone, where no walk was possible
};

/// The frames of a tag, found by walking it by the rules of its version: see docs/formats/id3.md.
/// Where the walk meets what is neither a frame nor padding, the rest of the tag is searched for
/// the four bytes of a frame's name; what the walk has passed is never searched. The tag may be
/// cut: what is there of it is read.
class Id3Frames
{
public:
    Id3Frames() = default;
    /// \a tag begins with its header, and its whole is not unsynchronised any more; it ends at
    /// \a end, which may lie behind the data.
    Id3Frames(const QByteArray &tag, qint64 end);

    /// Walks \a tag again, whose frames have changed and which now ends at \a end. Its sizes are
    /// read as they were, whatever a broken frame behind the new ones would let them seem.
    void walkAgain(const QByteArray &tag, qint64 end);

    /// Where the first frame stands: behind the header and the extended header.
    qsizetype framesStart() const { return m_framesStart; }
    /// Where the last frame ends: the padding, or whatever follows.
    qsizetype framesEnd() const { return m_framesEnd; }
    /// True when nothing but zero bytes follow the last frame.
    bool endsInPadding() const { return m_end == End::Clean; }
    /// True when the walk came to the end of the tag, or of the data.
    bool isWalked() const { return m_end != End::Broken; }
    /// True when not even the first frame could be walked.
    bool isUnknown() const { return m_end == End::Broken && m_frames.isEmpty(); }

    /// The first frame that version 2.3 calls \a id, four letters; in a tag of version 2.2 it is
    /// the frame of the older name. Only names that begin before \a limit are seen.
    [[nodiscard]] std::optional<Id3Frame> find(const QByteArray &tag, QByteArrayView id,
                                               qsizetype limit) const;

    /// The content of \a frame without what its flags have added (group, length, zero bytes of
    /// unsynchronisation); empty for a compressed or encrypted one.
    [[nodiscard]] QByteArray content(const QByteArray &tag, const Id3Frame &frame) const;

    /// True when \a frame is compressed, encrypted or grouped.
    bool isBeyondText(const Id3Frame &frame) const;

    /// A frame called \a id around \a content, as the tag's frames are written; empty when its
    /// version has no such name.
    [[nodiscard]] QByteArray frame(QByteArrayView id, const QByteArray &content) const;

    /// Rewrites the sizes of the frames of \a tag, which has version 2.4 and was walked by plain
    /// ones. A tag that was not walked to its end stays as it is.
    void makeSizesSynchsafe(QByteArray &tag) const;

private:
    /// Behind the last frame: nothing but zero bytes; other bytes behind a zero; what is no frame.
    enum class End { Clean, Opaque, Broken };
    enum class Sizes { Plain, Synchsafe };

    bool findStart(const QByteArray &tag);
    void walk(const QByteArray &tag, Sizes sizes);
    qsizetype lastStart() const;
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
