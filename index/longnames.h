#pragma once

#include "base/fileidentity.h"
#include "base/graphicsfiles.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>

class MemoryRenames;

/// The player finds files and folders by names of up to eight characters and a suffix. This gives
/// the long names in one folder such ones, during one walk.
class LongNames
{
public:
    /// True when the file \a from must not become \a to, also when nothing is there.
    using IsReserved = std::function<bool(const QString &from, const QString &to)>;

    explicit LongNames(
        const QString &folder,
        IsReserved isReserved = [](const QString &, const QString &) { return false; })
        : m_folder(folder), m_isReserved(std::move(isReserved))
    {
    }

    /// True when the name of \a path, its last suffix left out, has more than eight characters.
    static bool isLong(const QString &path);

    /// True when \a shortName is one of those that freeName() can give to a file or folder \a name.
    static bool canGive(const QString &name, const QString &shortName);
    /// True when freeName() can give \a shortName to any.
    static bool isGiven(const QString &shortName) { return !shapeOf(shortName).isEmpty(); }
    /// What the names that freeName() gives to one file differ in is left out of this: their
    /// numbers, and letter case. Empty for a name that it gives to none.
    static QString shapeOf(const QString &shortName);
    /// The shapes of the names that freeName() can give to \a name.
    static QStringList shapesFor(const QString &name, FileKind kind);

    /// The first free name of the kind "MYFAVO-1" for the file or folder \a name; empty when all
    /// 999 are taken. It has no character that FAT does not allow, and never half of one.
    [[nodiscard]] QString freeName(const QString &name, FileKind kind);

    /// Renames \a name to \a shortName, and with an MP3 the ".cdg" file beside it. False when
    /// either can't be; then both have their old names.
    [[nodiscard]] bool rename(MemoryRenames &renames, const QString &name,
                              const QString &shortName);

private:
    QString companionOf(const QString &name);
    bool isTaken(const QString &name) const;

    QString m_folder;
    IsReserved m_isReserved;
    /// The numbers below these are known to be taken: for each short name without its number.
    QHash<QString, int> m_nextNumbers;
    GraphicsFiles m_graphics;
};
