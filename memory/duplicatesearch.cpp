#include "memory/duplicatesearch.h"

#include "base/fileidentity.h"

#include <QElapsedTimer>
#include <QSet>

#include <algorithm>

namespace brisel
{

DuplicateSearch::DuplicateSearch(const QString &root, const QList<MemoryLook::SongFile> &songs)
    : m_root(root)
{
    QHash<qint64, int> sizes;
    for (const MemoryLook::SongFile &song : songs)
        ++sizes[song.size];
    for (const MemoryLook::SongFile &song : songs) {
        if (song.size == 0 || sizes.value(song.size) < 2)
            continue;
        m_files.append(song);
        m_bytes += song.size;
    }
}

bool DuplicateSearch::work(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    do {
        if (!isDone())
            readBlock();
    } while (!isDone() && timer.elapsed() < milliseconds);
    return !isDone();
}

void DuplicateSearch::readBlock()
{
    constexpr qint64 block = 256 * 1024; // bytes
    const MemoryLook::SongFile &song = m_files.at(m_next);
    if (m_place == 0 && !m_file.open(m_root + song.path)) {
        m_bytesRead += song.size;
        ++m_next;
        return;
    }
    const qint64 count = std::min(block, song.size - m_place);
    QByteArray bytes;
    const bool isRead = m_file.read(m_place, static_cast<qsizetype>(count), bytes);
    m_hash.addData(bytes);
    m_place += count;
    m_bytesRead += isRead ? count : song.size - m_place + count;
    if (isRead && m_place < song.size)
        return;
    if (isRead && m_file.size() == song.size) {
        QList<qsizetype> &same = m_contents[m_hash.result()];
        if (same.isEmpty())
            m_order.append(m_hash.result());
        same.append(m_next);
    }
    m_hash.reset();
    m_file.close();
    m_place = 0;
    ++m_next;
}

QList<QList<MemoryLook::SongFile>> DuplicateSearch::duplicates() const
{
    QList<QList<MemoryLook::SongFile>> all;
    for (const QByteArray &checksum : m_order) {
        const QList<qsizetype> same = m_contents.value(checksum);
        QList<MemoryLook::SongFile> files;
        QSet<QString> identities;
        for (const qsizetype file : same) {
            const QString identity = fileIdentity(m_root + m_files.at(file).path);
            if (!identity.isEmpty() && !identities.contains(identity))
                files.append(m_files.at(file));
            identities.insert(identity);
        }
        if (files.size() > 1)
            all.append(files);
    }
    return all;
}

} // namespace brisel
