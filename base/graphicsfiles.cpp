#include "base/graphicsfiles.h"

#include "base/lettercase.h"

#include <QDir>

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

} // namespace brisel
