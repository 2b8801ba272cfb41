#pragma once

#include "base/fileidentity.h"

#include <QByteArray>
#include <QString>

namespace brisel
{

/// Which memory is mounted in a folder, so that a run notices when it was pulled or another one
/// stands in its place: what the system says of the folder and its file system, and a random mark
/// that the run can lay there, for sticks of one kind that follow each other look alike.
class MemoryIdentity
{
public:
    /// That of no memory.
    MemoryIdentity() = default;
    /// That of what is mounted at \a root now. Opens nothing.
    explicit MemoryIdentity(const QString &root);

    /// Lays the mark into the work folder (docs/formats/player-index.md), which is made where it is
    /// missing. False when it can't be written: the memory is known by the rest then. Does nothing
    /// the second time.
    bool layMark();

    /// True when that memory is still there, as far as looks at its root can show: cheap.
    [[nodiscard]] bool isThere() const;
    /// True when it is, and holds the mark that was laid.
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
    QByteArray m_mark; ///< empty while none is laid
};

} // namespace brisel
