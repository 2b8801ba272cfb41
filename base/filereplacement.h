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
        QString path;                        ///< a link there is replaced itself
        bool mustBeNew = false;              ///< fails when something stands there by then
        const FileState *expected = nullptr; ///< of \a watched; it is not touched when changed
        QString watched = {};                ///< a path that leads to it, or its own
        /// The temporary path beside it for each attempt, from 0 on. Not used where a file can't
        /// get its name in one step.
        TemporaryPath temporaryPath = {};
    };

    explicit FileReplacement(const Place &place);
    ~FileReplacement();
    FileReplacement(const FileReplacement &) = delete;
    FileReplacement &operator=(const FileReplacement &) = delete;

    /// Opens a new file in \a folder, which must outlive this object. False when that failed.
    [[nodiscard]] bool openIn(StagingFolder &folder);
    /// Opens a new file beside the place, by default under the names of temporaryPathIn() from
    /// \a attempt on, which counts those that were tried. False when that failed.
    [[nodiscard]] bool openBeside(int &attempt);

    /// The new file, unbuffered, which the content is written into.
    QFile &file() { return m_file; }
    /// Copies owner, permissions and attributes of the replaced file to the new one. False when
    /// there is none, or it can't be opened.
    [[nodiscard]] bool keepAttributesOfOld();
    /// Writes the whole of \a content, and finishes. False when that failed.
    [[nodiscard]] bool write(const QByteArray &content);
    /// Says that the content is complete, and how many bytes it has.
    void finish(qint64 size);

    /// True when no write has failed and the file has the size that finish() was given.
    [[nodiscard]] bool isWhole();
    /// Flushes the content to the disk; when that fails, so does the replacement.
    void flush();
    /// Closes the new file. takeName() looks whether it is still the same.
    void close();
    /// Renames the new file, unless the replacement has failed; result() is Done, Changed, NotNamed
    /// or Failed then. With \a keepsOld the replaced file stays open until the end, or
    /// until closeOld(). Flushes nothing.
    void takeName(bool keepsOld);
    void closeOld() { m_old.close(); }
    /// Notes that the replacement has failed.
    void fail() { m_result = WriteResult::Failed; }

    const Place &place() const { return m_place; }
    const QString &temporaryPath() const { return m_temporaryPath; }
    qint64 size() const { return m_size; } ///< bytes, as finish() was given; -1 before
    WriteResult result() const { return m_result; }

private:
    [[nodiscard]] bool isStillTheNewFile() const;
    void moveToPlace(bool keepsOld);
    void giveUp(WriteResult result);
    void removeTemporary();

    QFile m_file;
    QString m_temporaryPath;
    bool m_mayRemove = false; ///< something stands there that is not in its place
    Place m_place;
    FileState m_expected; ///< what m_place.expected points to
    qint64 m_size = -1;   ///< bytes
    PlainFile m_old;      ///< the file that is replaced
    FileState m_written;  ///< the new file as it was closed
    WriteResult m_result = WriteResult::Staged;
};

} // namespace brisel
