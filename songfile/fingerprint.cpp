#include "songfile/fingerprint.h"

#include "base/plainfile.h"

#include <QCryptographicHash>

#include <algorithm>

namespace brisel
{

namespace
{

QByteArray checksumOfBytes(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Blake2b_256);
}

} // namespace

Fingerprint Fingerprint::ofWhole(const QByteArray &content)
{
    return {checksumOfBytes(content), content.size(), -1};
}

Fingerprint Fingerprint::ofMp3(const QByteArray &tag, const QByteArray &audio, qint64 size)
{
    return {checksumOfBytes(tag + audio.left(checkedAudio)), size, tag.size()};
}

QByteArray Fingerprint::checksumOf(const PlainFile &file) const
{
    const qint64 checked = tagSize < 0 ? size : std::min(size, tagSize + checkedAudio);
    QByteArray bytes;
    return file.read(0, checked, bytes) ? checksumOfBytes(bytes) : QByteArray();
}

bool Fingerprint::isOf(const PlainFile &file) const
{
    return file.isOpen() && file.size() == size && !checksum.isEmpty() &&
           checksumOf(file) == checksum;
}

} // namespace brisel
