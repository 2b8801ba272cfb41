#pragma once

#include "base/filereplacement.h"

#include <QList>
#include <QSet>

#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace brisel
{

class StagingFolder;

/// Replaces the contents of many files with few flushes. Each content is first written to a
/// temporary file. Then commit() flushes all of them at once, renames them and flushes the names:
/// an interruption at any point leaves each file with its whole old or its whole new content. For
/// FAT see docs/reliability.md, "On a real FAT".
class FileLot
{
public:
    using Place = FileReplacement::Place;

    FileLot();
    /// Removes the files that were not committed.
    ~FileLot();
    FileLot(const FileLot &) = delete;
    FileLot &operator=(const FileLot &) = delete;

    /// For the memory \a root. From now on its temporary files are made in its work folder, on
    /// every file system, so that the next run removes those left by a cut.
    void setMemory(const QString &root) { m_memory = root; }

    /// \a call is called before files are replaced: by commit() when all new contents are on the
    /// disk and no file has been renamed yet, and by aboutToReplace().
    void setBeforeReplacing(std::function<void()> call) { m_beforeReplacing = std::move(call); }
    /// A file is overwritten next that can't be replaced by a lot.
    void aboutToReplace() const;

    /// Opens a new file for the content of \a place. Returns null on failure. The file must not
    /// outlive the lot, and is dropped unless add() takes it when its content is complete.
    [[nodiscard]] std::unique_ptr<FileReplacement> open(const Place &place);
    /// Takes over \a file, which was returned by open() and whose content is complete.
    void add(std::unique_ptr<FileReplacement> file);
    /// Writes \a content for \a place; a replaced file keeps its attributes. Returns false on
    /// failure; then no temporary file is left.
    [[nodiscard]] bool write(const Place &place, const QByteArray &content);

    qsizetype size() const { return static_cast<qsizetype>(m_files.size()); }
    qint64 bytes() const { return m_bytes; }
    /// Returns true if commit() is due, because of the number of files or bytes that a cut would
    /// lose.
    bool isFull() const;
    /// Returns true if \a path is in the lot, ignoring case.
    bool holds(const QString &path) const { return m_paths.contains(path.toLower()); }

    /// Renames all files to their places, in the order in which they were added, and returns the
    /// result of each: Done, Changed, Failed or NotNamed. After a failure the old content is still
    /// there, unless only the new name could not be flushed, or the old file had to be deleted
    /// first. The lot is empty afterwards and can be filled again.
    [[nodiscard]] QList<WriteResult> commit();
    /// The same, with one result: true if all of them are Done.
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
        QString stagingRoot = {}; ///< empty if files are staged beside their places
    };

    Folder lookAt(const QString &path);
    [[nodiscard]] bool openStaged(FileReplacement &file, const QString &root);
    void reserveNames() const;
    void flushContents();
    void takeNames();
    void flushNames();
    static void flushNames(const std::vector<const Staged *> &named);
    static void flushNamesOnFat(const std::vector<const Staged *> &named);

    std::function<void()> m_beforeReplacing;
    QString m_memory;
    std::map<QString, std::unique_ptr<StagingFolder>> m_staging; ///< by their roots
    std::vector<Staged> m_files;                                 ///< declared after their folders
    Folder m_folder;                                             ///< of the last file
    QSet<QString> m_paths;                                       ///< in lower case
    qint64 m_bytes = 0;
    int m_temporaries = 0; ///< made beside their places since the last commit()
};

} // namespace brisel
