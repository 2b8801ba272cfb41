#pragma once

#include "id3/id3frames.h"
#include "songfile/songinfo.h"

#include <QByteArray>

#include <optional>

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

    /// Takes the tag at the start of \a data, the beginning of a file; data that do not begin with
    /// one get a new, empty tag. False when there are fewer than 10 bytes, or the tag says that it
    /// is larger than \a data: there is no tag then.
    [[nodiscard]] bool loadHeader(const QByteArray &data);

    /// The tag as it is to be written: as it was loaded, or changed and in its plain form.
    QByteArray stream() const { return m_isChanged ? m_tag : m_loaded; }
    SongInfo::fileTypeEnum fileType() const { return SongInfo::Mp3; }
    /// Where the audio begins in the song file as loaded; 0 for a file that had no tag. A footer
    /// counts as a part of the tag.
    unsigned getAudioDataStartPos() const { return m_audioStart; }
    /// Notes that the tag now stands in the file as stream() gives it.
    void noteSaved();

    /// The size, without its header, of the tag that begins \a data, see Id3Header::sizeAt().
    static unsigned getId3TagSize(const QByteArray &data) { return Id3Header::sizeAt(data); }
    void updateId3TagSize();
    /// The size field of the frame at \a pos of the tag, read as version 2.3 has it.
    unsigned getSingleFrameLength(int pos) const;

    /// Reads the first frame called \a id, a name of version 2.3; returns its position in the tag's
    /// plain form, or -1. A compressed or encrypted text is empty.
    int extractId3Frame(QString &text, const QString &id) const;
    /// Inserts a frame with a Latin-1 text at \a pos; returns its length, 0 when \a pos lies
    /// outside or \a data is empty.
    int insertId3Frame(const QByteArray &data, const QString &id, int pos);
    /// Removes the first frame called \a id; returns the bytes removed.
    int removeId3Frame(const QString &id);

    QString title() const;
    QString artist() const;
    QString author() const;
    QString genre() const;
    QString key() const;
    int length() const;  ///< whole seconds, 0 = none
    int userBpm() const; ///< beats per minute, 0 = none
    bool isKordia() const;

    bool hasTitle() const;
    bool hasArtist() const;
    bool hasAuthor() const;
    bool hasGenre() const;
    bool hasKey() const;
    bool hasLength() const;
    bool hasUserBpm() const;
    bool hasBriselEditParam() const; ///< the mark of a tag that this program has written

    /// An empty text removes the frame. What Latin-1 can't hold is written in a Unicode encoding.
    void setTitle(const QString &text);
    void setArtist(const QString &text);
    void setAuthor(const QString &text);
    void setGenre(const QString &text);
    void setKey(const QString &text);
    void setLength(int seconds); ///< 0 or less removes the frame
    void setUserBpm(int bpm);    ///< 0 or less removes the frame
    void setBriselEditParam();

    /// True when \a info holds for \a field what the tag reads as, and writing that would lose
    /// something: further values, another encoding, a part of a second, a text that is not a
    /// number, what is compressed or encrypted, a group.
    bool wouldLose(Field field, const SongInfo &info) const;

private:
    std::optional<Id3Frame> frame(QByteArrayView id) const;
    QByteArray frameContent(const Id3Frame &frame) const;
    QString text(QByteArrayView id) const;
    bool has(QByteArrayView id) const;
    void setText(QByteArrayView id, const QString &text);
    QByteArray textContent(const QString &text) const;
    bool wouldLose(QByteArrayView id, const QString &text) const;
    int insertFrame(QByteArrayView id, const QByteArray &content, qsizetype pos);
    void noteLoaded();
    qint64 end() const;
    void resized(qsizetype bytes);
    void fitPadding();

    QByteArray m_loaded; ///< the tag as it stands in the file
    QByteArray m_tag;    ///< the tag with its changes, in its plain form
    Id3Frames m_frames;
    bool m_isChanged = false;
    quint32 m_tagSize = 0;         ///< bytes of m_tag without the header, also those that are cut
    quint32 m_audioStart = 0;      ///< bytes
    qsizetype m_loadedFrames = 0;  ///< where the frames ended when the tag was loaded
    qsizetype m_loadedPadding = 0; ///< bytes
};
