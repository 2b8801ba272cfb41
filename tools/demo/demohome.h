#pragma once

#include <QString>
#include <QTemporaryDir>

namespace brisel
{

/// The demo's files: a temporary home with songs, an empty memory of the player, and folders for
/// backups and lists. The user's settings, catalogue copies and songs are not used. Construct it
/// before the application object.
class DemoHome
{
public:
    /// \a language is stored as the user's choice ("it" or "en").
    explicit DemoHome(const QString &language);

    bool isValid() const;
    QString songs() const { return folder(QStringLiteral("songs")); }
    QString volumes() const { return folder(QStringLiteral("volumes")); }
    QString memory() const { return folder(QStringLiteral("volumes/BRISEL")); }
    QString backups() const { return folder(QStringLiteral("backups")); }
    QString lists() const { return folder(QStringLiteral("lists")); }

private:
    QString folder(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

} // namespace brisel
