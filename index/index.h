#pragma once

#include "base/reason.h"
#include "index/indexmonitor.h"
#include "index/indexset.h"
#include "index/memoryreasons.h"
#include "index/songslistwriter.h"

#include <QList>
#include <QObject>

#include <optional>

namespace brisel
{

class IndexBuild;

/// Builds and updates the index on the player's memory: walks its folders, shortens long names,
/// reads the songs' heads and writes the index set, keeping the playlists right. One object serves
/// one run. File contents: docs/formats/player-index.md and docs/formats/playlists.md.
///
/// A run never leaves a mixture of two sets: the new set is written beside the old one and then
/// replaces it; a swap that was interrupted is finished by the next run. A run that could not write
/// everything returns false and leaves the old set unchanged. While one program works on a memory,
/// runs of other programs return false at once and change nothing.
class Index : public QObject, private IndexMonitor
{
    Q_OBJECT

public:
    /// \a run asks before a long name is shortened, shows the progress and receives the lines of
    /// the signals. It must outlive this.
    explicit Index(Run &run, QObject *parent = nullptr);

    /// Builds the index of \a root with new ids for all songs. Returns true if it is complete
    /// afterwards; false also for a memory without songs, which then has no index.
    [[nodiscard]] bool createIndex(const QString &root);
    /// Brings the index of \a root up to date with new, changed and removed songs; every known song
    /// keeps its id. Repairs a damaged index, and runs createIndex when a file of it is missing.
    /// Writes nothing if nothing has changed.
    [[nodiscard]] bool updateIndex(const QString &root);
    /// The reason why the last run, or the last list of songs, failed.
    Reason failure() const { return m_failure; }
    /// Removes the index files from the memory. "sfx.id2" stays.
    void deleteIndex();
    /// Returns true if all fifteen index files exist, whatever their contents.
    [[nodiscard]] bool checkIndexFile() { return m_set.isComplete(); }
    /// Writes the songs of the index of \a root as lines of ";"-separated texts to \a fileName.
    /// Returns 1 on success; 0 if the index can't be read, the file can't be written, or another
    /// program works on the memory; -1 if the memory has no complete index.
    [[nodiscard]] int saveSongsList(const QString &root, const QString &fileName, SORT_MODE mode)
    {
        return saveSongsList(root, fileName, SongsListKind{mode});
    }
    /// The same for a list of any kind.
    [[nodiscard]] int saveSongsList(const QString &root, const QString &fileName,
                                    const SongsListKind &kind);

    /// The number of songs that the walk of the last run entered into its table of paths or
    /// compared there.
    qsizetype pathSteps() const { return m_pathSteps; }

    /// Fills title, artist, genre, type, bpm, reserved and flag from the file absolutePath. Returns
    /// false if it can't be read or has fewer than 5 bytes.
    static bool setSongInfo(SongInfoIndex &song);

signals:
    void fileFoundChanged(int count);
    void progressMaxSetup(int maximum);
    void progressValueChanged(int value);
    void currentPathChanged(const QString &path);
    void errorFromIndex(const QString &message);
    /// Reports something that the user should know and that is not a failure: a repair, a new name.
    void noticeFromIndex(const QString &message);

private:
    /// Stores \a root without one trailing "/" or "\". Returns false if it is not a folder.
    bool setRoot(const QString &root);
    /// Locks the memory for the \a work of a run.
    bool build(const QString &root, bool (IndexBuild::*work)());

    std::optional<QByteArray> listText(const QList<SongInfoIndex> &songs,
                                       const SongsListKind &kind);

    void setMaximum(int maximum) override;
    void setProgress(int value) override;
    void setFilesFound(int count) override;
    void showPath(const QString &path) override;
    void reportError(const QString &message) override;
    void reportNotice(const QString &message) override;

    IndexSet m_set;
    Reason m_failure = MemoryReason::indexIncomplete;
    qsizetype m_pathSteps = 0;
};

} // namespace brisel
