#include "index/memoryfile.h"

#include "base/filereading.h"

namespace brisel
{

MemoryFile::MemoryFile(const QString &path, qint64 unit, qint64 least, qint64 most)
{
    PlainFile file;
    const bool isOpen = file.open(path);
    if (file.state().kind == FileKind::Missing)
        return;
    m_size = file.size();
    // The size of a folder depends on the file system, and may be valid for the file.
    m_state = file.state().kind == FileKind::Regular ? State::BadLength : State::Unreadable;
    if (m_state == State::Unreadable)
        return;
    if (m_size % unit != 0 || m_size < least * unit || m_size > most * unit)
        return;
    const FileContent content = isOpen ? readWholeFile(file, m_size) : FileContent();
    m_content = content.bytes;
    m_state = content.isDone() ? State::Good : State::Unreadable;
}

quint8 MemoryFile::byte(qsizetype pos) const
{
    return pos >= 0 && pos < m_content.size() ? static_cast<quint8>(m_content.at(pos)) : 0;
}

quint16 MemoryFile::bigEndian16(qsizetype pos) const
{
    return static_cast<quint16>(byte(pos) << 8 | byte(pos + 1));
}

quint32 MemoryFile::bigEndian32(qsizetype pos) const
{
    return static_cast<quint32>(bigEndian16(pos)) << 16 | bigEndian16(pos + 2);
}

quint16 MemoryFile::littleEndian16(qsizetype pos) const
{
    return static_cast<quint16>(byte(pos + 1) << 8 | byte(pos));
}

QString MemoryFile::text(qsizetype record) const
{
    return QString::fromLatin1(upToZero(record * recordSize + 4, 58));
}

QByteArrayView MemoryFile::body(qsizetype record) const
{
    return record >= 0 && record < records()
               ? QByteArrayView(m_content).sliced(record * recordSize + 4, 60)
               : QByteArrayView();
}

bool MemoryFile::isHeader(qsizetype record) const
{
    return record >= 0 && record < records() && bigEndian16(record * recordSize + 62) == 0x00FF;
}

QByteArray MemoryFile::upToZero(qsizetype pos, qsizetype width) const
{
    const QByteArray field = m_content.mid(pos, width);
    const qsizetype end = field.indexOf('\0');
    return end < 0 ? field : field.left(end);
}

} // namespace brisel
