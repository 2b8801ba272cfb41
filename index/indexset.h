#pragma once

#include "base/filelot.h"
#include "base/run.h"
#include "index/workfolder.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// The index files of one memory, and how a new set takes the place of the old one.
///
/// A memory has no journal, and a cut can leave any single step as the last one that reached it.
/// So the new files are first written into a work folder ".brisel2pc", with a mark of their names,
/// sizes and checksums, and flushed; then the old set is removed, "fsinfos.id2" first, and the new
/// one copied into its place, "fsinfos.id2" last. While isComplete() is false the mark lets the
/// next run finish the swap. A memory without room for that is written over with the old set at
/// hand. See docs/formats/player-index.md, "How a set is replaced".
class IndexSet
{
public:
    /// \a run gets a pulse after each file that was written: there may be thousands. It must
    /// outlive this.
    explicit IndexSet(Run &run) : m_run(run) {}

    void setRoot(const QString &root);
    const QString &root() const { return m_root; }
    QString filePath(const QString &name) const;
    /// Gives the run a pulse for other work on the memory.
    void pulse() const { m_run.pulse(); }

    /// The fifteen files that make a set.
    static const QStringList &names();

    /// About how many bytes must be free on the memory \a root so that its index can take up
    /// \a newSongs more songs with the old set still there.
    static qint64 roomForUpdate(const QString &root, qsizetype newSongs);

    [[nodiscard]] bool isComplete() const;
    /// Removes the fifteen files and the two temporary ones whose names are reserved.
    void remove();

    /// Finishes a swap that was cut while it had left no complete set, and takes away what else a
    /// run that was cut has left, but for the given names. Does nothing on a memory without a work
    /// folder. A swap that can't be finished now stays for a later run.
    void recover();

    /// Starts a new set: a work folder that is empty but for the given names (GivenNames) and the
    /// mark of the run (MemoryIdentity::markName()). False when it can't be made.
    [[nodiscard]] bool beginStaging();
    /// Takes one file of the new set, or a playlist that goes with it. \a name is relative to the
    /// root. False when it can't become part of a set; commit() then fails.
    bool stage(const QString &name, const QByteArray &content);
    /// Puts the staged files in their places. False when one of the fifteen is missing, when there
    /// is no room, or when the memory refused: the old set is whole then, or the next run finishes
    /// what this one has begun.
    [[nodiscard]] bool commit();
    /// True when the last commit() failed for want of room.
    bool lacksRoom() const { return m_lacksRoom; }
    /// Takes the work folder away, unless the next run needs it, or it keeps given names: the run
    /// has come to its end. True when the root was flushed for that.
    bool discard();

private:
    struct StagedFile {
        QString name;
        qint64 size = 0;
        QByteArray checksum;
        QByteArray content; ///< while the run that wrote it lasts; null when it is to be read back
    };
    struct OldFile {
        QString name;
        QByteArray content;
        bool exists = false;
    };
    enum class Way { Beside, Over, NoRoom };

    /// The file whose absence makes a set incomplete while it is swapped: first out, last in.
    static QString keyName();
    static QString markName();
    /// The name in the work folder.
    static QString workName(const QString &name);
    static bool isInSet(const QString &name);

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
