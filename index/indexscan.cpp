#include "index/index.h"

#include "base/filefailure.h"
#include "base/fileidentity.h"
#include "base/flushing.h"
#include "base/folderhandle.h"
#include "base/lettercase.h"
#include "base/songsuffix.h"
#include "index/entrylist.h"
#include "index/longnames.h"

#include <algorithm>

// The walk over the memory: which files become songs of the index, and under what names.

namespace
{

bool isSameName(const QString &a, const QString &b)
{
    // Case is folded letter by letter: names of different lengths are never the same.
    return a.size() == b.size() && a.compare(b, Qt::CaseInsensitive) == 0;
}

QStringView suffixOf(const QString &path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot > path.lastIndexOf(u'/') ? QStringView(path).sliced(dot + 1) : QStringView();
}

} // namespace

void Index::scanFiles(const QString &folder)
{
    if (!m_folders.enter(folder))
        return;
    m_names.meet(folder);
    // A song that is sent again gets its name back.
    LongNames names(folder, [this, folder](const QString &from, const QString &to) {
        const QString path = folder + u'/' + to;
        return isNamedByPlaylist(path) && !m_names.wasGiven(from, path);
    });
    const FolderEntries found = visibleEntries(folder);
    if (!found.isComplete)
        reportUnreadableFolder(folder, found);
    for (const FolderEntry &entry : found.unnamed)
        reportUnnamed(folder, entry);
    for (const FolderEntry &entry : found.entries) {
        if (m_gone || m_run.isEnding())
            return;
        const QString longPath = folder + u'/' + entry.name;
        if (entry.kind == FileKind::Regular)
            scanFile(longPath, entry, names);
        else if (entry.kind == FileKind::Folder)
            scanFolder(longPath, entry, names);
        else
            reportNoFile(longPath, entry);
    }
}

void Index::scanFolder(const QString &longPath, const FolderEntry &entry, LongNames &names)
{
    if (isPlayersFolder(entry.name))
        return;
    if (isOutside(longPath, entry)) {
        reportOutside(longPath);
        return;
    }
    if (entry.isLink && m_folders.hasEntered(longPath)) {
        reportMissed(
            tr("File non importato, il collegamento porta a una cartella già importata: ") +
            longPath);
        return;
    }
    // Nobody looks for songs in the others, whatever they are called.
    const bool isLong = LongNames::isLong(longPath);
    const QString path =
        isLong && leadsToSongs(longPath) ? renameLongFileName(longPath, entry, names) : longPath;
    // Meanwhile a link may have taken its place.
    if (!path.isEmpty() && (!isLong || !isOutside(path, entry)))
        scanFiles(path);
}

void Index::scanFile(const QString &longPath, const FolderEntry &entry, LongNames &names)
{
    showPath(longPath);
    if (!checkFileExt(suffixOf(longPath)))
        return;
    if (isOutside(longPath, entry)) {
        reportOutside(longPath);
        return;
    }
    const QString path = renameLongFileName(longPath, entry, names);
    if (path.isEmpty())
        return;
    if (m_names.meet(path) && !m_reader.hasPath(pathSortKey(path.mid(m_root.size()))))
        m_names.addStranger(path);
    addFileToIndex(path);
    ++m_filesFound;
    m_run.setStep(m_filesFound);
    emit fileFoundChanged(m_filesFound);
}

/// True when a walk into \a folder, which is on the memory, would come upon a song. Each folder is
/// listed once in a run, however many of those above it ask.
bool Index::leadsToSongs(const QString &folder)
{
    if (m_folders.hasEntered(folder))
        return false;
    const QString identity = fileIdentity(folder);
    const auto known = m_songFolders.constFind(identity);
    if (known != m_songFolders.cend())
        return *known;
    // For the links that lead back to it.
    m_songFolders.insert(identity, false);
    m_run.pulse();
    if (m_run.isEnding())
        return false;
    const QList<FolderEntry> entries = visibleEntries(folder).entries;
    const auto leads = [this, &folder](const FolderEntry &entry) {
        const QString path = folder + u'/' + entry.name;
        if (entry.kind == FileKind::Regular)
            return checkFileExt(suffixOf(entry.name)) && !isOutside(path, entry);
        return entry.kind == FileKind::Folder && !isPlayersFolder(entry.name) &&
               !isOutside(path, entry) && leadsToSongs(path);
    };
    const bool areSongs = std::any_of(entries.cbegin(), entries.cend(), leads);
    m_songFolders.insert(identity, areSongs);
    return areSongs;
}

/// The player keeps folders of its own.
bool Index::isPlayersFolder(const QString &name) const
{
    return isSameName(name, m_sfxFolder) || isSameName(name, m_bridgeFolder);
}

/// A folder that is no link may be another disk.
bool Index::isOutside(const QString &path, const FolderEntry &entry) const
{
    return (entry.isLink || entry.kind == FileKind::Folder) && leavesRoot(path, m_root);
}

bool Index::checkFileExt(QStringView suffix)
{
    return isSongSuffix(suffix);
}

bool Index::addFileToIndex(const QString &full)
{
    if (getShortFileNamePath(full).isEmpty() || getShortFileNamePath(m_root).isEmpty()) {
        reportError(tr("File non importato, errore nel path:") + full);
        return false;
    }
    const QString path = full.right(full.size() - m_root.size());
    if (path.size() > SongInfoIndex::maxPath) {
        reportError(tr("File non importato, path troppo lungo: ") + full);
        return false;
    }
    if (!isAscii(path) && pathFromBytes(pathBytes(path)) != path)
        reportError(tr("Il nome ha caratteri che Brisel non conosce e la song non si può "
                       "aprire, rinominare il file o la sua cartella: ") +
                    full);
    // Songs are met in the order in which they were added, as a rule.
    if (m_expected < m_songs.size() && m_songs.at(m_expected).path == path) {
        meetKnownSong(m_expected, full, path);
        return true;
    }
    SongInfoIndex song;
    song.absolutePath = full;
    song.setPath(path);
    m_paths.enter(m_songs);
    const size_t hash = PathTable::pathHash(song);
    const qsizetype known = m_paths.find(m_songs, song, hash);
    if (known >= 0) {
        meetKnownSong(known, full, path);
        return true;
    }
    if (m_nextPosidx >= SongInfoIndex::maxSongs || m_nextId >= SongInfoIndex::idLimit) {
        reportError(tr("File non importato, memoria piena: ") + full);
        return false;
    }
    song.isMet = true;
    song.id = m_nextId++;
    song.posidx = m_nextPosidx++;
    m_paths.add(hash);
    m_songs.append(std::move(song));
    m_modified = true;
    return true;
}

/// The file \a full has the path of the song at \a position, which keeps its id.
void Index::meetKnownSong(qsizetype position, const QString &full, const QString &path)
{
    SongInfoIndex &known = m_songs[position];
    m_expected = position + 1;
    known.isMet = true;
    // Read back as Latin-1, a path with other characters may be that of another song now.
    if (!isAscii(known.path)) {
        known.date = 0;
        known.time = 0;
    }
    // Renamed in letter case only: on a memory that tells them apart the old name finds nothing, or
    // what is not on the memory.
    if (known.absolutePath != full && (fileKind(known.absolutePath) == FileKind::Missing ||
                                       leavesRoot(known.absolutePath, m_root))) {
        known.absolutePath = full;
        known.setPath(path);
        m_modified = true;
    }
}

QString Index::renameLongFileName(const QString &path, const FolderEntry &entry, LongNames &names)
{
    if (!LongNames::isLong(path))
        return path;
    const QString shortName = names.freeName(entry.name, entry.kind);
    if (!shortName.isEmpty()) {
        QString candidate = path.chopped(entry.name.size()) + shortName;
        const bool mayRename = this->mayRename(path, candidate);
        if (m_gone || m_run.isEnding())
            return {};
        // While the question was open a link may have taken its place.
        if (!mayRename)
            return leavesRoot(path, m_root) ? QString() : path;
        if (names.rename(m_renames, entry.name, shortName)) {
            reportNotice(tr("Rinominato: ") + path + QStringLiteral(" -> ") + candidate);
            return candidate;
        }
    }
    // No other will get its name either.
    if (isWriteProtected(m_root) || whyUnwritable(path, 0) == FileReason::notAllowed) {
        m_renameFailed = true;
        m_run.answerAll(Run::Question::Rename, false);
    }
    reportError(tr("File non importato, impossibile rinominare: ") + path);
    return {};
}

/// Asks where the user wants to be asked. Once the program is to end nobody has answered, whatever
/// the dialog says; and while it was open another memory may have taken the place of this one.
bool Index::mayRename(const QString &path, const QString &candidate)
{
    if (m_run.isAsking(Run::Question::Rename) && isSameMemory())
        m_memory.layMark();
    const bool isWanted =
        !m_gone && m_run.ask(Run::Question::Rename, path,
                             tr("verrà rinominato: ") + candidate + QStringLiteral("\n\n") +
                                 tr("Se il file non viene rinominato, è possibile che non venga "
                                    "rilevato da Brisel."));
    return isSameMemory() && isWanted;
}

/// For systems that keep a short name beside each long one; this one has none.
QString Index::getShortFileNamePath(const QString &path)
{
    return path;
}

QString Index::getLongFileNamePath(const QString &path)
{
    return path;
}
