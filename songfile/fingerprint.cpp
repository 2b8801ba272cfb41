#include "songfile/fingerprint.h"

#include "base/plainfile.h"

#include <QCryptographicHash>

#include <algorithm>

namespace brisel
{

namespace
{

QByteArray checksumOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Blake2b_256);
}

} // namespace

Fingerprint Fingerprint::ofWhole(const QByteArray &content)
{
    return {checksumOf(content), content.size(), -1};
}

Fingerprint Fingerprint::ofMp3(const QByteArray &tag, const QByteArray &audio, qint64 size)
{
    return {checksumOf(tag + audio.left(checkedAudio)), size, tag.size()};
}

bool Fingerprint::isOf(const PlainFile &file) const
{
    if (!file.isOpen() || file.size() != size || checksum.isEmpty())
        return false;
    const qint64 checked = tagSize < 0 ? size : std::min(size, tagSize + checkedAudio);
    QByteArray bytes;
    return file.read(0, checked, bytes) && checksumOf(bytes) == checksum;
}

} // namespace brisel
