#include "base/filechecksum.h"

#include "base/plainfile.h"

#include <algorithm>

namespace brisel
{

QByteArray fileChecksum(const PlainFile &file, QCryptographicHash::Algorithm algorithm)
{
    constexpr qint64 blockSize = 1 << 20; // bytes
    if (!file.isOpen())
        return {};
    QCryptographicHash checksum(algorithm);
    QByteArray block;
    for (qint64 pos = 0; pos < file.size(); pos += blockSize) {
        if (!file.read(pos, std::min(blockSize, file.size() - pos), block))
            return {};
        checksum.addData(block);
    }
    return file.keepsItsSize() ? checksum.result() : QByteArray();
}

} // namespace brisel
