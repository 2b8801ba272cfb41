#pragma once

#include "base/fileidentity.h"

#include <QString>

#include <memory>

class QTemporaryDir;
class QTemporaryFile;

namespace brisel
{

class PlainFile;

/// The catalogue's file for SQLite. It is never written: SQLite opens it as immutable.
///
/// A file "songsdb_debug" in the working folder replaces the built-in catalogue, which is unpacked
/// to a temporary file. If it has a write-ahead log, both are copied and joined in a temporary
/// folder, so that the latest songs are read and nothing beside the file is created.
class CatalogueSource
{
public:
    CatalogueSource();
    ~CatalogueSource();
    CatalogueSource(const CatalogueSource &) = delete;
    CatalogueSource &operator=(const CatalogueSource &) = delete;

    /// Finds or makes the file. If no usable file is found or can be made, logs the reason and
    /// returns false. Must be called once, or after clear().
    bool prepare();
    /// Removes the temporary files.
    void clear();

    /// The file as a URI for SQLite; empty before prepare().
    const QString &uri() const { return m_uri; }
    /// Returns true if the file is still the one that was prepared.
    bool isUnchanged() const { return fileState(m_path) == m_state; }
    /// Writes into the log why the file is not used. Returns false.
    bool refuse(const QString &reason) const;

private:
    bool use(const QString &path, const FileState &state);
    bool useLocal(const PlainFile &file);
    bool joinLog(const FileState &state);
    bool unpack();

    QString m_path; ///< absolute
    QString m_uri;
    FileState m_state;
    std::unique_ptr<QTemporaryFile> m_unpacked;
    std::unique_ptr<QTemporaryDir> m_joined;
};

} // namespace brisel
