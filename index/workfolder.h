#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

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
    /// True when anything stands under its name.
    [[nodiscard]] bool stands() const;
    /// Makes the folder where it is missing. False when that failed.
    [[nodiscard]] bool make();
    /// Reserves room in the folder, so that it need not grow when these files are added.
    void reserve(const QStringList &names);
    [[nodiscard]] bool has(const QString &name) const;
    /// Writes a new file of all of \a content, in place of what has the name \a name. Flushes
    /// nothing. False when it was not written completely.
    [[nodiscard]] bool write(const QString &name, const QByteArray &content);
    /// Adds \a data to the end of the file \a name, or makes it; one that is more than a plain file
    /// with one name, or has more than \a largest bytes, is left alone. Flushes nothing but, on
    /// FAT, the name of a new file. False when not all of it was written.
    [[nodiscard]] bool append(const QString &name, const QByteArray &data, qint64 largest);
    /// Reads the whole of a file of at most \a maximum bytes. False when that is not possible.
    [[nodiscard]] bool read(const QString &name, qint64 maximum, QByteArray &content) const;
    void remove(const QString &name);
    /// Flushes the file \a name to the disk. False when that failed.
    bool flush(const QString &name) const;
    /// Flushes all that the memory's file system holds; where that is not offered, the files of the
    /// folder, the files \a others of the root, and the entries of both.
    bool flushAll(const QStringList &others) const;
    /// Takes away everything but the files \a kept, and the folder itself when none is to be kept;
    /// true when the root was flushed then.
    bool clear(const QStringList &kept);

private:
    QStringList entries() const;

    QString m_root;
};
