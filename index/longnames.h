#pragma once

#include "base/fileidentity.h"

#include <QHash>
#include <QMultiHash>
#include <QString>

#include <optional>

class MemoryRenames;

/// The player finds files and folders by names of up to eight characters and a suffix. This gives
/// the long names in one folder such ones, during one walk.
class LongNames
{
public:
    explicit LongNames(const QString &folder) : m_folder(folder) {}

    /// True when the name of \a path, its last suffix left out, has more than eight characters.
    static bool isLong(const QString &path);

    /// The first free name of the kind "MYFAVO-1" for the file or folder \a name; empty when all
    /// 999 are taken. It has no character that FAT does not allow, and never half of one.
    QString freeName(const QString &name, FileKind kind);

    /// Renames \a name to \a shortName, and with an MP3 the ".cdg" file beside it. False when
    /// either can't be; then both have their old names.
    bool rename(MemoryRenames &renames, const QString &name, const QString &shortName);

private:
    QString companionOf(const QString &name);
    bool isTaken(const QString &name) const;

    QString m_folder;
    /// The numbers below these are known to be taken: for each short name without its number.
    QHash<QString, int> m_nextNumbers;
    /// The graphics files of the folder by their lower-cased names; read when an MP3 needs them.
    std::optional<QMultiHash<QString, QString>> m_graphics;
};
