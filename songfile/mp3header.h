#pragma once

#include "songfile/songinfo.h"

#include <QByteArray>

/// The ID3v2 tag of an MP3, without the audio, edited in place: see docs/formats/id3.md. Frames
/// are found by searching for the four bytes of their name, so the same bytes inside another
/// frame's text are taken for a frame. Without a loaded tag every getter is empty or 0 and the
/// setters do nothing.
class Mp3Header
{
public:
    static constexpr int tagHeaderSize = 10;     ///< bytes
    static constexpr int maxFileStart = 1000000; ///< bytes of a file in which a tag must lie

    /// Takes the tag at the start of \a data, the beginning of a file; data that do not begin with
    /// one get a new, empty tag. False when there are fewer than 10 bytes, or the tag says that it
    /// is larger than \a data: there is no tag then.
    bool loadHeader(const QByteArray &data);

    /// The tag as it is to be written.
    QByteArray stream() const { return m_stream; }
    SongInfo::fileTypeEnum fileType() const { return SongInfo::Mp3; }
    /// Where the audio begins in the song file as loaded; 0 for a file that had no tag.
    unsigned getAudioDataStartPos() const { return m_audioStart; }
    /// Tells that the tag now stands in the file as stream() gives it.
    void noteSaved() { m_audioStart = static_cast<quint32>(m_stream.size()); }

    /// The size, without its header, of the tag that begins \a data, 7 bits from each of four
    /// bytes. A byte above 128 makes it 0; one of exactly 128 passes and counts whole, as files
    /// with it have always been read.
    static unsigned getId3TagSize(const QByteArray &data);
    void updateId3TagSize();
    unsigned getSingleFrameLength(int pos) const;

    /// Reads the first frame called \a id; returns its position or -1. The encoding byte is not
    /// interpreted: of a UTF-16 text only the bytes before the first zero are read.
    int extractId3Frame(QString &text, const QString &id) const;
    /// Inserts a frame at \a pos; returns its length, 0 when \a pos lies outside or \a data is
    /// empty.
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

    /// An empty text removes the frame.
    void setTitle(const QString &text);
    void setArtist(const QString &text);
    void setAuthor(const QString &text);
    void setGenre(const QString &text);
    void setKey(const QString &text);
    void setLength(int seconds); ///< 0 or less removes the frame
    void setUserBpm(int bpm);    ///< 0 or less removes the frame
    void setBriselEditParam();

private:
    QString text(const QString &id) const;
    bool has(const QString &id) const;
    void setText(const QString &id, const QString &text);

    QByteArray m_stream;
    quint32 m_tagSize = 0; ///< without the header
    quint32 m_audioStart = 0;
};
