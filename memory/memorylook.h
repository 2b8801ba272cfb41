#pragma once

#include "base/folderwalk.h"
#include "index/entrylist.h"
#include "memory/memorycontents.h"

#include <QFlags>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>

namespace brisel
{

/// Compares the files on a memory with its index, in small steps, so that a window can be used
/// meanwhile. It meets the files that an update of the index would meet, and changes nothing.
class MemoryLook
{
public:
    /// What is wrong with the file of a song of the index.
    enum class FileMark : quint8 {
        Missing = 1,
        OtherDate = 2, ///< it was changed after its song was indexed
        Unreadable = 4,
    };
    Q_DECLARE_FLAGS(FileMarks, FileMark)

    /// The kinds of what lies on the memory and is not just a song of the index.
    enum class Kind { NewSong, TooLong, Unreadable, LoneGraphics, WorkFolder };
    static constexpr std::size_t kinds = 5;
    enum class Detail {
        None,
        LongPath,         ///< a path above SongInfoIndex::maxPath
        LongName,         ///< of a song
        LongFolderName,   ///< of a folder with songs
        UnreadableFolder, ///< not, or not to its end
        UnreadableFile,
        ShortFile, ///< less than a song can have
        NoFile,    ///< a device, a FIFO, or a link that leads nowhere
        InvalidName,
        Outside, ///< a link that leads out of the memory
    };
    struct Finding {
        Kind kind = Kind::NewSong;
        Detail detail = Detail::None;
        QString path;     ///< below the root, begins with "/"
        qint64 size = -1; ///< bytes; -1 for a folder that is not ours, or if unknown
    };
    struct SongFile {
        QString path; ///< below the root
        qint64 size = 0;
    };
    /// How the index and the songs differ.
    struct Difference {
        qsizetype added = 0;
        qsizetype missing = 0;
        qsizetype changed = 0;
        bool operator==(const Difference &other) const = default;
    };

    /// \a contents: those of the memory \a root; empty for a memory without an index.
    MemoryLook(const QString &root, std::shared_ptr<const MemoryContents> contents);

    /// Works for about \a milliseconds. Returns true if there is more to do.
    bool work(int milliseconds);
    [[nodiscard]] bool isDone() const { return m_isDone; }

    /// Complete only if isDone(). The songs that were met, in the order of the walk. Links are left
    /// out: their removal frees no room, and that of their targets leaves them without a file.
    const QList<SongFile> &songs() const { return m_songs; }
    const QList<Finding> &findings() const { return m_findings; }
    FileMarks marks(qsizetype position) const { return m_marks.at(position); }
    const Difference &difference() const { return m_difference; }

private:
    void step();
    void readKey();
    void enterFolder(const QString &folder);
    void leaveFolder();
    void lookAt(const FolderEntry &entry);
    void lookAtSong(const QString &path, bool isLink);
    void lookAtOther(const QString &path, const FolderEntry &entry);
    void lookAtUnmet(qsizetype position);
    void compareDate(qsizetype position, qint64 modified);
    void reportLongNames(const QString &path);
    void reportWorkFolder();
    void report(Kind kind, Detail detail, const QString &path, qint64 size = -1);
    qsizetype meet(const QString &path, qint64 size);

    const QString m_root;
    const std::shared_ptr<const MemoryContents> m_contents;
    QMultiHash<QByteArray, qsizetype> m_positions; ///< by sort key, of those not met
    qsizetype m_keyed = 0;                         ///< the positions before it have their keys
    QSet<QString> m_known;                         ///< paths that were met, folded
    QList<bool> m_met;
    QStringList m_folders; ///< still to be walked, the next one last
    QString m_folder;
    QList<FolderEntry> m_entries; ///< of m_folder
    qsizetype m_entry = 0;        ///< the next of them
    QStringList m_subfolders;     ///< of m_folder
    QStringList m_graphics;       ///< names in m_folder
    QSet<QString> m_mp3s;         ///< names in m_folder without their suffixes, in lower case
    QSet<QString> m_longFolders;  ///< reported
    FolderWalk m_walk;
    qsizetype m_unmet = 0; ///< the next position to be looked at after the walk
    bool m_isDone = false;

    QList<SongFile> m_songs;
    QList<Finding> m_findings;
    QList<FileMarks> m_marks;
    Difference m_difference;
};

} // namespace brisel

// In the namespace it would hide the operators of Qt.
Q_DECLARE_OPERATORS_FOR_FLAGS(brisel::MemoryLook::FileMarks)
