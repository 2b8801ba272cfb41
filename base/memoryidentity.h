#pragma once

#include "base/fileidentity.h"

#include <QByteArray>
#include <QString>

namespace brisel
{

/// Identifies the memory that is mounted in a folder, so that a run detects that it was pulled or
/// replaced by another one: by the system's data of the folder and its file system, and by a random
/// mark that the run can write there, because two sticks of the same kind may have equal data.
class MemoryIdentity
{
public:
    /// The identity of no memory.
    MemoryIdentity() = default;
    /// The identity of the memory that is now mounted at \a root. Opens nothing.
    explicit MemoryIdentity(const QString &root);

    /// Writes the mark to the work folder (docs/formats/player-index.md), which is made if it is
    /// missing. Returns false on failure: then only the other data identify the memory. Does
    /// nothing the second time.
    bool layMark();

    /// Returns true if that memory is still mounted, as far as the system's data show. Fast.
    [[nodiscard]] bool isThere() const;
    /// Returns true if it is still mounted and has the mark.
    [[nodiscard]] bool isSame() const;

    /// The name of the mark in the work folder.
    static const QString &markName();

private:
    struct Look {
        FileState folder;
        quint64 fileSystem = 0;
        quint64 size = 0; ///< bytes

        bool operator==(const Look &other) const;
    };

    static Look lookAt(const QString &root);

    QString m_root;
    Look m_look;
    QByteArray m_mark; ///< empty before it is written
};

} // namespace brisel
