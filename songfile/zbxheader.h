#pragma once

#include "songfile/songinfo.h"

#include <QByteArray>

namespace brisel
{

/// The header of a compressed song container, edited in place: see docs/formats/container.md.
/// Unknown bytes are kept. Without a loaded header every getter is empty or 0
/// and the setters do nothing.
class ZbxHeader
{
public:
    enum FlagsEnum {
        HasMarkers = 1, ///< the song has markers
    };

    /// The texts that are written.
    enum class Field { Title, Artist, Author, Genre };

    static constexpr qsizetype shortSize = 512; ///< bytes of a "_ZB3" or "_ZB4" header
    static constexpr qsizetype longSize = 1024; ///< bytes of a "_ZB5" header

    /// The format of the magic at the start of \a data; Unknown if there is no known magic.
    static SongInfo::fileTypeEnum typeOf(const QByteArray &data);
    /// Bytes of the header of a container of \a type; 0 for other formats.
    static qsizetype sizeOf(SongInfo::fileTypeEnum type);

    /// Loads \a data, the whole header. Returns false, without a header loaded, if the magic is
    /// unknown (then fileType() is Unknown) or the data are too short (then fileType() is
    /// unchanged).
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

    bool hasTitle() const { return !title().isEmpty(); }
    bool hasArtist() const { return !artist().isEmpty(); }
    bool hasAuthor() const { return !author().isEmpty(); }
    bool hasGenre() const { return !genre().isEmpty(); }
    bool hasLongName() const { return !longName().isEmpty(); }
    bool hasValidTempo() const; ///< 1 to 499

    /// Texts are cut to 32 characters.
    void setTitle(const QString &text);
    void setAuthor(const QString &text);
    void setArtist(const QString &text);
    void setGenre(const QString &text);
    void setTempo(int bpm); ///< only the low 16 bits are stored
    void setFlag(FlagsEnum flag);
    void clearFlag(FlagsEnum flag);   ///< only for a flag that the user has made untrue
    void setSize(unsigned bytes);     ///< header and compressed data
    void setOrigSize(unsigned bytes); ///< the MIDI data before compression

    /// True if \a info has the same text for \a field as the header, and there are other bytes than
    /// zeros after the zero byte that ends it: see docs/formats/container.md.
    bool wouldLose(Field field, const SongInfo &info) const;

private:
    QByteArray m_header;
    SongInfo::fileTypeEnum m_fileType = SongInfo::Unknown;
};

} // namespace brisel
