#include "base/filereading.h"

#include "base/fileidentity.h"

#include <QFile>

bool readPlainFile(const QString &path, qint64 maximum, QByteArray &content)
{
    QFile file(path);
    if (!isRegularFile(path) || !file.open(QIODevice::ReadOnly) || file.size() > maximum)
        return false;
    content = file.read(maximum);
    return file.error() == QFileDevice::NoError;
}
