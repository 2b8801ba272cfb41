#include "base/filereading.h"

#include "base/fileidentity.h"

#include <QFile>

#include <algorithm>

bool readPlainFile(const QString &path, qint64 maximum, QByteArray &content)
{
    QFile file(path);
    if (!isRegularFile(path) || !file.open(QIODevice::ReadOnly) || file.size() > maximum)
        return false;
    // Room is made for what is asked for: a limit that itself comes from a file may be absurd.
    content = file.read(std::min(maximum, file.size()));
    return file.error() == QFileDevice::NoError;
}
