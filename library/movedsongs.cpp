#include "library/movedsongs.h"

#include "base/fileidentity.h"
#include "base/plainfile.h"

namespace brisel
{

void MovedSongs::sortBySize()
{
    if (m_isSorted)
        return;
    m_isSorted = true;
    for (const QString &path : std::as_const(m_paths)) {
        if (const FileState state = fileState(path); state.kind == FileKind::Regular)
            m_bySize[state.size].append(path);
    }
}

QString MovedSongs::find(const Fingerprint &wanted)
{
    sortBySize();
    const Kind kind{wanted.size, wanted.tagSize};
    auto known = m_byChecksum.find(kind);
    if (known == m_byChecksum.end()) {
        known = m_byChecksum.insert(kind, {});
        for (const QString &path : m_bySize.value(wanted.size)) {
            PlainFile file;
            if (file.open(path))
                (*known)[wanted.checksumOf(file)].append(path);
        }
    }
    QStringList &paths = (*known)[wanted.checksum];
    while (!paths.isEmpty()) {
        QString path = paths.takeFirst();
        PlainFile file;
        if (file.open(path) && wanted.isOf(file)) // it may have been changed by now
            return path;
    }
    return {};
}

} // namespace brisel
