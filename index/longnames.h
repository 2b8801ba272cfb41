#pragma once

#include "base/fileidentity.h"
#include "base/graphicsfiles.h"
#include "index/memoryrenames.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>

namespace brisel
{

class PlannedFolder;

/// The player finds files and folders by names of up to eight characters and a suffix. This gives
/// such names to the entries of one folder with long names, during one walk.
class LongNames
{
public:
    /// Returns true if the file \a from must not be renamed to \a to, even if \a to does not exist.
    using IsReserved = std::function<bool(const QString &from, const QString &to)>;

    explicit LongNames(
        const QString &folder,
        IsReserved isReserved = [](const QString &, const QString &) { return false; })
        : m_folder(folder), m_isReserved(std::move(isReserved))
    {
    }

    /// Returns true if the name of \a path without its last suffix has more than eight characters.
    static bool isLong(const QString &path);

    /// Returns true if freeName() can give \a shortName to a file or folder \a name.
    static bool canGive(const QString &name, const QString &shortName);
    /// Returns true if freeName() can give \a shortName to any file or folder.
    static bool isGiven(const QString &shortName) { return !shapeOf(shortName).isEmpty(); }
    /// Returns \a shortName without its number and letter case: the same for all names that
    /// freeName() can give to one file. Empty for a name that it never gives.
    static QString shapeOf(const QString &shortName);
    /// The shapes of the names that freeName() can give to \a name.
    static QStringList shapesFor(const QString &name, FileKind kind);

    /// Returns the first free name of the form "MYFAVO-1" for the file or folder \a name; empty if
    /// all 999 are used. It has only whole characters that FAT allows.
    [[nodiscard]] QString freeName(const QString &name, FileKind kind);

    /// From now on the folder has the entries of \a folder, which must outlive this, instead of
    /// those on the disk.
    void setPlan(PlannedFolder &folder) { m_plan = &folder; }
    /// Like rename(), but only in the plan.
    void take(const QString &name, const QString &shortName);

    /// Renames \a name to \a shortName, and with an MP3 the ".cdg" file beside it. Returns false on
    /// failure; then both have their old names.
    [[nodiscard]] bool rename(MemoryRenames &renames, const QString &name,
                              const QString &shortName);

    /// The graphics file beside the MP3 \a name, ignoring case in its suffix; empty if there is no
    /// such file.
    QString companionOf(const QString &name);

private:
    QList<MemoryRenames::NewName> newNames(const QString &name, const QString &shortName);
    bool isTaken(const QString &name) const;
    bool isFile(const QString &name) const;

    QString m_folder;
    IsReserved m_isReserved;
    /// For each short name without its number: all numbers below this one are used.
    QHash<QString, int> m_nextNumbers;
    GraphicsFiles m_graphics;
    PlannedFolder *m_plan = nullptr; ///< null: the folder on the disk
};

} // namespace brisel
