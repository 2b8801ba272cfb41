#pragma once

#include "index/givennames.h"
#include "memory/playlistrecords.h"

#include <QList>
#include <QObject>
#include <QSet>
#include <QUndoStack>

#include <memory>

namespace brisel
{

/// The playlists of a memory as lists of entries that can be changed, with undo. Nothing is
/// written: see PlaylistWriter. Entries that are not changed keep all of their bytes:
/// docs/formats/playlists.md.
///
/// Playlists have the positions of MemoryContents::playlists(), entries are counted from 0.
class PlaylistDocument : public QObject
{
    Q_OBJECT

public:
    enum class EntryState {
        Good,
        Dead,   ///< its id is not in the index
        Wrong,  ///< the song with its id has another title: the player shows one and plays another
        NoFile, ///< its song has no file on the memory, see setMissing()
    };
    /// As many entries as an index has songs.
    static constexpr qsizetype maxEntries = SongInfoIndex::maxSongs;

    explicit PlaylistDocument(QObject *parent = nullptr) : QObject(parent) {}
    ~PlaylistDocument() override;

    /// Shows the playlists of \a contents, which may be null, and forgets all changes. If only what
    /// was written has changed, the changes can still be undone.
    void setContents(std::shared_ptr<const MemoryContents> contents);
    /// Goes back to the playlists as they were read or last written, also in part.
    void discardChanges();
    /// Shows the playlists of \a newer, another reading of the same memory, with the unsaved
    /// changes, which become one change of each playlist. Returns the numbers of the playlists
    /// whose changes are lost, at least in part, because they have other entries on the memory now,
    /// or because the index lacks added songs.
    [[nodiscard]] QList<qint16> takeOver(std::shared_ptr<const MemoryContents> newer);
    const std::shared_ptr<const MemoryContents> &contents() const { return m_contents; }
    /// The songs whose files are missing, by their positions. They stay until other songs are
    /// shown.
    void setMissing(const QSet<qsizetype> &positions);

    /// Returns true if \a newer has the same songs, and the playlists as they were read or written
    /// here.
    bool isSameAs(const MemoryContents &newer) const;

    qsizetype count() const { return m_lists.size(); }
    qint16 number(qsizetype playlist) const;
    /// The playlist with this number; -1 if there is none.
    qsizetype playlistWith(std::optional<qint16> number) const;
    MemoryContents::Playlist::State state(qsizetype playlist) const;
    /// Returns true if the songs file was read and may be written.
    bool isEditable(qsizetype playlist) const;
    qsizetype size(qsizetype playlist) const { return m_lists.at(playlist).entries.size(); }
    /// The number of entries that are not good.
    qsizetype faults(qsizetype playlist) const;

    /// The 64 bytes of an entry.
    QByteArray record(qsizetype playlist, qsizetype entry) const;
    /// The 64 bytes that the path file has for it; empty if it has none, or if they may belong to
    /// another entry.
    QByteArray pathRecord(qsizetype playlist, qsizetype entry) const;
    quint32 id(qsizetype playlist, qsizetype entry) const;
    QString title(qsizetype playlist, qsizetype entry) const;
    /// The position of the song with the entry's id; -1 if there is none.
    qsizetype song(qsizetype playlist, qsizetype entry) const;
    EntryState entryState(qsizetype playlist, qsizetype entry) const;

    /// Inserts the songs \a ids before the entry \a place. Songs without a record in "title.id2"
    /// are left out. Returns how many were inserted; 0 if there is no room for all.
    qsizetype add(qsizetype playlist, qsizetype place, const QList<quint32> &ids);
    /// Moves \a entries, in their order, before the entry that is now at \a place.
    void move(qsizetype playlist, const QList<qsizetype> &entries, qsizetype place);
    /// Moves each of \a entries by one place, \a isUp or down, as far as there is room. Repeated
    /// steps are undone together.
    void moveStep(qsizetype playlist, const QList<qsizetype> &entries, bool isUp);
    void remove(qsizetype playlist, const QList<qsizetype> &entries);
    /// Replaces an entry by the song \a id. Returns false if it has no record in "title.id2".
    bool repair(qsizetype playlist, qsizetype entry, quint32 id);
    QUndoStack &undoStack() { return m_undo; }

    bool isModified(qsizetype playlist) const { return m_lists.at(playlist).isModified; }
    bool isModified() const;

    /// The files as they are to be written.
    QByteArray songsFile(qsizetype playlist) const;
    QByteArray pathsFile(qsizetype playlist) const;
    /// The songs file as it was read or last written.
    const QByteArray &songsFileOnDisk(qsizetype playlist) const;
    /// The path file as it was read or last written; null if there is none.
    const QByteArray &pathsFileOnDisk(qsizetype playlist) const;
    /// Returns true if the playlist had or has entries for which the path file is needed to find
    /// their songs, or a path file that does not fit.
    bool needsPathFile(qsizetype playlist) const;
    /// A save that was not finished has left these files on the memory.
    void setHalfSaved(qsizetype playlist, const QByteArray &songs, const QByteArray &paths);
    /// Both files were written as they are now.
    void setSaved(qsizetype playlist);

    /// The names that songs got on the memory, for paths of the path files.
    const GivenNames &names() const { return m_names; }

signals:
    /// All playlists were replaced.
    void replaced();
    /// A playlist was changed; \a entries should be selected.
    void changed(qsizetype playlist, const QList<qsizetype> &entries);
    /// Other songs have no file; the entries are the same.
    void missingChanged();
    /// isModified() of any playlist has changed.
    void modifiedChanged();

private:
    using Entries = PlaylistRecords::Entries;

    struct List {
        MemoryContents::Playlist files; ///< as they are on the memory
        PlaylistRecords records;
        Entries entries;
        Entries saved;
        bool isModified = false;
        bool isHalfSaved = false;                     ///< a save of it was not finished
        mutable std::optional<qsizetype> faults = {}; ///< counted on first use
    };

    void setPlaylists(const QList<MemoryContents::Playlist> &playlists);
    void push(qsizetype playlist, const Entries &after, const QList<qsizetype> &rowsBefore,
              const QList<qsizetype> &rowsAfter, bool isStep = false);
    void setEntries(qsizetype playlist, const Entries &entries, const QList<qsizetype> &rows);
    void updateModified(qsizetype playlist);

    std::shared_ptr<const MemoryContents> m_contents;
    GivenNames m_names;
    QSet<qsizetype> m_missing;
    QList<List> m_lists;
    QUndoStack m_undo;
};

} // namespace brisel
