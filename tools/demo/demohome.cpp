#include "tools/demo/demohome.h"

#include "base/settings.h"

#include <QDir>
#include <QFile>

namespace brisel
{

DemoHome::DemoHome(const QString &language)
    : m_folder(QDir::tempPath() + QStringLiteral("/brisel2pc-demo-XXXXXX"))
{
    for (const QString &path : {songs(), memory(), backups(), lists()})
        QDir().mkpath(path);
    const QByteArray home = QFile::encodeName(m_folder.path());
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME",
                             "XDG_CACHE_HOME", "XDG_STATE_HOME", "TMPDIR"})
        qputenv(name, home);
    qputenv("BRISEL_VOLUMES", QFile::encodeName(volumes()));
    QDir::setCurrent(m_folder.path());

    QSettings settings(settingsOrganisation, settingsApplication);
    settings.setValue(Settings::language.key, language);
    settings.setValue(Settings::logEnabled.key, true);
}

bool DemoHome::isValid() const
{
    return m_folder.isValid() && QDir(memory()).exists();
}

} // namespace brisel
