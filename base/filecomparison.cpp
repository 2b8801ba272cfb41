#include "base/filecomparison.h"

#include "base/plainfile.h"

#include <algorithm>

namespace brisel
{

bool haveSameContent(const QString &first, const QString &second,
                     const std::function<bool()> &mayGoOn)
{
    constexpr qint64 blockSize = 1 << 20; // bytes
    PlainFile a;
    PlainFile b;
    if (!a.open(first) || !b.open(second) || a.size() != b.size())
        return false;
    QByteArray bytesOfA;
    QByteArray bytesOfB;
    for (qint64 pos = 0; pos < a.size(); pos += blockSize) {
        const qint64 count = std::min(blockSize, a.size() - pos);
        if (!mayGoOn() || !a.read(pos, count, bytesOfA) || !b.read(pos, count, bytesOfB) ||
            bytesOfA != bytesOfB)
            return false;
    }
    return a.keepsItsSize() && b.keepsItsSize();
}

} // namespace brisel
