#pragma once

#include "base/bytes.h"
#include "songfile/headevents.h"
#include "songfile/midikeys.h"
#include "songfile/songinfo.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QStringList>

#include <array>
#include <optional>

namespace brisel
{

/// A Standard MIDI File of format 0 or 1 and the song data in it: see
/// docs/formats/midi-meta-events.md. Events are read by searching for their bytes, so
/// bytes that happen to look like an event are mistaken for one. Events to be removed are found by
/// walking the first track; only if that is impossible, by their bytes. Changes are made at the
/// start of the first track, whose length field is updated. Without loaded data every getter is
/// empty or 0 and the setters do nothing.
class RawMidiFile
{
public:
    /// The publisher's meta-events.
    enum kordiaMetaTypeEnum {
        Genre = 1,
        Artist = 2,
        Author = 3,
        Length = 4,  ///< decimal digits, seconds
        UserBpm = 5, ///< decimal digits, beats per minute
        Marker = 6,  ///< bar, 2 bytes big-endian, then the text
    };

    /// The fields that a save by hand writes, see wouldLose().
    enum class Field { Title, Genre, Artist, Author, Length, UserBpm, Key };

    static constexpr char kordiaMeta = '\x4B'; ///< the meta type of the publisher's events
    static constexpr int maxText = 125;        ///< characters; longer texts are cut when written
    static constexpr int maxMarkerText = 124;  ///< characters; so an event's length is 127 at most

    /// Loads \a data if it is a MIDI file of format 0 or 1. Otherwise returns false and changes
    /// nothing.
    [[nodiscard]] bool loadData(const QByteArray &data);

    QByteArray stream() const { return m_stream; }
    SongInfo::fileTypeEnum fileType() const { return m_fileType; }

    void updateTrackSize() { putBe32(m_stream, m_trackSizePos, m_trackSize); }

    /// The position of the 0xFF of the publisher's first event of \a type from \a from on; -1 if
    /// there is no such event.
    static int indexOfKordiaMetaevent(const QByteArray &data, int from, kordiaMetaTypeEnum type);

    /// Read the text of the first event. Return its position, or -1 with an empty text. If the
    /// length is negative as a signed byte, or too large, the text is the rest of the file up to
    /// the first zero byte: so long texts with a two-byte length, written by other programs, can be
    /// read.
    int extractMetaevent(QString &text, kordiaMetaTypeEnum type) const;
    int extractMetaevent(QString &text, char metaType) const;

    /// Remove events with a delta-time of 0 from the first track, all or only the first. Return the
    /// number of bytes removed. If the track can be walked to its end, these are whole events of
    /// any length; otherwise bytes that look like an event.
    unsigned removeHeadMetaevent(kordiaMetaTypeEnum type, bool onlyFirst);
    unsigned removeHeadMetaevent(char metaType, bool onlyFirst);

    /// Insert an event with delta-time 0 at \a pos. Return the number of bytes inserted, 0 if \a
    /// pos is outside of the data.
    unsigned insertMetaevent(const QByteArray &data, kordiaMetaTypeEnum type, int pos);
    unsigned insertMetaevent(const QByteArray &data, char metaType, int pos);

    /// Insert a marker at the start of the first track. Return the number of bytes inserted.
    int insertMarker(const QString &text, unsigned short bar);
    int dbgInsertMarker(const QString &text, unsigned short bar) { return insertMarker(text, bar); }

    /// Read all markers in file order. Return the position of the first; -1 if there is no marker.
    int extractMarkersList(QList<brisel::Marker> &list) const;
    /// Reads the key's name, which is empty for an unknown signature. Returns its position; -1 if
    /// there is no key.
    int extractKey(QString &key) const;

    QString title() const;
    QString genre() const { return kordiaText(Genre); }
    QString artist() const { return kordiaText(Artist); }
    QString author() const { return kordiaText(Author); }
    /// Seconds; 0 if missing, negative or not a number.
    int length() const { return kordiaNumber(Length); }
    /// Beats per minute; 0 if missing, negative or not a number.
    int userBpm() const { return kordiaNumber(UserBpm); }
    QString key() const;
    QList<brisel::Marker> markersList() const;
    bool isKordia() const; ///< by the copyright text

    /// True if the event exists, with any content.
    bool hasTitle() const;
    bool hasGenre() const { return firstEvents().kordia[Genre] >= 0; }
    bool hasArtist() const { return firstEvents().kordia[Artist] >= 0; }
    bool hasAuthor() const { return firstEvents().kordia[Author] >= 0; }
    bool hasLength() const { return firstEvents().kordia[Length] >= 0; }
    bool hasUserBpm() const { return firstEvents().kordia[UserBpm] >= 0; }
    bool hasKey() const;
    bool hasMarkers() const { return firstEvents().kordia[Marker] >= 0; }

    /// An empty text still leaves an event, with no data.
    void setTitle(const QString &text);
    void setGenre(const QString &text) { setKordiaText(Genre, text); }
    void setArtist(const QString &text) { setKordiaText(Artist, text); }
    void setAuthor(const QString &text) { setKordiaText(Author, text); }
    void setLength(int seconds) { setKordiaText(Length, QString::number(seconds)); }
    void setUserBpm(int bpm) { setKordiaText(UserBpm, QString::number(bpm)); }
    /// Replaces the key; an empty or unknown name leaves the song without one.
    void setKey(const QString &name);
    /// Inserts the markers in order. Removes the author and keeps old markers: it is meant for
    /// songs without markers, and has always been like this.
    void setMarkersList(const QList<brisel::Marker> &list);
    /// The same, but keeps the author.
    void addMarkers(const QList<brisel::Marker> &list);

    /// True if replaceMarkers() can leave exactly the markers that it is given: each marker that is
    /// read is a whole event of the first track, with a delta-time of 0.
    bool canReplaceMarkers() const;
    /// Replaces the markers by \a list, in its order, and keeps everything else. A marker that was
    /// in the song keeps its bytes. Returns false, and changes nothing, if !canReplaceMarkers(), a
    /// new marker is not isStorable(), or the list's bytes would be read as another field or list.
    [[nodiscard]] bool replaceMarkers(const QList<brisel::Marker> &list);
    /// True if \a marker is read as it is after it was written: its bar has 16 bits, its text is
    /// trimmed and has at most maxMarkerText printable characters of Latin-1.
    static bool isStorable(const brisel::Marker &marker);

    /// The number of bytes scanned by getters since loadData(): until the song is changed, one pass
    /// for all getters and another one for the markers.
    qint64 scannedBytes() const { return m_scannedBytes; }

    /// True if the getter of \a field returns the value in \a info, and setting it again would lose
    /// data: bytes other than zero after a text's zero byte or a key, a text longer than maxText, a
    /// text that is not a plain number or differs from the one read, an unknown key, a key after
    /// tick 0, a second event, or bytes of other events in a track that can't be walked. False for
    /// another value than the getter's.
    bool wouldLose(Field field, const SongInfo &info) const;

    /// How often the first track was walked to its end since loadData(): not at all for reading,
    /// once for all changes at its start.
    int trackWalks() const { return m_trackWalks; }

    /// The names that extractKey() returns, in ascending order of their value.
    static QStringList getKeysList() { return MidiKeys::names(); }

private:
    /// The positions of the first events by type; -1 if there is no such event.
    struct FirstEvents {
        std::array<int, 256> standard;
        std::array<int, 256> kordia;
    };

    const FirstEvents &firstEvents() const;
    std::optional<QByteArrayList> markerEvents() const;
    QList<HeadEvent> eventsToRemove(const MetaKind &kind, bool onlyFirst) const;
    unsigned removeEvents(const MetaKind &kind, bool onlyFirst);
    template <typename Loses>
    bool wouldLose(const MetaKind &kind, Loses loses) const;
    bool wouldLoseText(const MetaKind &kind, const QString &text) const;
    bool wouldLoseNumber(kordiaMetaTypeEnum type, int number) const;
    bool wouldLoseKey(const QString &name) const;
    unsigned insertBytes(const QByteArray &bytes, int pos);
    unsigned insertAtHead(const QByteArray &events);
    QString keyAt(int hit) const;
    void growTrack(qsizetype bytes);
    qint64 trackEnd() const { return static_cast<qint64>(m_trackStart) + m_trackSize; }
    QString kordiaText(kordiaMetaTypeEnum type) const;
    int kordiaNumber(kordiaMetaTypeEnum type) const;
    void setKordiaText(kordiaMetaTypeEnum type, const QString &text);

    QByteArray m_stream;
    mutable std::optional<FirstEvents> m_firstEvents; ///< cleared by every change
    mutable std::optional<bool> m_isWalkable;         ///< the first track; empty until needed
    mutable qint64 m_scannedBytes = 0;
    mutable int m_trackWalks = 0;
    quint32 m_trackSize = 0;
    int m_trackStart = 8; ///< after "MTrk" and the length; outside of an empty stream
    int m_trackSizePos = 4;
    SongInfo::fileTypeEnum m_fileType = SongInfo::Unknown;
};

} // namespace brisel
