#pragma once

#include <QList>
#include <QString>

namespace brisel
{

/// One entry of a song's marker list: a text that the player shows at a bar.
class Marker
{
public:
    QString text;
    qint32 bar = 0; ///< counted as the player counts bars; files keep 0 to 65535

    bool operator==(const Marker &other) const = default;
};

/// The data of one song of any format.
class SongInfo
{
public:
    /// The formats that the system recognises. The numbers are part of the design.
    enum fileTypeEnum : int {
        Unknown = 0,
        Midi0 = 1, ///< Standard MIDI File, format 0
        Midi1 = 2, ///< Standard MIDI File, format 1
        Zb3 = 3,   ///< compressed song container "_ZB3"
        Zb4 = 4,   ///< compressed song container "_ZB4"
        Zb5 = 5,   ///< compressed song container "_ZB5"
        Mp3 = 6,   ///< MP3, with or without an ID3v2 tag
    };

    /// Empties every text and the marker list, zeroes every number.
    void clear() { *this = SongInfo(); }
    /// Writes the record to the log.
    void dbgDump() const;

    QString title;
    QString artist;
    QString altArtist; ///< from the catalogue only; no file format stores it
    QString genre;
    QString author;
    qint32 length = 0;     ///< whole seconds; 0 = unknown
    qint32 userBpm = 0;    ///< beats per minute; 0 = none
    QString key;           ///< a key name such as "C" or "A-"; in MP3s any text
    QString fileName;      ///< full path; set by the caller
    QString shortName;     ///< name without folder; set by the caller
    bool isKordia = false; ///< published by the maker
    QList<Marker> markers; ///< in file order
    QString format;        ///< MetaSong::getFormatString
    QString zbxLongName;   ///< long name in a container's header
    qint8 zbxFlags = 0;    ///< flags byte of a container's header
};

} // namespace brisel
