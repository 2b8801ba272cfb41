#include "base/lastfolder.h"

#include "base/fileidentity.h"

namespace brisel
{

QString startFolder(const Setting<QString> &setting, const QString &first)
{
    const QString last = setting.in(openSettings());
    return !last.isEmpty() && fileKind(last) == FileKind::Folder ? last : first;
}

void keepFolder(const Setting<QString> &setting, const QString &folder)
{
    QSettings settings = openSettings();
    if (setting.in(settings) != folder)
        setting.store(settings, folder);
}

} // namespace brisel
