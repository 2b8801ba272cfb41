#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace brisel
{

/// The sort orders of a song list.
enum SORT_MODE {
    SortByTitle = 0,
    SortByArtist = 1,
    SortByGenre = 2,
};

/// The data of one song in the player's index.
class SongInfoIndex
{
public:
    /// The id of a record whose file was removed; never written to the memory.
    static constexpr quint32 deletedId = 0xFFFFFFFF;
    /// The longest path that a path record can hold, in characters.
    static constexpr int maxPath = 45;
    /// Record numbers have 16 bits.
    static constexpr int maxSongs = 65535;

    /// Higher ids do not leave enough ids for the songs of a full memory: they come only from
    /// damage.
    static constexpr quint32 idLimit = deletedId - 2 * maxSongs;

    /// The player's numbers of the formats.
    enum Type : quint8 { Midi = 0, Mp3 = 1, Zb3 = 2, Zb4 = 3, Zb5 = 4 };

    /// The name of a Type; "?" for other numbers.
    static QString typeName(quint8 type);

    /// Sets the path and its sort key.
    void setPath(const QString &newPath);

    /// Sets date and time, which are local, to a moment in seconds since 1970, UTC.
    void setModified(qint64 seconds);

    QString title;
    QString artist;
    QString genre;
    quint32 id = 0;  ///< kept across updates; deletedId marks a record whose file was removed
    quint8 type = 0; ///< see Type; 0 also for files that are not recognised
    quint8 bpm = 0;  ///< beats per minute; 0 for MP3
    quint8 reserved = 0;
    quint8 flag = 0; ///< 1 when the song has markers
    QString absolutePath;
    QString path;          ///< below the memory's root, begins with "/"; change it by setPath
    QByteArray pathKey;    ///< pathSortKey(path), kept because every look-up needs it
    quint16 posidx = 0;    ///< record number in "index.id2"
    quint32 date = 0;      ///< last modification: year x 10000 + month x 100 + day
    quint32 time = 0;      ///< last modification: hour x 10000 + minute x 100 + second
    bool isMet = false;    ///< in the walk of this run
    bool isUnsure = false; ///< the old index is not reliable about the song
};

/// \a text upper-cased by the rules of Unicode; nothing else changes.
QString stringToUpper(const QString &text);

/// \a text folded as by QString::compare() ignoring case: each letter alone, so that the number of
/// letters stays.
QString foldedText(const QString &text);
/// Folds \a count letters in place, as foldedText() does.
void foldLetters(QChar *letters, qsizetype count);

/// \a path in the player's code page "IBM 850"; '?' for characters that the page lacks.
QByteArray pathBytes(const QString &path);
/// The path of \a bytes in code page "IBM 850".
QString pathFromBytes(const QByteArray &bytes);
/// The sort key of a path: the upper-cased path in code page "IBM 850". Different paths can have
/// the same key.
QByteArray pathSortKey(const QString &path);

/// Each returns true if \a a is strictly before \a b. Path: the order in which the player browses
/// folders, by bytes of pathSortKey. Texts: ignoring case; artist and genre then by title.
bool compareByPath(const SongInfoIndex &a, const SongInfoIndex &b);
bool compareByPosidx(const SongInfoIndex &a, const SongInfoIndex &b);
bool compareById(const SongInfoIndex &a, const SongInfoIndex &b);
bool compareTitle(const SongInfoIndex &a, const SongInfoIndex &b);
bool compareArtist(const SongInfoIndex &a, const SongInfoIndex &b);
bool compareGenre(const SongInfoIndex &a, const SongInfoIndex &b);

} // namespace brisel

Q_DECLARE_TYPEINFO(brisel::SongInfoIndex, Q_RELOCATABLE_TYPE);
