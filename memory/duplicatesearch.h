#pragma once

#include "base/plainfile.h"
#include "memory/memorylook.h"

#include <QCryptographicHash>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace brisel
{

/// Finds songs with the same content, in small steps: files of the same size are read and their
/// checksums compared. It changes nothing.
class DuplicateSearch
{
public:
    /// \a songs: of the memory \a root.
    DuplicateSearch(const QString &root, const QList<MemoryLook::SongFile> &songs);

    /// Works for about \a milliseconds. Returns true if there is more to do.
    bool work(int milliseconds);
    [[nodiscard]] bool isDone() const { return m_next >= m_files.size(); }

    /// The bytes to be read, and those that are read.
    qint64 bytes() const { return m_bytes; }
    qint64 bytesRead() const { return m_bytesRead; }

    /// The paths below the root, of each content that occurs more than once, in the order of the
    /// songs. A file that can't be read completely is not among them, nor the second name of one
    /// file.
    QList<QList<MemoryLook::SongFile>> duplicates() const;

private:
    void readBlock();

    const QString m_root;
    QList<MemoryLook::SongFile> m_files; ///< those that share their size with another one
    qsizetype m_next = 0;                ///< the file that is read now
    PlainFile m_file;
    qint64 m_place = 0; ///< the next byte of m_file
    QCryptographicHash m_hash{QCryptographicHash::Sha1};
    QHash<QByteArray, QList<qsizetype>> m_contents; ///< files by checksum
    QList<QByteArray> m_order;                      ///< the checksums as they occurred first
    qint64 m_bytes = 0;
    qint64 m_bytesRead = 0;
};

} // namespace brisel
