#pragma once

#include "id3/id3frames.h"
#include "songfile/songinfo.h"

#include <QByteArray>

#include <optional>

namespace brisel
{

/// The ID3v2 tag of an MP3, without the audio, edited in place: see docs/formats/id3.md. The tag
/// keeps its version; a changed one is written in its plain form. Without a loaded tag every getter
/// is empty or 0 and the setters do nothing.
class Mp3Header
{
public:
    static constexpr int tagHeaderSize = Id3Header::size; ///< bytes
    static constexpr int maxFileStart = 1000000; ///< bytes of a file in which a tag must lie

    /// The fields that a tag holds.
    enum class Field { Title, Artist, Author, Genre, Key, Length, UserBpm };

    /// Loads the tag at the start of \a data, the start of a file; without a tag there makes a new,
    /// empty one. Returns false, without a tag loaded, if there are fewer than 10 bytes, or the
    /// tag's size is larger than \a data.
    [[nodiscard]] bool loadHeader(const QByteArray &data);

    /// The bytes to write: the tag as it was loaded, or changed and in its plain form.
    QByteArray stream() const { return m_isChanged ? m_tag : m_loaded; }
    SongInfo::fileTypeEnum fileType() const { return SongInfo::Mp3; }
    /// The start of the audio in the loaded song file; 0 for a file without a tag. A footer counts
    /// as part of the tag.
    unsigned getAudioDataStartPos() const { return m_audioStart; }
    /// Records that stream() has been written to the file.
    void noteSaved();

    /// The size, without its header, of the tag at the start of \a data, see Id3Header::sizeAt().
    static unsigned getId3TagSize(const QByteArray &data) { return Id3Header::sizeAt(data); }
    void updateId3TagSize() { Id3Header::putSize(m_tag, m_tagSize); }
    /// The size field of the frame at \a pos of the tag, read as in version 2.3.
    unsigned getSingleFrameLength(int pos) const;

    /// Reads the first frame called \a id, a name of version 2.3; returns its position in the tag's
    /// plain form, or -1. A compressed or encrypted text is empty.
    int extractId3Frame(QString &text, const QString &id) const;
    /// Inserts a frame with a Latin-1 text at \a pos. Returns its length, 0 if \a pos is outside of
    /// the tag or \a data is empty.
    int insertId3Frame(const QByteArray &data, const QString &id, int pos);
    /// Removes the first frame called \a id; returns the bytes removed.
    int removeId3Frame(const QString &id);

    QString title() const { return text(titleId); }
    QString artist() const { return text(artistId); }
    QString author() const { return text(authorId); }
    QString genre() const { return text(genreId); }
    QString key() const { return text(keyId); }
    int length() const;  ///< whole seconds, 0 = none
    int userBpm() const; ///< beats per minute, 0 = none
    bool isKordia() const;

    bool hasTitle() const { return has(titleId); }
    bool hasArtist() const { return has(artistId); }
    bool hasAuthor() const { return has(authorId); }
    bool hasGenre() const { return has(genreId); }
    bool hasKey() const { return has(keyId); }
    bool hasLength() const { return has(lengthId); }
    bool hasUserBpm() const { return has(userBpmId); }
    bool hasBriselEditParam() const
    {
        return has(editId);
    } ///< the mark of a tag that this program has written

    /// An empty text removes the frame. A text that is not Latin-1 is written in a Unicode
    /// encoding.
    void setTitle(const QString &text) { setText(titleId, text); }
    void setArtist(const QString &text) { setText(artistId, text); }
    void setAuthor(const QString &text) { setText(authorId, text); }
    void setGenre(const QString &text) { setText(genreId, text); }
    void setKey(const QString &text) { setText(keyId, text); }
    void setLength(int seconds); ///< 0 or less removes the frame
    void setUserBpm(int bpm);    ///< 0 or less removes the frame
    void setBriselEditParam();

    /// True if \a info has the same value for \a field as the tag, and writing it would lose data:
    /// further values, another encoding, a part of a second, a text that is not a number,
    /// compressed or encrypted content, a group.
    bool wouldLose(Field field, const SongInfo &info) const;

private:
    /// The frames of the fields, by their names in version 2.3.
    static constexpr char titleId[] = "TIT2";
    static constexpr char artistId[] = "TPE1";
    static constexpr char authorId[] = "TCOM";
    static constexpr char genreId[] = "TCON";
    static constexpr char keyId[] = "TKEY";
    static constexpr char lengthId[] = "TLEN";
    static constexpr char userBpmId[] = "TBPM";
    static constexpr char editId[] = "MEDT";

    std::optional<Id3Frame> frame(QByteArrayView id) const;
    QByteArray frameContent(const Id3Frame &frame) const;
    QString text(QByteArrayView id) const;
    bool has(QByteArrayView id) const { return frame(id).has_value(); }
    void setText(QByteArrayView id, const QString &text);
    QByteArray textContent(const QString &text) const;
    bool wouldLose(QByteArrayView id, const QString &text) const;
    int insertFrame(QByteArrayView id, const QByteArray &content, qsizetype pos);
    void noteLoaded();
    qint64 end() const { return static_cast<qint64>(m_tagSize) + tagHeaderSize; }
    void resized(qsizetype bytes);
    void fitPadding();

    QByteArray m_loaded; ///< the tag as stored in the file
    QByteArray m_tag;    ///< the tag with its changes, in its plain form
    Id3Frames m_frames;
    bool m_isChanged = false;
    quint32 m_tagSize = 0;         ///< bytes of m_tag without the header, including truncated ones
    quint32 m_audioStart = 0;      ///< bytes
    qsizetype m_loadedFrames = 0;  ///< the end of the frames when the tag was loaded
    qsizetype m_loadedPadding = 0; ///< bytes
};

} // namespace brisel
