#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace brisel
{

/// Makes the file \a path with \a content, and its parent folders.
inline void makeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can't make %s", qPrintable(path));
}

/// The content of the file \a path; empty if it can't be read.
inline QByteArray fileContent(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace brisel
