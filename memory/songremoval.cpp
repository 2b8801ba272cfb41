#include "memory/songremoval.h"

#include "base/filefailure.h"
#include "base/fileidentity.h"
#include "base/filelot.h"
#include "base/folderhandle.h"
#include "base/graphicsfiles.h"
#include "base/lettercase.h"
#include "base/songsuffix.h"
#include "index/givennames.h"
#include "index/index.h"
#include "index/indexset.h"
#include "index/memoryreasons.h"
#include "index/playlists.h"
#include "library/songdeletion.h"
#include "memory/indexafterchange.h"
#include "memory/memoryclaim.h"
#include "memory/memorycontents.h"
#include "memory/playlistrecords.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace brisel
{

namespace
{

const QString mp3Suffix = QStringLiteral("mp3");
const QString graphicsSuffix = QStringLiteral("cdg");

QString baseName(const QString &path)
{
    return QFileInfo(path).completeBaseName();
}

/// Why the memory can't be changed as long as its index is not read.
std::optional<Reason> whyNotRead(MemoryContents::Outcome outcome)
{
    switch (outcome) {
    case MemoryContents::Outcome::Unreadable:
        return FileReason::truncated;
    case MemoryContents::Outcome::InUse:
        return MemoryReason::inUse;
    case MemoryContents::Outcome::Gone:
        return MemoryReason::gone;
    case MemoryContents::Outcome::Done:
    case MemoryContents::Outcome::NotPrepared:
        break;
    }
    return std::nullopt;
}

} // namespace

SongRemoval::SongRemoval(MemoryClaim &claim, QStringList files)
    : m_claim(claim), m_files(std::move(files))
{
    m_files.removeDuplicates();
}

SongRemoval::Outcome SongRemoval::run(Run &run)
{
    run.report().addOperation(RunReport::Operation::Deletion);
    std::optional<Reason> refusal = m_claim.refusal();
    MemoryContents contents;
    if (!refusal) {
        m_claim.prepare();
        refusal = whyNotRead(contents.read(m_claim.root(), run));
    }
    if (refusal) {
        run.report().add(RunReport::Step::Delete, m_claim.root(), *refusal);
        return Outcome::Refused;
    }
    SongFiles files(m_claim.root(), contents);
    SongEntries entries(contents, files);
    for (const QString &path : m_files)
        entries.add(path);
    removeFiles(run, files);
    const QSet<QString> gone(m_gone.cbegin(), m_gone.cend());
    for (const QString &path : m_files) {
        if (!gone.contains(path))
            entries.remove(path);
    }
    if (!m_gone.isEmpty())
        m_hasFailed = !follow(run, contents, entries) || m_hasFailed;
    if (m_isInterrupted)
        return Outcome::Interrupted;
    return m_hasFailed ? Outcome::Failed : Outcome::Done;
}

bool SongRemoval::follow(Run &run, const MemoryContents &contents, const SongEntries &gone) const
{
    const bool areEntriesGone = removeEntries(run, contents, gone);
    if (m_claim.isSame())
        return updateAfterChange(run, m_claim.root()) && areEntriesGone;
    run.report().addShared(RunReport::Step::Index, m_claim.root(), MemoryReason::gone);
    return false;
}

void SongRemoval::removeFiles(Run &run, SongFiles &files)
{
    QList<SongFiles::Place> places;
    for (const QString &path : m_files)
        places.append(files.find(path));
    run.begin({tr("Rimozione dalla memoria"), tr("Rimuovo le song..."),
               static_cast<int>(m_files.size())});
    for (qsizetype done = 0; done < m_files.size(); ++done) {
        const QString &path = m_files.at(done);
        run.processEvents();
        m_isInterrupted = m_isInterrupted || !run.mayGoOn();
        if (m_isInterrupted)
            run.report().add(RunReport::Step::Delete, path, Run::interrupted);
        else if (removeSong(run, path, places.at(done)))
            m_gone.append(path);
        run.setStep(static_cast<int>(done) + 1);
    }
    m_hasFailed = !flush(run) || m_hasFailed;
    run.end();
}

/// Returns true if the song \a path, whose file is \a place, is gone.
bool SongRemoval::removeSong(Run &run, const QString &path, const SongFiles::Place &place)
{
    const bool isSong = isSongSuffix(QFileInfo(path).suffix());
    if (!isSong && !hasSuffix(path, graphicsSuffix))
        return fail(run, path, notASong);
    if (!m_claim.isSame())
        return fail(run, path, MemoryReason::gone);
    if (place.problem && *place.problem != FileReason::missing)
        return fail(run, path, *place.problem);
    if (!place.problem && !removeFile(run, place.path))
        return false;
    if (isSong)
        run.report().count(RunReport::Success::Deleted);
    if (hasSuffix(path, mp3Suffix))
        removeGraphicsOf(run, place.problem ? path : place.path);
    return true;
}

/// Through a handle of the folder, because its path may become that of a folder elsewhere.
bool SongRemoval::removeFile(Run &run, const QString &path)
{
    const QString folder = QFileInfo(path).path();
    const QString way = wayBelow(m_claim.root(), folder);
    if (!m_claim.isSame())
        return fail(run, path, MemoryReason::gone);
    if (way.isNull() && entryExists(folder))
        return fail(run, path, outside);
    if (!way.isNull()) {
        const FolderHandle handle(m_claim.root(), way);
        const bool isRemoved = handle.isOpen() && handle.remove(QFileInfo(path).fileName());
        m_folders.insert(way);
        if (!isRemoved && entryExists(path))
            return fail(run, path, SongDeletion::whyNotDeleted(path));
    }
    return true;
}

bool SongRemoval::fail(Run &run, const QString &path, const Reason &reason)
{
    m_hasFailed = true;
    if (reason == MemoryReason::gone)
        run.report().addShared(RunReport::Step::Delete, m_claim.root(), reason);
    else
        run.report().add(RunReport::Step::Delete, path, reason);
    return false;
}

/// Removes the graphics files of \a song, an MP3 that is gone, ignoring letter case, except those
/// that another MP3 uses, too.
void SongRemoval::removeGraphicsOf(Run &run, const QString &song)
{
    const QString folder = QFileInfo(song).path();
    const QStringList sharing = mp3sNamedLike(song);
    if (std::any_of(sharing.cbegin(), sharing.cend(),
                    [&folder](const QString &name) { return entryExists(folder + u'/' + name); }))
        return;
    const QStringList found = m_graphics.named(folder, baseName(song) + u'.' + graphicsSuffix);
    for (const QString &file : found) {
        if (entryExists(folder + u'/' + file))
            removeFile(run, folder + u'/' + file);
    }
}

/// The MP3s in the folder of \a song whose names differ from its name only in letter case, as far
/// as they were there when the folder was first read. Reads each folder once.
QStringList SongRemoval::mp3sNamedLike(const QString &song)
{
    const QString folder = QFileInfo(song).path();
    auto known = m_mp3s.constFind(folder);
    if (known == m_mp3s.constEnd()) {
        QMultiHash<QString, QString> names;
        const QStringList all = QDir(folder).entryList(
            {QStringLiteral("*.mp3")}, QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted);
        for (const QString &name : all)
            names.insert(lowerCased(baseName(name)), name);
        known = m_mp3s.insert(folder, names);
    }
    return known->values(lowerCased(baseName(song)));
}

bool SongRemoval::flush(Run &run) const
{
    if (m_folders.isEmpty())
        return true;
    const FolderHandle root(m_claim.root(), QString());
    std::optional<bool> isFlushed = false;
    if (root.isOpen())
        isFlushed = root.flushFileSystem();
    if (!isFlushed.has_value()) {
        isFlushed = std::all_of(m_folders.cbegin(), m_folders.cend(), [this](const QString &way) {
            const FolderHandle folder(m_claim.root(), way);
            return folder.isOpen() && folder.flush();
        });
    }
    if (!*isFlushed)
        run.report().add(RunReport::Step::Delete, m_claim.root(), FileReason::unwritable);
    return *isFlushed;
}

/// Takes the entries of the songs that are gone out of the playlists and their path files; all
/// other entries stay as they are. Path records that may belong to other entries are not kept: with
/// fewer entries the path file could seem to belong to the playlist.
bool SongRemoval::removeEntries(Run &run, const MemoryContents &contents,
                                const SongEntries &gone) const
{
    IndexSet set(run);
    set.setRoot(m_claim.root());
    FileLot lot;
    lot.setMemory(m_claim.root());
    QStringList staged;
    QStringList left;
    const auto commit = [&] {
        if (!lot.commitAll())
            left += staged;
        staged.clear();
    };
    GivenNames names;
    names.setRoot(m_claim.root());
    (void)names.load(); // on failure a path file may count as one of another state
    for (const MemoryContents::Playlist &playlist : contents.playlists()) {
        const QString path = set.filePath(Playlists::songsFileName(playlist.number));
        if (playlist.state == MemoryContents::Playlist::State::Unreadable && !gone.isEmpty())
            left.append(path);
        if (gone.countIn(playlist.songs) == 0)
            continue;
        const PlaylistRecords records(contents, playlist, names);
        (stage(lot, playlist, records, gone) ? staged : left).append(path);
        if (lot.isFull())
            commit();
        run.pulse();
    }
    commit();
    for (const QString &path : std::as_const(left))
        run.report().addMessage(Index::tr("Playlist non aggiornata: ") + path);
    return left.isEmpty();
}

bool SongRemoval::stage(FileLot &lot, const MemoryContents::Playlist &playlist,
                        const PlaylistRecords &records, const SongEntries &gone) const
{
    const QString folder = m_claim.root() + u'/';
    const PlaylistRecords::Entries others = gone.others(playlist.songs);
    // In this order: a path file with more records than the playlist has does not count.
    return playlist.isWritable && m_claim.isSame() &&
           lot.write({folder + Playlists::songsFileName(playlist.number)},
                     records.songsFile(others)) &&
           (playlist.paths.isNull() ||
            lot.write({folder + Playlists::pathsFileName(playlist.number)},
                      records.pathsFile(others)));
}

} // namespace brisel
