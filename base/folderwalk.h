#pragma once

#include <QSet>
#include <QString>

namespace brisel
{

/// The folders that a walk has entered. Each is entered once, even through links: a link to a
/// parent folder would otherwise make the walk endless.
class FolderWalk
{
public:
    /// Returns true at the first call for \a folder. A folder that can't be examined is not stored.
    [[nodiscard]] bool enter(const QString &folder);
    /// Returns true if the walk has entered \a folder by any path.
    [[nodiscard]] bool hasEntered(const QString &folder) const;

private:
    QSet<QString> m_entered; ///< identities
};

} // namespace brisel
