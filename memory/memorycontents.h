#pragma once

#include "index/setfiles.h"
#include "index/songinfoindex.h"

#include <QFlags>
#include <QHash>
#include <QList>
#include <QString>

namespace brisel
{

class IndexSet;
class Run;

/// What the index and the playlists on a memory contain, read from the player's own files as they
/// are: docs/formats/player-index.md and docs/formats/playlists.md. Nothing is corrected, so that
/// the songs are those that the player shows. It is a picture of one moment and never changes
/// afterwards.
///
/// Songs have positions, which are their record numbers in "index.id2".
class MemoryContents
{
public:
    enum class Outcome {
        Done,
        NotPrepared, ///< there is no index
        Unreadable,  ///< "index.id2" can't be read completely
        InUse,       ///< another program works on the memory
        Gone,        ///< there is no such folder
    };

    /// Why the player can't open a song, or shows it wrongly, as far as the files of the index show
    /// it.
    enum class Mark : quint8 {
        QuestionMark = 1, ///< '?' in the path, for a character that the code page lacks
        NotListed = 2,    ///< no record in one of the lists
        IdTwice = 4,      ///< another song has the same id, or a list has the id twice
    };
    Q_DECLARE_FLAGS(Marks, Mark)

    /// A playlist that the player's list names.
    struct Playlist {
        enum class State { Good, Missing, Unreadable };

        qint16 number = 0;
        State state = State::Good; ///< of the songs file
        bool isWritable = false;
        QByteArray songs; ///< the songs file: song records
        QByteArray paths; ///< the path file; null if it is missing

        bool operator==(const Playlist &other) const = default;
    };

    /// Reads the files of the memory \a root, a path without "/" at its end; \a run gets pulses.
    /// After another outcome than Done the object is empty.
    [[nodiscard]] Outcome read(const QString &root, Run &run);

    const QString &root() const { return m_root; }
    /// Returns true if each of the fifteen files exists.
    bool isComplete() const { return m_isComplete; }
    /// The date and time of the newest file of the set in seconds since 1970, UTC; 0 if unknown.
    qint64 modified() const { return m_modified; }
    const SetFiles &files() const { return m_files; }

    /// The number of songs in "index.id2".
    qsizetype size() const { return m_titleAt.size(); }
    /// The first song with \a id; -1 if no song has it.
    qsizetype positionOf(quint32 id) const { return m_positions.value(id, -1); }
    quint32 id(qsizetype position) const;
    /// The path below the root, which begins with "/", in the bytes of "index.id2".
    QByteArray pathBytes(qsizetype position) const;
    QString path(qsizetype position) const;
    /// The date of the last modification, year x 10000 + month x 100 + day, and the time, hour x
    /// 10000 + minute x 100 + second, as they were when the song was read.
    quint32 date(qsizetype position) const;
    quint32 time(qsizetype position) const;

    /// The song's record of 64 bytes in "title.id2"; empty if it has none.
    QByteArray record(qsizetype position) const;
    /// The texts of a song; empty if a list does not have it.
    QString title(qsizetype position) const;
    QString artist(qsizetype position) const;
    QString genre(qsizetype position) const;
    quint8 bpm(qsizetype position) const;
    /// A number of SongInfoIndex::Type.
    quint8 type(qsizetype position) const;
    bool hasMarkers(qsizetype position) const;
    Marks marks(qsizetype position) const { return m_marks.at(position); }

    /// In the order of the player's list.
    const QList<Playlist> &playlists() const { return m_playlists; }

private:
    void readPaths();
    void readList(std::size_t list);
    void readPlaylists(const IndexSet &set, Run &run);

    QString m_root;
    bool m_isComplete = false;
    qint64 m_modified = 0;
    SetFiles m_files;
    QHash<quint32, qsizetype> m_positions;
    QList<qsizetype> m_titleAt;  ///< offsets in "title.id2"; -1 for a song that it does not have
    QList<qsizetype> m_artistAt; ///< of the headers in "artist.id2"
    QList<qsizetype> m_genreAt;
    QList<Marks> m_marks;
    QList<Playlist> m_playlists;
};

} // namespace brisel

// In the namespace it would hide the operators of Qt.
Q_DECLARE_OPERATORS_FOR_FLAGS(brisel::MemoryContents::Marks)
