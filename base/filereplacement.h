#pragma once

#include "base/fileidentity.h"
#include "base/filewriting.h"
#include "base/plainfile.h"

#include <QFile>
#include <QString>

namespace brisel
{

class StagingFolder;

/// Replaces the content of one file, or makes a new file: the content is written to a temporary
/// file, which is renamed to the file's name when it is complete and on the disk. Until then the
/// destructor removes the temporary file.
///
/// The steps follow each other: open, write into file(), finish(), flush(), takeName(), and the
/// flushes of the names. FileLot takes them for many files at a time.
class FileReplacement
{
public:
    /// A file that gets a new content.
    struct Place {
        QString path;           ///< a link there is replaced itself
        bool mustBeNew = false; ///< fails if an entry with this path exists at the rename
        const FileState *expected =
            nullptr;          ///< of \a watched; if it differs, the file is not replaced
        QString watched = {}; ///< a path that leads to it, or its own
        /// The temporary path beside it for each attempt, from 0 on. Not used if a file can't get
        /// its name in one step.
        TemporaryPath temporaryPath = {};
    };

    explicit FileReplacement(const Place &place);
    ~FileReplacement();
    FileReplacement(const FileReplacement &) = delete;
    FileReplacement &operator=(const FileReplacement &) = delete;

    /// Opens a new file in \a folder, which must outlive this object. Returns false on failure.
    [[nodiscard]] bool openIn(StagingFolder &folder);
    /// Opens a new file beside the place, by default under the names of temporaryPathIn() from
    /// \a attempt on, which is increased for each tried name. Returns false on failure.
    [[nodiscard]] bool openBeside(int &attempt);

    /// The new file, unbuffered, for writing the content.
    QFile &file() { return m_file; }
    /// Copies owner, permissions and attributes of the replaced file to the new one. Returns false
    /// if it does not exist or can't be opened.
    [[nodiscard]] bool keepAttributesOfOld();
    /// Writes the whole \a content, and calls finish(). Returns false on failure.
    [[nodiscard]] bool write(const QByteArray &content);
    /// Marks the content as complete, and sets its number of bytes.
    void finish(qint64 size);

    /// Returns true if no write has failed and the file has the size passed to finish().
    [[nodiscard]] bool isWhole();
    /// Flushes the content to the disk; on failure the replacement fails.
    void flush();
    /// Closes the new file. takeName() checks that it is still the same.
    void close();
    /// Renames the new file, unless the replacement has failed; afterwards result() is Done,
    /// Changed, NotNamed or Failed. With \a keepsOld the replaced file stays open until closeOld()
    /// or the destructor. Flushes nothing.
    void takeName(bool keepsOld);
    void closeOld() { m_old.close(); }
    /// Marks the replacement as failed.
    void fail() { m_result = WriteResult::Failed; }

    const Place &place() const { return m_place; }
    const QString &temporaryPath() const { return m_temporaryPath; }
    qint64 size() const { return m_size; } ///< bytes, as passed to finish(); -1 before
    WriteResult result() const { return m_result; }

private:
    [[nodiscard]] bool isStillTheNewFile() const;
    void moveToPlace(bool keepsOld);
    void giveUp(WriteResult result);
    void removeTemporary();

    QFile m_file;
    QString m_temporaryPath;
    bool m_mayRemove = false; ///< the temporary file exists
    Place m_place;
    FileState m_expected; ///< what m_place.expected points to
    qint64 m_size = -1;   ///< bytes
    PlainFile m_old;      ///< the replaced file
    FileState m_written;  ///< the new file as it was closed
    WriteResult m_result = WriteResult::Staged;
};

} // namespace brisel
