#include "songfile/fingerprint.h"

#include "base/plainfile.h"
#include "songfile/metasong.h"

#define XXH_INLINE_ALL
#include <xxhash.h>

#include <algorithm>

namespace brisel
{

namespace
{

QByteArray checksumOfBytes(const QByteArray &bytes)
{
    XXH128_canonical_t checksum;
    XXH128_canonicalFromHash(
        &checksum, XXH3_128bits(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    return QByteArray(reinterpret_cast<const char *>(checksum.digest), sizeof checksum.digest);
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
    const qint64 checked =
        tagSize < 0 ? size : std::min(size, std::min(tagSize, size) + checkedAudio);
    QByteArray bytes;
    return checked <= MetaSong::maxSongSize + checkedAudio && file.read(0, checked, bytes)
               ? checksumOfBytes(bytes)
               : QByteArray();
}

bool Fingerprint::isOf(const PlainFile &file) const
{
    return file.isOpen() && file.size() == size && !checksum.isEmpty() &&
           checksumOf(file) == checksum;
}

} // namespace brisel
