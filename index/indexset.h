#pragma once

#include "base/filelot.h"
#include "base/run.h"
#include "index/workfolder.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace brisel
{

/// The index files of one memory, and the replacement of the old set by a new one.
///
/// A memory has no journal, and a power cut can stop a run after any step. So the new files are
/// first written into a work folder ".brisel2pc", with a mark of their names, sizes and checksums,
/// and flushed; then the old set is removed, "fsinfos.id2" first, and the new one is copied to its
/// place, "fsinfos.id2" last. If isComplete() is false, the next run finishes the swap with the
/// mark. On a memory without enough room the old set is kept in main memory and overwritten. See
/// docs/formats/player-index.md, "How a set is replaced".
class IndexSet
{
public:
    /// \a run gets a pulse after each of the files written, perhaps thousands. It must outlive
    /// this.
    explicit IndexSet(Run &run) : m_run(run) {}

    void setRoot(const QString &root);
    const QString &root() const { return m_root; }
    QString filePath(const QString &name) const;
    /// Sends a pulse to the run for other work on the memory.
    void pulse() const { m_run.pulse(); }

    /// The fifteen files of a set.
    static const QStringList &names();

    /// About how many bytes must be free on the memory \a root to add \a newSongs songs to its
    /// index while the old set exists.
    static qint64 roomForUpdate(const QString &root, qsizetype newSongs);

    [[nodiscard]] bool isComplete() const;
    /// Removes the fifteen files and the two temporary ones whose names are reserved.
    void remove();

    /// Finishes an interrupted swap if there is no complete set, and removes other files that an
    /// interrupted run has left, except the given names. Does nothing on a memory without a work
    /// folder. A swap that can't be finished now is left for a later run.
    void recover();

    /// Starts a new set: a work folder that is empty except for the given names (GivenNames) and
    /// the mark of the run (MemoryIdentity::markName()). Returns false if it can't be made.
    [[nodiscard]] bool beginStaging();
    /// Stages one file of the new set, or a playlist that belongs to it. \a name is relative to the
    /// root. Returns false on failure; commit() then fails, too.
    bool stage(const QString &name, const QByteArray &content);
    /// Moves the staged files to their places. Returns false if one of the fifteen is missing,
    /// there is not enough room, or writing fails: then the old set is whole, or the next run
    /// finishes the swap.
    [[nodiscard]] bool commit();
    /// Returns true if the last commit() failed because there was not enough room.
    bool lacksRoom() const { return m_lacksRoom; }
    /// To be called at the end of a run: removes the work folder, unless the next run needs it or
    /// it has given names. Returns true if the root was flushed for that.
    bool discard() { return clear({}); }

private:
    struct StagedFile {
        QString name;
        qint64 size = 0;
        QByteArray checksum;
        QByteArray content; ///< null if it must be read back from the work folder
    };
    struct OldFile {
        QString name;
        QByteArray content;
        bool exists = false;
    };
    enum class Way { Beside, Over, NoRoom };

    /// The file whose absence marks a set as incomplete during a swap: removed first, written last.
    static QString keyName() { return QStringLiteral("fsinfos.id2"); }
    static QString markName() { return QStringLiteral("swap"); }
    /// The name in the work folder.
    static QString workName(const QString &name) { return name.mid(name.lastIndexOf(u'/') + 1); }
    static bool isInSet(const QString &name) { return names().contains(name); }

    QByteArray mark() const;
    bool readMark(QList<StagedFile> &files) const;
    bool readStaged(const StagedFile &file, QByteArray &content) const;
    bool isPlaced(const StagedFile &file) const;
    bool clear(const QStringList &kept);

    Way wayToReplace() const;
    bool replaceBeside();
    bool replaceOver();
    bool keepOldFiles(QList<OldFile> &files) const;
    void putBack(const QList<OldFile> &files);
    bool swap(const QList<StagedFile> &files);
    bool removeSet(const QStringList &kept);
    bool placeFiles(const QList<StagedFile> &files);
    bool placeFile(const StagedFile &file, FileLot &lot);
    static bool writeFile(const QString &path, const QByteArray &content);

    /// Bytes; the largest file of a full index has 8 MiB.
    static constexpr qint64 maxFileSize = 16 * 1024 * 1024;

    Run &m_run;
    QString m_root;
    WorkFolder m_work;
    QList<StagedFile> m_staged;
    qint64 m_kept = 0; ///< bytes of their contents
    bool m_stagingFailed = false;
    bool m_lacksRoom = false;
    bool m_isCut = false; ///< the old set is removed and the new one not yet in place
};

} // namespace brisel
