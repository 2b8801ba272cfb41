#include "index/memorycheck.h"

#include "base/fileidentity.h"
#include "base/folderlock.h"
#include "index/memoryreasons.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace brisel
{

namespace
{

constexpr qint64 mostSongs = 65535;
constexpr int filesOfIndex = 15;

/// The lists of an index, in the order in which "fsinfos.id2" counts them.
struct List {
    const char *name;
    bool grouped;
    bool mp3Only;
};
constexpr std::array<List, 6> lists{{{"title.id2", false, false},
                                     {"artist.id2", true, false},
                                     {"genre.id2", true, false},
                                     {"title3.id2", false, true},
                                     {"artist3.id2", true, true},
                                     {"genre3.id2", true, true}}};

} // namespace

bool MemoryCheck::run(const QString &root)
{
    m_root = QDir::cleanPath(QFileInfo(root).absoluteFilePath());
    if (m_root == QStringLiteral("/"))
        m_root.clear();
    m_findings = MemoryFindings();
    m_progress = 0;
    m_index = IndexedSongs();
    m_counts.fill(-1);
    const QString identity = fileIdentity(root);
    if (fileKind(root) != FileKind::Folder)
        return false;
    const FolderLock lock(m_root, FolderLock::Kind::Shared);
    if (lock.isBusy()) {
        m_findings.add(MemoryReason::inUse.text());
        return false;
    }
    const bool isDone = checkAll();
    emit currentPathChanged(QString());
    // Files that are missing because the memory was pulled are not findings.
    if (!isDone || !m_run.mayGoOn() || fileIdentity(root) != identity) {
        m_findings = MemoryFindings();
        return false;
    }
    return true;
}

bool MemoryCheck::checkAll()
{
    setMaximum(0);
    const bool walked = m_memory.find(m_run, m_root, [this](const QString &path) {
        emit currentPathChanged(path);
        m_run.pulse();
    });
    if (!walked)
        return false;
    setMaximum(filesOfIndex + 1);
    checkPaths();
    checkPathOrder();
    checkLists();
    checkCounts();
    checkPlaylists();
    return true;
}

/// Reads a file of the index and reports one that is missing, unreadable or of an impossible size.
MemoryFile MemoryCheck::readFile(const QString &name, int unit, qint64 least, qint64 most)
{
    step(name);
    MemoryFile file(m_root + u'/' + name, unit, least, most);
    if (file.state() == MemoryFile::State::Missing)
        m_findings.addDamage(tr("%1: il file manca").arg(name));
    else if (file.state() == MemoryFile::State::Unreadable)
        m_findings.addDamage(tr("%1: il file non si può leggere").arg(name));
    else if (file.state() == MemoryFile::State::BadLength)
        m_findings.addDamage(tr("%1: lunghezza errata: %2 byte").arg(name).arg(file.size()));
    return file;
}

void MemoryCheck::checkPaths()
{
    m_index.paths = readFile(QStringLiteral("index.id2"), MemoryFile::recordSize, 0, mostSongs);
    if (!m_index.paths.isGood())
        return;
    checkIds();
    QHash<QByteArray, int> records;
    for (qsizetype record = 0; record < m_index.paths.records() && countStep(m_run); ++record) {
        checkRecord(record, ++records[MemorySongs::keyOf(m_index.paths.path(record))]);
    }
    checkUnindexedSongs(records);
}

void MemoryCheck::checkIds()
{
    constexpr quint32 noId = 0xFFFFFFFF;
    qint64 last = -1;
    for (qsizetype record = 0; record < m_index.paths.records() && countStep(m_run); ++record) {
        const quint32 id = m_index.paths.id(record);
        if (m_index.recordOfId.contains(id))
            m_findings.addDamage(
                tr("index.id2, record %1: id %2 usato due volte").arg(record).arg(id));
        else if (id == noId || id < last)
            m_findings.addDamage(
                tr("index.id2, record %1: id %2 fuori ordine").arg(record).arg(id));
        if (!m_index.recordOfId.contains(id))
            m_index.recordOfId.insert(id, record);
        last = id;
    }
}

/// Checks the path of \a record; \a timesMet records with its key were met, including this one.
void MemoryCheck::checkRecord(qsizetype record, int timesMet)
{
    const QByteArray bytes = m_index.paths.path(record);
    const QString path = MemorySongs::fromBytes(bytes);
    const int songs = m_memory.count(MemorySongs::keyOf(bytes));
    if (songs == 0) {
        // A song that the walk skips may still exist: hidden since it was indexed, or in a folder
        // that can't be read now.
        const FileKind kind = fileKind(m_root + path);
        if (!path.startsWith(u'/') || !MemorySongs::isSong(path) ||
            (kind != FileKind::Regular && kind != FileKind::Unreachable)) {
            m_findings.addDamage(
                tr("index.id2, record %1: la song non c'è: %2").arg(record).arg(path));
            return;
        }
    }
    if (timesMet > std::max(songs, 1))
        m_findings.addDamage(
            tr("index.id2, record %1: song indicizzata due volte: %2").arg(record).arg(path));
}

/// Reports songs of the memory that have no record; \a records says how many each key has.
void MemoryCheck::checkUnindexedSongs(const QHash<QByteArray, int> &records)
{
    // A full index has no room for them, and the run has reported each.
    if (m_index.paths.records() >= mostSongs)
        return;
    QHash<QByteArray, int> left = records;
    for (const MemorySongs::Song &song : m_memory.songs()) {
        if (!countStep(m_run))
            return;
        // Of songs with the same key any one may be without a record.
        if (left[song.key]-- <= 0)
            m_findings.add(tr("index.id2: manca la song %1").arg(song.path));
    }
}

void MemoryCheck::checkPathOrder()
{
    const QString name = QStringLiteral("ordfile.id2");
    const MemoryFile order = readFile(name, 2, 0, mostSongs);
    if (!order.isGood() || !m_index.paths.isGood())
        return;
    const qsizetype all = m_index.paths.records();
    QList<bool> met(all, false);
    QByteArray last;
    for (qsizetype place = 0; place < order.size() / 2 && countStep(m_run); ++place) {
        const quint16 record = order.littleEndian16(place * 2);
        if (record >= all) {
            m_findings.addDamage(
                tr("%1, posto %2: il record %3 non c'è").arg(name).arg(place).arg(record));
            continue;
        }
        if (met.at(record))
            m_findings.addDamage(
                tr("%1, posto %2: record %3 ripetuto").arg(name).arg(place).arg(record));
        met[record] = true;
        const QByteArray bytes = m_index.paths.path(record);
        const QByteArray key = m_memory.sortKey(MemorySongs::keyOf(bytes));
        if (key.isNull())
            continue;
        if (key < last)
            m_findings.addDamage(tr("%1, posto %2: fuori ordine: %3")
                                     .arg(name)
                                     .arg(place)
                                     .arg(MemorySongs::fromBytes(bytes)));
        last = key;
    }
    for (qsizetype record = 0; record < all && countStep(m_run); ++record) {
        if (!met.at(record))
            m_findings.addDamage(tr("%1: manca il record %2").arg(name).arg(record));
    }
}

void MemoryCheck::checkLists()
{
    for (std::size_t i = 0; i < lists.size() && countStep(m_run); ++i) {
        const List &list = lists.at(i);
        const QString name = QLatin1StringView(list.name);
        const QString tableName = u'a' + name;
        // Each song can have its own header.
        const MemoryFile file =
            readFile(name, MemoryFile::recordSize, 0, list.grouped ? 2 * mostSongs : mostSongs);
        if (i == 0) {
            m_index.titles = file;
            m_index.titleOfRecord.fill(-1, m_index.paths.records());
            for (qsizetype record = file.records() - 1; record >= 0 && countStep(m_run); --record) {
                const qsizetype song = m_index.recordOfId.value(file.id(record), -1);
                if (song >= 0)
                    m_index.titleOfRecord[song] = record;
            }
        }
        MemoryListCheck check(name, file, list.grouped, m_findings, m_run);
        if (file.isGood()) {
            if (m_index.paths.isGood())
                check.checkSongs(m_index, list.mp3Only);
            check.checkOrder();
            m_counts.at(i) = check.count();
        }
        constexpr int tableSize = 256;
        const MemoryFile table = readFile(tableName, tableSize, 1, 1);
        if (file.isGood() && table.isGood())
            check.checkAlphabet(tableName, table);
    }
}

void MemoryCheck::checkCounts()
{
    const QString name = QStringLiteral("fsinfos.id2");
    constexpr int countsSize = 12;
    const MemoryFile counts = readFile(name, countsSize, 1, 1);
    for (std::size_t i = 0; i < lists.size() && counts.isGood() && countStep(m_run); ++i) {
        const quint16 counted = counts.littleEndian16(static_cast<qsizetype>(i) * 2);
        if (m_counts.at(i) >= 0 && counted != static_cast<quint16>(m_counts.at(i)))
            m_findings.addDamage(tr("%1: il conto di %2 è %3, non %4")
                                     .arg(name, QLatin1StringView(lists.at(i).name))
                                     .arg(m_counts.at(i))
                                     .arg(counted));
    }
}

void MemoryCheck::checkPlaylists()
{
    constexpr int listRecord = 32;
    constexpr qint64 mostPlaylists = 65536;
    step(QStringLiteral("playlist"));
    // An incomplete record at the end is skipped.
    const MemoryFile list(m_root + QStringLiteral("/playlist/playlist.dat"), 1, 0,
                          listRecord * mostPlaylists);
    if (!list.isGood() || !m_index.paths.isGood())
        return;
    QSet<quint32> met;
    for (qint64 pos = 0; pos + listRecord <= list.size() && countStep(m_run); pos += listRecord) {
        // The low byte is signed, and the whole number, too: 85 00 is -123.
        const int low = list.byte(pos) < 0x80 ? list.byte(pos) : list.byte(pos) - 0x100;
        const auto number =
            static_cast<quint32>(qint32{static_cast<qint16>(list.byte(pos + 1) * 256 + low)});
        if (met.contains(number))
            continue;
        met.insert(number);
        checkPlaylist(QStringLiteral("playlist/play%1").arg(number, 4, 10, QLatin1Char('0')));
    }
}

/// Checks the playlist \a name, a path without suffix. A listed playlist without files is empty.
void MemoryCheck::checkPlaylist(const QString &name)
{
    const QString fileName = name + QStringLiteral(".dat");
    const MemoryFile playlist(m_root + u'/' + fileName, MemoryFile::recordSize, 0, mostSongs);
    if (playlist.state() == MemoryFile::State::BadLength)
        m_findings.add(tr("%1: lunghezza errata: %2 byte").arg(fileName).arg(playlist.size()));
    else if (playlist.state() == MemoryFile::State::Unreadable)
        m_findings.add(tr("%1: il file non si può leggere").arg(fileName));
    for (qsizetype place = 0; place < playlist.records() && countStep(m_run); ++place)
        checkEntry(fileName, playlist, place);
}

/// Checks one song of \a playlist, the playlist \a name.
void MemoryCheck::checkEntry(const QString &name, const MemoryFile &playlist, qsizetype place)
{
    const qsizetype song = m_index.recordOfId.value(playlist.id(place), -1);
    if (song < 0) {
        m_findings.add(tr("%1, posto %2: la song non è nell'indice").arg(name).arg(place));
        return;
    }
    const qsizetype title = m_index.titleOfRecord.value(song, -1);
    if (title < 0 || playlist.text(place) == m_index.titles.text(title))
        return;
    m_findings.add(
        tr("%1, posto %2: il titolo è \"%3\", quello della song \"%4\"")
            .arg(name, QString::number(place), playlist.text(place), m_index.titles.text(title)));
}

void MemoryCheck::setMaximum(int maximum)
{
    m_run.setSteps(maximum);
    emit progressMaxSetup(maximum);
}

/// Shows the file \a name, which is checked next.
void MemoryCheck::step(const QString &name)
{
    emit currentPathChanged(m_root + u'/' + name);
    m_run.setStep(++m_progress);
    emit progressValueChanged(m_progress);
}

} // namespace brisel
