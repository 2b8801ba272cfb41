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

void keepRecent(const Setting<QStringList> &setting, const QString &folder)
{
    QSettings settings = openSettings();
    const QStringList before = setting.in(settings);
    QStringList folders = before;
    folders.removeAll(folder);
    folders.prepend(folder);
    folders = folders.mid(0, mostRecent);
    if (folders != before)
        setting.store(settings, folders);
}

} // namespace brisel
