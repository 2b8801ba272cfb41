#include "index/memorycheck.h"

#include "base/fileidentity.h"
#include "base/folderlock.h"
#include "base/runguard.h"
#include "base/runreport.h"
#include "index/memorycheckrun.h"
#include "index/memoryreasons.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

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
    const RunGuard guard;
    m_root = QDir::cleanPath(QFileInfo(root).absoluteFilePath());
    if (m_root == QStringLiteral("/"))
        m_root.clear();
    m_findings.clear();
    m_damage = false;
    m_progress = 0;
    m_index = IndexedSongs();
    m_counts.fill(-1);
    const QString identity = fileIdentity(root);
    if (fileKind(root) != FileKind::Folder)
        return false;
    const FolderLock lock(m_root, FolderLock::Kind::Shared);
    if (lock.isBusy()) {
        m_findings = {MemoryReason::inUse.text()};
        return false;
    }
    MemoryCheckRun run([this] { emit progressValueChanged(m_progress); });
    const bool done = checkAll(run);
    emit currentPathChanged(QString());
    m_steps = run.steps();
    // What a memory that was pulled has lost is no finding.
    if (!done || RunGuard::endRequested() || fileIdentity(root) != identity)
        return false;
    m_findings = run.lines();
    m_damage = run.hasDamage();
    return true;
}

bool MemoryCheck::checkAll(MemoryCheckRun &run)
{
    emit progressMaxSetup(0);
    const bool walked = m_memory.find(m_root, [this, &run](const QString &path) {
        run.goOn();
        emit currentPathChanged(path);
    });
    if (!walked)
        return false;
    emit progressMaxSetup(filesOfIndex + 1);
    checkPaths(run);
    checkPathOrder(run);
    checkLists(run);
    checkCounts(run);
    checkPlaylists(run);
    return true;
}

/// Reads a file of the index and tells of one that can't be what it should.
MemoryFile MemoryCheck::readFile(const QString &name, int unit, qint64 least, qint64 most,
                                 MemoryCheckRun &run)
{
    step(name);
    MemoryFile file(m_root + u'/' + name, unit, least, most);
    if (file.state() == MemoryFile::State::Missing)
        run.findDamage(tr("%1: il file manca").arg(name));
    else if (file.state() == MemoryFile::State::Unreadable)
        run.findDamage(tr("%1: il file non si può leggere").arg(name));
    else if (file.state() == MemoryFile::State::BadLength)
        run.findDamage(tr("%1: lunghezza errata: %2 byte").arg(name).arg(file.size()));
    return file;
}

void MemoryCheck::checkPaths(MemoryCheckRun &run)
{
    m_index.paths =
        readFile(QStringLiteral("index.id2"), MemoryFile::recordSize, 0, mostSongs, run);
    if (!m_index.paths.isGood())
        return;
    checkIds(run);
    QHash<QByteArray, int> records;
    for (qsizetype record = 0; record < m_index.paths.records() && run.goOn(); ++record) {
        checkRecord(record, ++records[MemorySongs::keyOf(m_index.paths.path(record))], run);
    }
    checkUnindexedSongs(records, run);
}

void MemoryCheck::checkIds(MemoryCheckRun &run)
{
    constexpr quint32 noId = 0xFFFFFFFF;
    qint64 last = -1;
    for (qsizetype record = 0; record < m_index.paths.records() && run.goOn(); ++record) {
        const quint32 id = m_index.paths.id(record);
        if (m_index.recordOfId.contains(id))
            run.findDamage(tr("index.id2, record %1: id %2 usato due volte").arg(record).arg(id));
        else if (id == noId || id < last)
            run.findDamage(tr("index.id2, record %1: id %2 fuori ordine").arg(record).arg(id));
        if (!m_index.recordOfId.contains(id))
            m_index.recordOfId.insert(id, record);
        last = id;
    }
}

/// The record \a record, whose path's key was met \a timesMet times with it.
void MemoryCheck::checkRecord(qsizetype record, int timesMet, MemoryCheckRun &run)
{
    const QByteArray bytes = m_index.paths.path(record);
    const QString path = MemorySongs::fromBytes(bytes);
    const int songs = m_memory.count(MemorySongs::keyOf(bytes));
    if (songs == 0) {
        // A song that the walk passes over may be there all the same: hidden since it was indexed,
        // or in a folder that can't be looked into now.
        const FileKind kind = fileKind(m_root + path);
        if (!path.startsWith(u'/') || !MemorySongs::isSong(path) ||
            (kind != FileKind::Regular && kind != FileKind::Unreachable)) {
            run.findDamage(tr("index.id2, record %1: la song non c'è: %2").arg(record).arg(path));
            return;
        }
    }
    if (timesMet > std::max(songs, 1))
        run.findDamage(
            tr("index.id2, record %1: song indicizzata due volte: %2").arg(record).arg(path));
}

/// Tells of songs of the memory that have no record; \a records says how many each key has.
void MemoryCheck::checkUnindexedSongs(const QHash<QByteArray, int> &records, MemoryCheckRun &run)
{
    // A full index has no room for them, and the run has told of each.
    if (m_index.paths.records() >= mostSongs)
        return;
    QHash<QByteArray, int> left = records;
    for (const MemorySongs::Song &song : m_memory.songs()) {
        if (!run.goOn())
            return;
        // Where songs share a key any of them may be the one without a record.
        if (left[song.key]-- <= 0)
            run.find(tr("index.id2: manca la song %1").arg(song.path));
    }
}

void MemoryCheck::checkPathOrder(MemoryCheckRun &run)
{
    const QString name = QStringLiteral("ordfile.id2");
    const MemoryFile order = readFile(name, 2, 0, mostSongs, run);
    if (!order.isGood() || !m_index.paths.isGood())
        return;
    const qsizetype all = m_index.paths.records();
    QList<bool> met(all, false);
    QByteArray last;
    for (qsizetype place = 0; place < order.size() / 2 && run.goOn(); ++place) {
        const quint16 record = order.littleEndian16(place * 2);
        if (record >= all) {
            run.findDamage(
                tr("%1, posto %2: il record %3 non c'è").arg(name).arg(place).arg(record));
            continue;
        }
        if (met.at(record))
            run.findDamage(tr("%1, posto %2: record %3 ripetuto").arg(name).arg(place).arg(record));
        met[record] = true;
        const QByteArray bytes = m_index.paths.path(record);
        const QByteArray key = m_memory.sortKey(MemorySongs::keyOf(bytes));
        if (key.isNull())
            continue;
        if (key < last)
            run.findDamage(tr("%1, posto %2: fuori ordine: %3")
                               .arg(name)
                               .arg(place)
                               .arg(MemorySongs::fromBytes(bytes)));
        last = key;
    }
    for (qsizetype record = 0; record < all && run.goOn(); ++record) {
        if (!met.at(record))
            run.findDamage(tr("%1: manca il record %2").arg(name).arg(record));
    }
}

void MemoryCheck::checkLists(MemoryCheckRun &run)
{
    for (std::size_t i = 0; i < lists.size() && run.goOn(); ++i) {
        const List &list = lists.at(i);
        const QString name = QLatin1StringView(list.name);
        const QString tableName = u'a' + name;
        // Each song can have a header of its own.
        const MemoryFile file = readFile(name, MemoryFile::recordSize, 0,
                                         list.grouped ? 2 * mostSongs : mostSongs, run);
        if (i == 0) {
            m_index.titles = file;
            m_index.titleOfRecord.fill(-1, m_index.paths.records());
            for (qsizetype record = file.records() - 1; record >= 0 && run.goOn(); --record) {
                const qsizetype song = m_index.recordOfId.value(file.id(record), -1);
                if (song >= 0)
                    m_index.titleOfRecord[song] = record;
            }
        }
        MemoryListCheck check(name, file, list.grouped, run);
        if (file.isGood()) {
            if (m_index.paths.isGood())
                check.checkSongs(m_index, list.mp3Only);
            check.checkOrder();
            m_counts.at(i) = check.count();
        }
        constexpr int tableSize = 256;
        const MemoryFile table = readFile(tableName, tableSize, 1, 1, run);
        if (file.isGood() && table.isGood())
            check.checkAlphabet(tableName, table);
    }
}

void MemoryCheck::checkCounts(MemoryCheckRun &run)
{
    const QString name = QStringLiteral("fsinfos.id2");
    constexpr int countsSize = 12;
    const MemoryFile counts = readFile(name, countsSize, 1, 1, run);
    for (std::size_t i = 0; i < lists.size() && counts.isGood() && run.goOn(); ++i) {
        const quint16 counted = counts.littleEndian16(static_cast<qsizetype>(i) * 2);
        if (m_counts.at(i) >= 0 && counted != static_cast<quint16>(m_counts.at(i)))
            run.findDamage(tr("%1: il conto di %2 è %3, non %4")
                               .arg(name, QLatin1StringView(lists.at(i).name))
                               .arg(m_counts.at(i))
                               .arg(counted));
    }
}

void MemoryCheck::checkPlaylists(MemoryCheckRun &run)
{
    constexpr int listRecord = 32;
    constexpr qint64 mostPlaylists = 65536;
    step(QStringLiteral("playlist"));
    // Half a record at the end is passed over.
    const MemoryFile list(m_root + QStringLiteral("/playlist/playlist.dat"), 1, 0,
                          listRecord * mostPlaylists);
    if (!list.isGood() || !m_index.paths.isGood())
        return;
    QSet<quint32> met;
    for (qint64 pos = 0; pos + listRecord <= list.size() && run.goOn(); pos += listRecord) {
        // The low byte is signed, and the whole number, too: 85 00 is -123.
        const int low = list.byte(pos) < 0x80 ? list.byte(pos) : list.byte(pos) - 0x100;
        const auto number =
            static_cast<quint32>(qint32{static_cast<qint16>(list.byte(pos + 1) * 256 + low)});
        if (met.contains(number))
            continue;
        met.insert(number);
        checkPlaylist(QStringLiteral("playlist/play%1").arg(number, 4, 10, QLatin1Char('0')), run);
    }
}

/// The playlist \a name, a path without suffix. One that is listed but not there names nothing.
void MemoryCheck::checkPlaylist(const QString &name, MemoryCheckRun &run)
{
    const QString fileName = name + QStringLiteral(".dat");
    const MemoryFile playlist(m_root + u'/' + fileName, MemoryFile::recordSize, 0, mostSongs);
    if (playlist.state() == MemoryFile::State::BadLength)
        run.find(tr("%1: lunghezza errata: %2 byte").arg(fileName).arg(playlist.size()));
    else if (playlist.state() == MemoryFile::State::Unreadable)
        run.find(tr("%1: il file non si può leggere").arg(fileName));
    for (qsizetype place = 0; place < playlist.records() && run.goOn(); ++place)
        checkEntry(fileName, playlist, place, run);
}

/// One song of the playlist \a playlist, which is called \a name.
void MemoryCheck::checkEntry(const QString &name, const MemoryFile &playlist, qsizetype place,
                             MemoryCheckRun &run)
{
    const qsizetype song = m_index.recordOfId.value(playlist.id(place), -1);
    if (song < 0) {
        run.find(tr("%1, posto %2: la song non è nell'indice").arg(name).arg(place));
        return;
    }
    const qsizetype title = m_index.titleOfRecord.value(song, -1);
    if (title < 0 || playlist.text(place) == m_index.titles.text(title))
        return;
    run.find(
        tr("%1, posto %2: il titolo è \"%3\", quello della song \"%4\"")
            .arg(name, QString::number(place), playlist.text(place), m_index.titles.text(title)));
}

/// Says that the file \a name comes next.
void MemoryCheck::step(const QString &name)
{
    emit currentPathChanged(m_root + u'/' + name);
    emit progressValueChanged(++m_progress);
}
