#pragma once

#include <QString>
#include <QStringList>

namespace brisel
{

/// The songs of the list, kept in a file so that the program can offer them again at its next
/// start. docs/formats/last-list.md describes the file.
class LastList
{
public:
    static constexpr qint64 largestFile =
        64 << 20; ///< bytes; a larger one is neither read nor written

    /// The file in the program's data folder.
    static QString defaultPath();

    /// \a path: of the file. Reads nothing.
    explicit LastList(QString path = defaultPath());

    /// Returns true if there is a file.
    bool exists() const;
    /// The paths of the songs; empty if the file can't be read or is invalid.
    QStringList songs() const;
    /// Replaces the kept paths. An empty list leaves the file unchanged: the list before it is
    /// still offered. A failure is logged; then the old file stays.
    void keep(const QStringList &songs);

private:
    const QString m_path;
    QStringList m_kept; ///< the songs in the file, as far as this object wrote it
};

} // namespace brisel
