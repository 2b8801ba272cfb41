#pragma once

#include <QSet>
#include <QString>

namespace brisel
{

/// The folders that a walk has entered. Each is entered once, whatever links lead to it: a link to
/// a folder above would otherwise make the walk endless.
class FolderWalk
{
public:
    /// True the first time that the walk comes to \a folder. A folder that can't be examined
    /// is never remembered.
    [[nodiscard]] bool enter(const QString &folder);
    /// True when the walk has entered \a folder, by whatever path.
    [[nodiscard]] bool hasEntered(const QString &folder) const;

private:
    QSet<QString> m_entered; ///< identities
};

} // namespace brisel
