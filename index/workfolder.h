#pragma once

#include "base/fileidentity.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace brisel
{

/// The folder ".brisel2pc" in the root of a memory, in which a run keeps what must outlive a cut.
/// Others can write there between two runs: links in place of the folder or of its files are never
/// followed, and files are always created, never opened for writing.
class WorkFolder
{
public:
    void setRoot(const QString &root) { m_root = root; }

    QString path() const;
    /// Of the file \a name.
    QString path(const QString &name) const { return path() + u'/' + name; }
    /// Returns true if there is a file, folder or link of its name.
    [[nodiscard]] bool stands() const { return entryExists(path()); }
    /// Makes the folder if it is missing. Returns false on failure.
    [[nodiscard]] bool make();
    /// Reserves room in the folder, so that it need not grow when these files are added.
    void reserve(const QStringList &names);
    [[nodiscard]] bool has(const QString &name) const;
    /// Writes a new file of all of \a content, in place of what has the name \a name. Flushes
    /// nothing. Returns false if it was not written completely.
    [[nodiscard]] bool write(const QString &name, const QByteArray &content);
    /// Appends \a data to the file \a name, or makes it; does not change one that is not a plain
    /// file, has several names, or has more than \a largest bytes. Flushes only, on FAT, the name
    /// of a new file. Returns false if not all data were written.
    [[nodiscard]] bool append(const QString &name, const QByteArray &data, qint64 largest);
    /// Reads a whole file of at most \a maximum bytes. Returns false on failure.
    [[nodiscard]] bool read(const QString &name, qint64 maximum, QByteArray &content) const;
    void remove(const QString &name);
    /// Flushes the file \a name to the disk. Returns false on failure.
    bool flush(const QString &name) const;
    /// Flushes the memory's file system; if the system has no call for that, the files of the
    /// folder, the files \a others of the root, and the entries of both.
    bool flushAll(const QStringList &others) const;
    /// Removes all files except \a kept, and the folder itself if \a kept is empty. Returns true if
    /// the root was flushed then.
    bool clear(const QStringList &kept);

private:
    QStringList entries() const;

    QString m_root;
};

} // namespace brisel
