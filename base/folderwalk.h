#pragma once

#include <QSet>
#include <QString>

/// The folders that a walk has come to. Each is entered once, whatever links lead to it, so that a
/// link to a folder above ends no walk in a loop.
class FolderWalk
{
public:
    /// True the first time that the walk comes to \a folder. A folder that can't be looked at is
    /// never known.
    [[nodiscard]] bool enter(const QString &folder);
    /// True when the walk has entered \a folder, by whatever path.
    [[nodiscard]] bool hasEntered(const QString &folder) const;

private:
    QSet<QString> m_entered; ///< identities
};
