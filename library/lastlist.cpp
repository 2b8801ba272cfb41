#include "library/lastlist.h"

#include "base/debugstream.h"
#include "base/filereading.h"
#include "base/filewriting.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>

#include <utility>

namespace brisel
{

QString LastList::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/lastlist.json");
}

LastList::LastList(QString path) : m_path(std::move(path)) {}

bool LastList::exists() const
{
    return isRegularFile(m_path);
}

QStringList LastList::songs() const
{
    const FileContent content = readWholeFile(m_path, largestFile);
    QStringList songs;
    const QJsonArray paths = QJsonDocument::fromJson(content.bytes).array();
    for (const auto &path : paths) {
        // A relative path would be one of the working folder.
        if (const QString song = path.toString(); QDir::isAbsolutePath(song))
            songs.append(song);
    }
    return songs;
}

void LastList::keep(const QStringList &songs)
{
    if (songs.isEmpty() || songs == m_kept)
        return;
    const QByteArray bytes =
        QJsonDocument(QJsonArray::fromStringList(songs)).toJson(QJsonDocument::Compact);
    if (bytes.size() > largestFile || !QDir().mkpath(QFileInfo(m_path).absolutePath()) ||
        !replaceFile(m_path, bytes))
        debug() << "WARNING: impossible to keep the list of songs:" << m_path;
    else
        m_kept = songs;
}

} // namespace brisel
