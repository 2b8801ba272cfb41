#include "base/graphicsfiles.h"

#include "base/fileidentity.h"
#include "base/lettercase.h"

#include <QDir>
#include <QFileInfo>

namespace brisel
{

QString graphicsPath(const QString &song)
{
    return QString(song).replace(QStringLiteral(".mp3"), QStringLiteral(".cdg"),
                                 Qt::CaseInsensitive);
}

QStringList GraphicsFiles::named(const QString &folder, const QString &name)
{
    auto known = m_folders.constFind(folder);
    if (known == m_folders.constEnd()) {
        QMultiHash<QString, QString> names;
        const QStringList all = QDir(folder).entryList(
            {QStringLiteral("*.cdg")}, QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted);
        for (const QString &graphics : all)
            names.insert(lowerCased(graphics), graphics);
        known = m_folders.insert(folder, names);
    }
    QStringList found = known->values(lowerCased(name));
    found.sort();
    return found;
}

QString GraphicsFiles::companionOf(const QString &song)
{
    if (!song.endsWith(QStringLiteral("MP3"), Qt::CaseInsensitive))
        return {};
    QString wanted = graphicsPath(song);
    if (isRegularFile(wanted))
        return wanted;
    const QFileInfo file(wanted);
    QString found;
    for (const QString &name : named(file.path(), file.fileName())) {
        if (const QString path = file.path() + u'/' + name; isRegularFile(path))
            found = path;
    }
    return found;
}

} // namespace brisel
