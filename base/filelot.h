#pragma once

#include "base/filereplacement.h"

#include <QList>
#include <QSet>

#include <map>
#include <memory>
#include <vector>

namespace brisel
{

class StagingFolder;

/// Replaces the contents of many files with few flushes. Each content is first written to a
/// temporary file. Then commit() flushes all of them at once, renames them and flushes the names:
/// an interruption at any point leaves each file with its whole old or its whole new content. How
/// that order holds on a real FAT: docs/reliability.md, "On a real FAT".
class FileLot
{
public:
    using Place = FileReplacement::Place;

    FileLot();
    /// Removes what was not committed.
    ~FileLot();
    FileLot(const FileLot &) = delete;
    FileLot &operator=(const FileLot &) = delete;

    /// \a root is that of a memory. What is not yet in its place there lies in its work folder from
    /// now on, whatever the file system, so that the next run clears away what a cut has left.
    void setMemory(const QString &root) { m_memory = root; }

    /// Opens a new file for the content of \a place. Null when that failed. It must not outlive
    /// the lot; add() takes it when its content is complete, or it is dropped.
    [[nodiscard]] std::unique_ptr<FileReplacement> open(const Place &place);
    /// Takes over \a file, which open() gave and whose content is complete.
    void add(std::unique_ptr<FileReplacement> file);
    /// Writes the whole of \a content for \a place; what a file that is replaced has besides its
    /// content stays. False when that failed: nothing is left of it.
    [[nodiscard]] bool write(const Place &place, const QByteArray &content);

    qsizetype size() const { return static_cast<qsizetype>(m_files.size()); }
    /// True when commit() is due: before more files, or more bytes, than a cut should take along.
    bool isFull() const;
    /// True when \a path gets a new content, whatever the case of its letters.
    bool holds(const QString &path) const;

    /// Puts all of them in their places, in the order in which they were added, and returns the
    /// result of each: Done, Changed, Failed or NotNamed. After a failure the old content stands
    /// there, but where only the new name could not be flushed, or the old file had to be deleted
    /// first. The lot is empty then and can be filled again.
    [[nodiscard]] QList<WriteResult> commit();
    /// The same, where one answer will do: true when all of them are Done.
    [[nodiscard]] bool commitAll();

private:
    struct Staged {
        std::unique_ptr<FileReplacement> file;
        quint64 device = 0;
        bool isOnFat = false;
    };

    struct Folder {
        QString path;
        quint64 device = 0;
        bool isOnFat = false;
        QString stagingRoot = {}; ///< empty where files are staged beside their places
    };

    Folder lookAt(const QString &path);
    [[nodiscard]] bool openStaged(FileReplacement &file, const QString &root);
    void reserveNames() const;
    void flushContents();
    void takeNames();
    void flushNames();
    static void flushNames(const std::vector<const Staged *> &named);
    static void flushNamesOnFat(const std::vector<const Staged *> &named);

    QString m_memory;
    std::map<QString, std::unique_ptr<StagingFolder>> m_staging; ///< by their roots
    std::vector<Staged> m_files; ///< after the folders in which they lie
    Folder m_folder;             ///< that was looked at last
    QSet<QString> m_paths;       ///< in lower case
    qint64 m_bytes = 0;
    int m_temporaries = 0; ///< made beside their places since the last commit()
};

} // namespace brisel
