#include "library/movedsongs.h"

#include "base/fileidentity.h"
#include "base/plainfile.h"

#include <algorithm>

namespace brisel
{

void MovedSongs::sortBySize()
{
    if (m_isSorted)
        return;
    m_isSorted = true;
    for (const QString &path : std::as_const(m_paths)) {
        if (m_positions.contains(path))
            continue;
        m_positions.insert(path, m_positions.size());
        if (const FileState state = fileState(path); state.kind == FileKind::Regular)
            m_bySize[state.size].append(path);
    }
}

void MovedSongs::add(const QString &path)
{
    const FileState state = fileState(path);
    if (!m_isSorted || state.kind != FileKind::Regular)
        return;
    insert(path, m_bySize[state.size]);
    const auto ofThisSize = m_byChecksum.find(state.size);
    PlainFile file;
    if (ofThisSize == m_byChecksum.end() || !file.open(path))
        return;
    for (auto kind = ofThisSize->begin(); kind != ofThisSize->end(); ++kind)
        insert(path, (*kind)[Fingerprint{{}, state.size, kind.key()}.checksumOf(file)]);
}

/// Inserts \a path into \a paths, which are in the order of the list.
void MovedSongs::insert(const QString &path, QStringList &paths) const
{
    const auto isBefore = [this](const QString &one, const QString &other) {
        return m_positions.value(one) < m_positions.value(other);
    };
    paths.insert(std::upper_bound(paths.cbegin(), paths.cend(), path, isBefore), path);
}

QString MovedSongs::find(const Fingerprint &wanted)
{
    sortBySize();
    QHash<qint64, Paths> &ofThisSize = m_byChecksum[wanted.size];
    auto known = ofThisSize.find(wanted.tagSize);
    if (known == ofThisSize.end()) {
        known = ofThisSize.insert(wanted.tagSize, {});
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
