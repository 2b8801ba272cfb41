#pragma once

#include <QMultiHash>
#include <QString>
#include <QStringList>

namespace brisel
{

/// The names in one folder of a memory as they will be: those that are there now, and those that a
/// plan adds and removes. Changes nothing on the memory.
class PlannedFolder
{
public:
    /// Without names; of names that differ only in letter case a folder on FAT has one.
    explicit PlannedFolder(bool isOnFat = false) : m_isOnFat(isOnFat) {}
    /// With the names that are now in \a folder, hidden ones too; none if it does not exist.
    static PlannedFolder of(const QString &folder);

    void add(const QString &name);
    void remove(const QString &name);
    [[nodiscard]] bool has(const QString &name) const;
    /// The names that are \a name, or differ from it only in letter case, in the order of names.
    [[nodiscard]] QStringList named(const QString &name) const;
    /// The name that an entry \a name has, or would replace: the same text for all names that the
    /// folder does not distinguish.
    [[nodiscard]] QString keyOf(const QString &name) const;

private:
    bool m_isOnFat;
    QMultiHash<QString, QString> m_names; ///< by lower-cased name
};

} // namespace brisel
