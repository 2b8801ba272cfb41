#pragma once

#include "tests/shim/shim.h"

#include <QFile>
#include <QFileInfo>

namespace brisel
{

/// While it exists a file can't be read from an offset on. Only one may exist at a time.
class DamagedFile
{
public:
    DamagedFile(const QString &name, qint64 offset, Shim::ReadFailure failure)
    {
        const QString path = QFileInfo(name).absoluteFilePath();
        Shim::failReads(QFile::encodeName(path).constData(), offset, failure);
    }
    ~DamagedFile() { Shim::readAll(); }
    DamagedFile(const DamagedFile &) = delete;
    DamagedFile &operator=(const DamagedFile &) = delete;
};

} // namespace brisel
