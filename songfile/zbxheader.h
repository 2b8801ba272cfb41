#pragma once

#include "songfile/songinfo.h"

#include <QByteArray>

/// The header of a compressed song container, edited in place: see docs/formats/container.md.
/// What it does not know stays byte for byte. Without a loaded header every getter is empty or 0
/// and the setters do nothing.
class ZbxHeader
{
public:
    enum FlagsEnum {
        HasMarkers = 1, ///< the song carries markers
    };

    /// The texts that are written.
    enum class Field { Title, Artist, Author, Genre };

    static constexpr qsizetype shortSize = 512; ///< bytes of a "_ZB3" or "_ZB4" header
    static constexpr qsizetype longSize = 1024; ///< bytes of a "_ZB5" header

    /// The format that the magic at the start of \a data names; Unknown when it is none.
    static SongInfo::fileTypeEnum typeOf(const QByteArray &data);
    /// Bytes of the header of a container of \a type; 0 when it is none.
    static qsizetype sizeOf(SongInfo::fileTypeEnum type);

    /// Takes all of \a data, which is the header. False, with no header left, when the magic is
    /// not known (fileType() is Unknown then) or the data are too short (it stays as it was).
    [[nodiscard]] bool loadHeader(const QByteArray &data);

    QByteArray header() const { return m_header; }
    SongInfo::fileTypeEnum fileType() const { return m_fileType; }

    QString title() const;
    QString artist() const;
    QString author() const;
    QString genre() const;
    QString editor() const;
    QString copyright() const;
    QString longName() const;
    int flags() const; ///< -128 to 127
    int tempo() const; ///< beats per minute, 0 to 65535

    bool hasTitle() const;
    bool hasArtist() const;
    bool hasAuthor() const;
    bool hasGenre() const;
    bool hasLongName() const;
    bool hasValidTempo() const; ///< 1 to 499

    /// Texts are kept to 32 characters, the rest is cut.
    void setTitle(const QString &text);
    void setAuthor(const QString &text);
    void setArtist(const QString &text);
    void setGenre(const QString &text);
    void setTempo(int bpm);           ///< its low 16 bits are kept
    void setFlag(FlagsEnum flag);     ///< flags are only ever added
    void setSize(unsigned bytes);     ///< header and compressed data
    void setOrigSize(unsigned bytes); ///< the MIDI data before compression

    /// True when \a info holds for \a field what the header reads as, and bytes other than zero
    /// stand behind the zero byte that ends that text: see docs/formats/container.md.
    bool wouldLose(Field field, const SongInfo &info) const;

private:
    QByteArray m_header;
    SongInfo::fileTypeEnum m_fileType = SongInfo::Unknown;
};
