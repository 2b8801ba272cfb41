#include "tests/memories/playerset.h"

#include "tests/testfiles.h"

#include <QSet>

namespace brisel
{

namespace
{

constexpr qsizetype recordSize = 64;
constexpr quint32 noEntry = 0xFFFFFFFF;

quint32 bigEndian(const QByteArray &bytes, qsizetype pos, qsizetype width)
{
    return bytes.mid(pos, width).toHex().toUInt(nullptr, 16);
}

int littleEndian16(const QByteArray &bytes, qsizetype pos)
{
    return static_cast<quint8>(bytes.at(pos)) + 256 * static_cast<quint8>(bytes.at(pos + 1));
}

QByteArray upToZero(const QByteArray &record, qsizetype pos, qsizetype width)
{
    const QByteArray text = record.mid(pos, width);
    return text.left(text.contains('\0') ? text.indexOf('\0') : width);
}

QList<QByteArray> recordsOf(const QByteArray &content)
{
    QList<QByteArray> records;
    for (qsizetype pos = 0; pos + recordSize <= content.size(); pos += recordSize)
        records.append(content.mid(pos, recordSize));
    return records;
}

quint32 idOf(const QByteArray &record)
{
    return bigEndian(record, 0, 4);
}

bool isHeader(const QByteArray &record)
{
    return record.endsWith(QByteArray("\0\xFF", 2));
}

QByteArray pathOf(const QByteArray &record)
{
    return upToZero(record, 4, 46);
}

/// The number of lists of all songs that contain each id.
QHash<quint32, int> listedIds(const QString &root)
{
    QHash<quint32, int> lists;
    for (const QString &name : {u"/title.id2"_qs, u"/artist.id2"_qs, u"/genre.id2"_qs}) {
        if (!QFileInfo(root + name).isFile())
            continue;
        QSet<quint32> ids;
        for (const QByteArray &record : recordsOf(fileContent(root + name))) {
            if (!isHeader(record))
                ids.insert(idOf(record));
        }
        for (const quint32 id : std::as_const(ids))
            ++lists[id];
    }
    return lists;
}

} // namespace

PlayerSet::PlayerSet(const QString &root) : m_root(root)
{
    readPaths();
    readOrder();
    for (const QString &kind : {u""_qs, u"3"_qs}) {
        for (const QString &list : {u"title"_qs, u"artist"_qs, u"genre"_qs})
            readList(list + kind + u".id2"_qs);
    }
    readCounts();
}

void PlayerSet::check(bool isGood, const QString &problem)
{
    if (!isGood && m_problem.isEmpty())
        m_problem = problem;
}

QByteArray PlayerSet::read(const QString &name, qsizetype unit)
{
    const QFileInfo file(m_root + u'/' + name);
    check(file.isFile(), name + u" is not a file"_qs);
    if (!file.isFile())
        return {};
    const QByteArray content = fileContent(file.filePath());
    check(content.size() % unit == 0, name + u" has half a record"_qs);
    return content;
}

void PlayerSet::readPaths()
{
    m_pathRecords = recordsOf(read(u"index.id2"_qs, recordSize));
    qint64 last = -1;
    for (const QByteArray &record : std::as_const(m_pathRecords)) {
        const quint32 id = idOf(record);
        check(id > last && id != noEntry, u"id %1 is out of order"_qs.arg(id));
        last = id;
        m_paths.insert(id, pathOf(record));
    }
}

void PlayerSet::readOrder()
{
    const QByteArray order = read(u"ordfile.id2"_qs, 2);
    check(order.size() == m_pathRecords.size() * 2, u"the order has another size"_qs);
    QSet<int> met;
    for (qsizetype pos = 0; pos + 2 <= order.size(); pos += 2) {
        const int number = littleEndian16(order, pos);
        check(number < m_pathRecords.size() && !met.contains(number),
              u"the order has a wrong record number"_qs);
        met.insert(number);
        const QByteArray record = m_pathRecords.value(number, QByteArray(recordSize, '-'));
        m_lines.append(QString::fromLatin1(pathOf(record) + ' ' + record.mid(50, 14)));
    }
}

void PlayerSet::readList(const QString &name)
{
    const bool isGrouped = !name.startsWith(u"title"_qs);
    const QByteArray content = read(name, recordSize);
    const QList<QByteArray> records = recordsOf(content);
    QSet<quint32> met;
    int headers = 0;
    for (const QByteArray &record : records) {
        if (isGrouped && isHeader(record)) {
            ++headers;
            m_lines.append(name + u" group "_qs + QString::fromLatin1(record.toHex()));
            continue;
        }
        const quint32 id = idOf(record);
        check(m_paths.contains(id) && !met.contains(id), name + u" has a wrong id"_qs);
        met.insert(id);
        if (name == u"title.id2"_qs)
            m_records.insert(id, record);
        check(m_records.value(id) == record, name + u" says other than title.id2"_qs);
        m_lines.append(name + u' ' + QString::fromLatin1(m_paths.value(id)) + u' ' +
                       QString::fromLatin1(record.mid(4).toHex()));
    }
    qsizetype wanted = m_paths.size();
    if (name.contains(u'3')) {
        wanted = std::count_if(m_records.cbegin(), m_records.cend(),
                               [](const QByteArray &record) { return (record.at(63) & 7) == 1; });
    }
    check(met.size() == wanted, name + u" has another number of songs"_qs);
    m_counts.append(isGrouped ? headers : static_cast<int>(records.size()));
    readTable(u'a' + name, content, isGrouped);
}

void PlayerSet::readTable(const QString &name, const QByteArray &list, bool isGrouped)
{
    constexpr qsizetype tableSize = 256;
    const QByteArray table = read(name, tableSize);
    check(table.size() == tableSize, name + u" has another size"_qs);
    for (qsizetype pos = 0; pos + 4 <= table.size(); pos += 4) {
        const quint32 offset = bigEndian(table, pos, 4);
        if (offset == noEntry)
            continue;
        const QByteArray record = list.mid(offset, recordSize);
        check(offset % recordSize == 0 && record.size() == recordSize &&
                  (!isGrouped || isHeader(record)) &&
                  QChar(QLatin1Char(record.at(4))).toUpper().unicode() == 0x20 + pos / 4,
              name + u" leads to another letter"_qs);
    }
    m_lines.append(name + u' ' + QString::fromLatin1(table.toHex()));
}

void PlayerSet::readCounts()
{
    const QByteArray counts = read(u"fsinfos.id2"_qs, 12);
    check(counts.size() == 12, u"the counts have another size"_qs);
    for (qsizetype i = 0; i < m_counts.size() && i * 2 + 2 <= counts.size(); ++i)
        check(littleEndian16(counts, i * 2) == m_counts.at(i), u"a wrong count"_qs);
    m_lines.append(u"counts "_qs + QString::fromLatin1(counts.toHex()));
}

QList<PlaylistEntry> playlistEntries(const QString &path)
{
    QList<PlaylistEntry> entries;
    for (const QByteArray &record : recordsOf(fileContent(path)))
        entries.append({idOf(record), upToZero(record, 4, 58)});
    return entries;
}

QHash<QByteArray, quint32> certainIds(const QString &root)
{
    if (!QFileInfo(root + u"/index.id2"_qs).isFile())
        return {};
    const QList<QByteArray> records = recordsOf(fileContent(root + u"/index.id2"_qs));
    QHash<quint32, int> idCounts;
    QHash<QByteArray, int> pathCounts;
    QList<bool> isInOrder;
    quint32 highest = 0;
    for (const QByteArray &record : records) {
        const quint32 id = idOf(record);
        ++idCounts[id];
        ++pathCounts[pathOf(record).toLower()];
        isInOrder.append(isInOrder.isEmpty() || id > highest);
        highest = std::max(highest, id);
    }
    const QHash<quint32, int> listed = listedIds(root);
    QHash<QByteArray, quint32> ids;
    quint32 lowest = noEntry;
    for (qsizetype i = records.size() - 1; i >= 0; --i) {
        const quint32 id = idOf(records.at(i));
        const QByteArray path = pathOf(records.at(i));
        const bool isKnown = (isInOrder.at(i) && id < lowest) || listed.value(id) > 1;
        lowest = std::min(lowest, id);
        if (isKnown && id != noEntry && idCounts.value(id) == 1 &&
            pathCounts.value(path.toLower()) == 1)
            ids.insert(path, id);
    }
    return ids;
}

QByteArray codePageBytes(const QString &path)
{
    static const QHash<QChar, char> bytes{{u'é', '\x82'}, {u'É', '\x90'}, {u'ñ', '\xA4'},
                                          {u'ß', '\xE1'}, {u'à', '\x85'}, {u'ü', '\x81'}};
    QByteArray result;
    for (const QChar character : path)
        result += character.unicode() < 0x80 ? static_cast<char>(character.unicode())
                                             : bytes.value(character, '?');
    return result;
}

} // namespace brisel
