#pragma once

#include "base/folderwalk.h"
#include "base/memoryidentity.h"
#include "base/run.h"
#include "index/givennames.h"
#include "index/indexreader.h"
#include "index/indexset.h"
#include "index/indexwriters.h"
#include "index/memoryreasons.h"
#include "index/memoryrenames.h"
#include "index/pathtable.h"
#include "index/playlists.h"
#include "index/songinfoindex.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <array>
#include <optional>

class LongNames;
struct FolderEntries;
struct FolderEntry;

/// Builds and updates the index on the player's memory: walks its folders, shortens long names,
/// reads the songs' heads and writes the index set, keeping the playlists right. One object serves
/// one run. What the files hold: docs/formats/player-index.md and docs/formats/playlists.md.
///
/// A run never leaves a mixture behind: the whole new set is written beside the old one and then
/// put in its place; a swap that was cut is finished by the next run. A run that could not write
/// all that it had to is false, and leaves the old set whole. While one program runs on a memory,
/// each other one is false at once and touches nothing.
class Index : public QObject
{
    Q_OBJECT

public:
    /// \a run asks before a long name is shortened, shows the progress and gets what the signals
    /// report. It must outlive this.
    explicit Index(Run &run, QObject *parent = nullptr);

    /// Numbers all songs below \a root afresh. True when the index is complete afterwards; false
    /// also for a memory without songs, which then has no index.
    bool createIndex(const QString &root);
    /// Takes new, changed and vanished songs into the index of \a root; every known song keeps its
    /// id. Repairs a damaged index, and runs createIndex where a file of it is missing. Writes
    /// nothing when nothing changed.
    bool updateIndex(const QString &root);
    /// Why the last run, or the last list of songs, was not done.
    Reason failure() const { return m_failure; }
    /// Removes the index files from the memory. "sfx.id2" stays.
    void deleteIndex();
    /// True when all fifteen index files exist. Does not look into them.
    bool checkIndexFile();
    /// Writes the songs of the index of \a root as lines of ";"-separated texts to \a fileName.
    /// 1 on success, 0 when the index can't be read, the file not be written, or another program
    /// works on the memory, -1 when the memory holds no complete index.
    int saveSongsList(const QString &root, const QString &fileName, SORT_MODE mode);

    /// How many songs the walk of the last run entered into its table of paths, or looked at there.
    qsizetype pathSteps() const { return m_paths.steps(); }

    /// Fills title, artist, genre, type, bpm, reserved and flag from the file absolutePath. False
    /// when it can't be read or holds fewer than 5 bytes.
    static bool setSongInfo(SongInfoIndex &song);

signals:
    void fileFoundChanged(int count);
    void progressMaxSetup(int maximum);
    void progressValueChanged(int value);
    void currentPathChanged(const QString &path);
    void errorFromIndex(const QString &message);
    /// Something that the run did and the user should know, but no failure: a repair, a new name.
    void noticeFromIndex(const QString &message);

private:
    enum class ListRun {
        Done,
        Failed,      ///< something could not be written: the old index stays
        Ended,       ///< the program is to end: the old index stays
        Unreachable, ///< songs of the old index can't be reached: it stays
        Gone,        ///< the memory is no longer there; what is there now must not be touched
    };

    /// Stores \a root without one trailing "/" or "\". False when it is no folder.
    bool setRoot(const QString &root);
    void setMaximum(int maximum);
    void setProgress(int value);
    void showPath(const QString &path);
    void reportError(const QString &message);
    void reportNotice(const QString &message);

    bool run(const QString &root, bool (Index::*work)());
    bool update();
    bool rebuild();
    void resetCounts();
    bool finish(ListRun run);
    bool fail();
    bool giveUp();
    bool isSameMemory();
    void moveFolderAside(const QString &name);

    ListRun createPathIndex();
    static bool mayBeSong(const QString &path);
    void dropDoubledSongs();
    void dropDoubledSongs(SongOrder positions);
    bool wouldLoseSongs();
    bool isNamedByPlaylist(const QString &path);
    void restoreIds();
    void giveFreeIds();
    void createTitleIndex();
    void refreshSong(SongInfoIndex &song);
    ListRun writeSet();
    bool writeLists(const QString &suffix, std::size_t count, int progress);
    void removeDeletedItems();
    void createMp3TitleIndex();
    bool createBriselDir(bool &areNew);
    /// Fills m_songs from the index on the memory. 0, or -1 when it can't be read.
    qint32 loadAllIndexFile();

    void scanFiles(const QString &folder);
    void scanFolder(const QString &longPath, const FolderEntry &entry, LongNames &names);
    void scanFile(const QString &longPath, const FolderEntry &entry, LongNames &names);
    bool leadsToSongs(const QString &folder);
    bool isPlayersFolder(const QString &name) const;
    bool isOutside(const QString &path, const FolderEntry &entry) const;
    void reportMissed(const QString &message);
    void reportOutside(const QString &path);
    void reportUnreadableFolder(const QString &folder, const FolderEntries &found);
    void reportUnnamed(const QString &folder, const FolderEntry &entry);
    void reportNoFile(const QString &path, const FolderEntry &entry);
    void reportUnreadSong(const SongInfoIndex &song, bool isNew);
    static bool checkFileExt(QStringView suffix);
    bool addFileToIndex(const QString &full);
    void meetKnownSong(qsizetype position, const QString &full, const QString &path);
    QString renameLongFileName(const QString &path, const FolderEntry &entry, LongNames &names);
    bool mayRename(const QString &path, const QString &candidate);
    static QString getShortFileNamePath(const QString &path);
    static QString getLongFileNamePath(const QString &path);

    qint32 writePathIndex();
    qint32 writeOrdIndex();
    qint32 writeTitleIndex(const QString &fileName);
    qint32 writeArtistIndex(const QString &fileName);
    qint32 writeGenreIndex(const QString &fileName);
    qint32 writeAlphaBuffer(const QString &fileName);
    qint32 writeNumFile();
    qint32 stageFile(const QString &fileName, const QByteArray &content);
    qint32 stageList(const QString &fileName, const IndexWriters::ListFile &list);
    qint32 stageGroups(const QString &fileName, const SongOrders::Groups &groups,
                       QString SongInfoIndex::*group);

    Playlists::Preparation createPlaylistFilePath();
    void restorePlaylistFilePath();
    PlaylistFollower playlistFollower() const;

    const QString m_sfxFolder = QStringLiteral("sfx");
    const QString m_bridgeFolder = QStringLiteral("bridge");
    Run &m_run;
    QString m_root;
    MemoryIdentity m_memory;
    Reason m_failure = MemoryReason::indexIncomplete;
    IndexSet m_set;
    QList<SongInfoIndex> m_songs; ///< in the order of their record numbers
    SongOrder m_byPath;
    // Of all songs, or of the MP3s while their files are written.
    SongOrder m_byTitle;
    SongOrders::Groups m_byArtist;
    SongOrders::Groups m_byGenre;
    QByteArray m_records; ///< the song records of all songs, by position
    QList<qint16> m_playlists;
    quint32 m_lastId = 0;
    quint32 m_nextId = 0;
    quint16 m_nextPosidx = 0;
    int m_filesFound = 0;
    bool m_restorePlaylists = false;
    bool m_modified = false;
    bool m_isRebuild = false;
    bool m_isRepaired = false;
    bool m_wasComplete = false;  ///< all files of the set had something under their names
    bool m_gone = false;         ///< the memory; another one may stand in its place
    bool m_renameFailed = false; ///< because the memory is write-protected
    qint64 m_setSize = 0;        ///< bytes of the new set, as far as it was staged
    AlphabetTable m_alphabet;
    std::array<quint16, 6> m_counts{};
    QByteArray m_prefix; ///< of the song that is read; kept for its room
    PathTable m_paths;
    qsizetype m_expected = 0; ///< position of the song that the walk should meet next
    IndexReader m_reader;
    FolderWalk m_folders;
    QHash<QString, bool> m_songFolders; ///< by identity: whether a walk into it finds songs
    /// Paths below the root ("/POP", empty for the root) of the folders that could not be read to
    /// their end, and of what could not be looked at, which may be a song or a folder.
    QStringList m_unreadable;
    /// Sort keys of the paths that playlists name; filled when one is first asked for.
    std::optional<QSet<QByteArray>> m_namedPaths;
    GivenNames m_names;
    MemoryRenames m_renames;
};
