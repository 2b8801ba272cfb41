#pragma once

#include "songfile/headevents.h"
#include "songfile/songinfo.h"

#include <QByteArray>
#include <QStringList>

#include <array>
#include <optional>

/// A Standard MIDI File of format 0 or 1 and the song data in it: see
/// docs/formats/midi-meta-events.md. What is read is found by searching for its bytes, so bytes
/// that happen to look like an event are taken for one. What is removed is found by walking the
/// first track's events; only where that is impossible, by its bytes. Changes are made at the start
/// of the first track, whose length field is kept right. Without loaded data every getter is empty
/// or 0 and the setters do nothing.
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

    /// What a save by hand writes: see wouldLose().
    enum class Field { Title, Genre, Artist, Author, Length, UserBpm, Key };

    static constexpr char kordiaMeta = '\x4B'; ///< the meta type of the publisher's events
    static constexpr int maxText = 125;        ///< characters of a text that is written
    static constexpr int maxMarkerText = 124;  ///< so that no event's length passes 127

    /// Takes \a data if it is a MIDI file of format 0 or 1; otherwise false, and nothing changes.
    [[nodiscard]] bool loadData(const QByteArray &data);

    QByteArray stream() const { return m_stream; }
    SongInfo::fileTypeEnum fileType() const { return m_fileType; }

    void updateTrackSize();

    /// The position of the 0xFF of the publisher's first event of \a type from \a from on, or -1.
    static int indexOfKordiaMetaevent(const QByteArray &data, int from, kordiaMetaTypeEnum type);

    /// Read the text of the first event; return its position or -1, with an empty text. A length
    /// that is negative as a signed byte, or too large, gives the rest of the file up to the first
    /// zero byte: that way long texts with a two-byte length, written by others, can be read.
    int extractMetaevent(QString &text, kordiaMetaTypeEnum type) const;
    int extractMetaevent(QString &text, char metaType) const;

    /// Remove events with a delta-time of 0 from the first track, all or only the first; return the
    /// bytes removed. Where the track's events can be walked to its end, these are whole events of
    /// any length; otherwise bytes that look like one.
    unsigned removeHeadMetaevent(kordiaMetaTypeEnum type, bool onlyFirst);
    unsigned removeHeadMetaevent(char metaType, bool onlyFirst);

    /// Insert an event with delta-time 0 at \a pos; return the bytes inserted, 0 when \a pos lies
    /// outside the data.
    unsigned insertMetaevent(const QByteArray &data, kordiaMetaTypeEnum type, int pos);
    unsigned insertMetaevent(const QByteArray &data, char metaType, int pos);

    /// Insert a marker at the start of the first track; return the bytes inserted.
    int insertMarker(const QString &text, unsigned short bar);
    int dbgInsertMarker(const QString &text, unsigned short bar);

    /// Read all markers in file order; returns the position of the first or -1.
    int extractMarkersList(QList<::Marker> &list) const;
    /// Reads the key's name, empty for a signature that has none; returns its position or -1.
    int extractKey(QString &key) const;

    QString title() const;
    QString genre() const;
    QString artist() const;
    QString author() const;
    int length() const;  ///< seconds; 0 when missing, negative or not a number
    int userBpm() const; ///< beats per minute; 0 when missing, negative or not a number
    QString key() const;
    QList<::Marker> markersList() const;
    bool isKordia() const; ///< by the copyright text

    /// True when the event is there, whatever it holds.
    bool hasTitle() const;
    bool hasGenre() const;
    bool hasArtist() const;
    bool hasAuthor() const;
    bool hasLength() const;
    bool hasUserBpm() const;
    bool hasKey() const;
    bool hasMarkers() const;

    /// An empty text still leaves an event, with no data.
    void setTitle(const QString &text);
    void setGenre(const QString &text);
    void setArtist(const QString &text);
    void setAuthor(const QString &text);
    void setLength(int seconds);
    void setUserBpm(int bpm);
    /// Replaces the key; an empty or unknown name leaves the song without one.
    void setKey(const QString &name);
    /// Inserts the markers in their order. The author goes, old markers stay: it is meant for
    /// songs that have no markers yet, and was always so.
    void setMarkersList(const QList<::Marker> &list);

    /// Bytes looked through since loadData() to read what the song holds: one pass serves all
    /// getters until the song is changed, and one more the markers.
    qint64 scannedBytes() const { return m_scannedBytes; }

    /// True when the setter of \a field, given the value in \a info, would lose something although
    /// the getter gives that value now: bytes other than zero behind a text's zero byte or a key, a
    /// text longer than maxText, one that is no plain number or not what was read, an unknown key,
    /// a key's place behind tick 0, a second event, or bytes of other events in a track that can't
    /// be walked. False for a value that differs from the getter's.
    bool wouldLose(Field field, const SongInfo &info) const;

    /// How often the first track was walked to its end since loadData(): never to read, once for
    /// all changes at its start.
    int trackWalks() const { return m_trackWalks; }

    /// The names that extractKey() gives, in ascending order of their value.
    static QStringList getKeysList();

private:
    /// The positions of the first events by type, -1 where there is none.
    struct FirstEvents {
        std::array<int, 256> standard;
        std::array<int, 256> kordia;
    };

    const FirstEvents &firstEvents() const;
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
    qint64 trackEnd() const;
    QString kordiaText(kordiaMetaTypeEnum type) const;
    int kordiaNumber(kordiaMetaTypeEnum type) const;
    void setKordiaText(kordiaMetaTypeEnum type, const QString &text);

    QByteArray m_stream;
    mutable std::optional<FirstEvents> m_firstEvents; ///< forgotten with every change
    mutable std::optional<bool> m_isWalkable;         ///< the first track; unknown until it matters
    mutable qint64 m_scannedBytes = 0;
    mutable int m_trackWalks = 0;
    quint32 m_trackSize = 0;
    int m_trackStart = 8; ///< behind the "MTrk" and the length: no place in an empty stream
    int m_trackSizePos = 4;
    SongInfo::fileTypeEnum m_fileType = SongInfo::Unknown;
};
