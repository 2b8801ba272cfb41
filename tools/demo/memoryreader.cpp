#include "tools/demo/memoryreader.h"

#include <QFile>
#include <QTextCodec>
#include <QtEndian>

namespace brisel
{

namespace
{

constexpr qsizetype recordSize = 64;
constexpr qsizetype alphabetSize = 256;
constexpr char firstLetter = 0x20;
constexpr int letters = 64;
constexpr quint32 noEntry = 0xFFFFFFFF;

quint32 big32(const QByteArray &bytes, qsizetype at)
{
    return qFromBigEndian<quint32>(bytes.constData() + at);
}

int big16(const QByteArray &bytes, qsizetype at)
{
    return qFromBigEndian<quint16>(bytes.constData() + at);
}

int little16(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}

QByteArray textAt(const QByteArray &bytes, qsizetype at, qsizetype width)
{
    const QByteArray field = bytes.mid(at, width);
    const qsizetype end = field.indexOf('\0');
    return end < 0 ? field : field.left(end);
}

bool isGroupHeader(const QByteArray &record)
{
    return record.at(62) == '\0' && record.at(63) == '\xFF';
}

ListedSong songOf(const QByteArray &record)
{
    ListedSong song;
    song.id = big32(record, 0);
    song.title = QString::fromLatin1(textAt(record, 4, 58));
    song.bpm = static_cast<uchar>(record.at(62));
    const int last = static_cast<uchar>(record.at(63));
    song.type = last & 7;
    song.flag = (last >> 3) != 0;
    song.record = record;
    return song;
}

QList<QByteArray> recordsOf(const QByteArray &bytes)
{
    QList<QByteArray> records;
    for (qsizetype at = 0; at + recordSize <= bytes.size(); at += recordSize)
        records.append(bytes.mid(at, recordSize));
    return records;
}

} // namespace

MemoryReader::MemoryReader(const QString &root) : m_root(root)
{
    readPaths();
    readFolderOrder();
    m_titles = readTitles(QStringLiteral("title.id2"), QStringLiteral("atitle.id2"));
    m_artists = readGroups(QStringLiteral("artist.id2"), QStringLiteral("aartist.id2"));
    m_genres = readGroups(QStringLiteral("genre.id2"), QStringLiteral("agenre.id2"));
    m_mp3Titles = readTitles(QStringLiteral("title3.id2"), QStringLiteral("atitle3.id2"));
    const auto mp3Artists =
        readGroups(QStringLiteral("artist3.id2"), QStringLiteral("aartist3.id2"));
    const auto mp3Genres = readGroups(QStringLiteral("genre3.id2"), QStringLiteral("agenre3.id2"));
    checkCounts({m_titles.size(), m_artists.size(), m_genres.size(), m_mp3Titles.size(),
                 mp3Artists.size(), mp3Genres.size()});
    if (m_titles.size() != m_songs.size())
        fault(QStringLiteral("%1 songs but %2 titles").arg(m_songs.size()).arg(m_titles.size()));
}

QString MemoryReader::pathOf(quint32 id) const
{
    for (const IndexedSong &song : m_songs) {
        if (song.id == id)
            return song.path;
    }
    return {};
}

QList<ListedSong> MemoryReader::playlist(int number)
{
    const QString name = QStringLiteral("playlist/play%1.dat").arg(number, 4, 10, QChar(u'0'));
    QList<ListedSong> songs;
    for (const QByteArray &record : recordsOf(fileBytes(name)))
        songs.append(songOf(record));
    return songs;
}

QByteArray MemoryReader::fileBytes(const QString &name)
{
    QFile file(m_root + u'/' + name);
    if (!file.open(QIODevice::ReadOnly)) {
        fault(QStringLiteral("%1 can't be read").arg(name));
        return {};
    }
    return file.readAll();
}

void MemoryReader::checkRecords(const QString &name, const QByteArray &bytes)
{
    if (bytes.size() % recordSize != 0)
        fault(QStringLiteral("%1 ends inside a record").arg(name));
}

void MemoryReader::readPaths()
{
    const QString name = QStringLiteral("index.id2");
    const QByteArray bytes = fileBytes(name);
    checkRecords(name, bytes);
    QTextCodec *codec = QTextCodec::codecForName("IBM 850");
    for (const QByteArray &record : recordsOf(bytes)) {
        IndexedSong song;
        song.id = big32(record, 0);
        song.path = codec->toUnicode(textAt(record, 4, 46));
        song.modified = QString::fromLatin1(record.mid(50, 14));
        if (!song.path.startsWith(u'/') || !QFile::exists(m_root + song.path))
            fault(QStringLiteral("no file for %1").arg(song.path));
        m_songs.append(song);
    }
}

void MemoryReader::readFolderOrder()
{
    const QByteArray bytes = fileBytes(QStringLiteral("ordfile.id2"));
    if (bytes.size() != 2 * m_songs.size())
        fault(QStringLiteral("ordfile.id2 has %1 bytes").arg(bytes.size()));
    for (qsizetype at = 0; at + 2 <= bytes.size(); at += 2) {
        const int position = little16(bytes, at);
        if (position < m_songs.size())
            m_folderOrder.append(m_songs.at(position));
        else
            fault(QStringLiteral("ordfile.id2 names record %1").arg(position));
    }
}

QList<ListedSong> MemoryReader::readTitles(const QString &name, const QString &alphabet)
{
    const QByteArray bytes = fileBytes(name);
    checkRecords(name, bytes);
    QList<ListedSong> songs;
    for (const QByteArray &record : recordsOf(bytes)) {
        const ListedSong song = songOf(record);
        if (!songs.isEmpty() && songs.last().title.compare(song.title, Qt::CaseInsensitive) > 0)
            fault(QStringLiteral("%1: \"%2\" is out of order").arg(name, song.title));
        if (pathOf(song.id).isEmpty())
            fault(QStringLiteral("%1: no song has the id %2").arg(name).arg(song.id));
        songs.append(song);
    }
    checkAlphabet(alphabet, bytes, false);
    return songs;
}

QList<SongGroup> MemoryReader::readGroups(const QString &name, const QString &alphabet)
{
    const QByteArray bytes = fileBytes(name);
    checkRecords(name, bytes);
    QList<SongGroup> groups;
    int announced = 0;
    for (const QByteArray &record : recordsOf(bytes)) {
        if (isGroupHeader(record)) {
            const qsizetype before = groups.isEmpty() ? 0 : groups.last().songs.size();
            if (big16(record, 0) != before || announced != before)
                fault(
                    QStringLiteral("%1: wrong count before group %2").arg(name).arg(groups.size()));
            announced = big16(record, 2);
            groups.append({QString::fromLatin1(textAt(record, 4, 58)), {}});
        } else if (groups.isEmpty()) {
            fault(QStringLiteral("%1 begins without a header").arg(name));
        } else {
            groups.last().songs.append(songOf(record));
        }
    }
    if (!groups.isEmpty() && announced != groups.last().songs.size())
        fault(QStringLiteral("%1: wrong count in the last group").arg(name));
    checkAlphabet(alphabet, bytes, true);
    return groups;
}

void MemoryReader::checkAlphabet(const QString &name, const QByteArray &data, bool groupsOnly)
{
    const QByteArray table = fileBytes(name);
    if (table.size() != alphabetSize) {
        fault(QStringLiteral("%1 has %2 bytes").arg(name).arg(table.size()));
        return;
    }
    QList<quint32> expected(letters, noEntry);
    for (qsizetype at = 0; at + recordSize <= data.size(); at += recordSize) {
        if (groupsOnly && !isGroupHeader(data.mid(at, recordSize)))
            continue;
        const QChar first = QChar::fromLatin1(data.at(at + 4)).toUpper();
        const int letter = first.unicode() - firstLetter;
        if (letter >= 0 && letter < letters && expected.at(letter) == noEntry)
            expected[letter] = static_cast<quint32>(at);
    }
    for (int letter = 0; letter < letters; ++letter) {
        if (big32(table, 4 * letter) != expected.at(letter))
            fault(QStringLiteral("%1: wrong place for '%2'")
                      .arg(name, QChar(char16_t(firstLetter + letter))));
    }
}

void MemoryReader::checkCounts(const QList<qsizetype> &counts)
{
    const QByteArray bytes = fileBytes(QStringLiteral("fsinfos.id2"));
    if (bytes.size() != 2 * counts.size()) {
        fault(QStringLiteral("fsinfos.id2 has %1 bytes").arg(bytes.size()));
        return;
    }
    for (qsizetype i = 0; i < counts.size(); ++i) {
        if (little16(bytes, 2 * i) != counts.at(i))
            fault(QStringLiteral("fsinfos.id2: count %1 is %2, the file holds %3")
                      .arg(i)
                      .arg(little16(bytes, 2 * i))
                      .arg(counts.at(i)));
    }
}

} // namespace brisel
