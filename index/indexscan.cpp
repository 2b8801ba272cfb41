#include "index/index.h"

#include "base/filefailure.h"
#include "base/fileidentity.h"
#include "base/flushing.h"
#include "base/folderhandle.h"
#include "base/lettercase.h"
#include "base/runguard.h"
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
    const QString identity = fileIdentity(folder);
    // A link to a folder above would lead round for ever.
    if (m_visitedFolders.contains(identity))
        return;
    m_visitedFolders.insert(identity);
    LongNames names(folder);
    for (const FolderEntry &entry : visibleEntries(folder)) {
        if (m_gone || RunGuard::endRequested())
            return;
        const QString longPath = folder + u'/' + entry.name;
        if (entry.kind == FileKind::Regular) {
            scanFile(longPath, entry, names);
        } else if (!isSameName(entry.name, m_sfxFolder) &&
                   !isSameName(entry.name, m_bridgeFolder)) {
            const QString path = renameLongFileName(longPath, entry, names);
            if (!path.isEmpty())
                scanFiles(path);
        }
    }
}

void Index::scanFile(const QString &longPath, const FolderEntry &entry, LongNames &names)
{
    emit currentPathChanged(longPath);
    if (!checkFileExt(suffixOf(longPath)))
        return;
    const QString path = renameLongFileName(longPath, entry, names);
    if (path.isEmpty())
        return;
    addFileToIndex(path);
    ++m_filesFound;
    emit fileFoundChanged(m_filesFound);
}

bool Index::checkFileExt(QStringView suffix)
{
    static constexpr QStringView suffixes[]{u"MID", u"KAR", u"ZB3", u"ZB4", u"ZB5", u"MP3"};
    return std::any_of(std::cbegin(suffixes), std::cend(suffixes), [suffix](QStringView known) {
        return suffix.compare(known, Qt::CaseInsensitive) == 0;
    });
}

bool Index::addFileToIndex(const QString &full)
{
    if (getShortFileNamePath(full).isEmpty() || getShortFileNamePath(m_root).isEmpty()) {
        emit errorFromIndex(tr("File non importato, errore nel path:") + full);
        return false;
    }
    const QString path = full.right(full.size() - m_root.size());
    if (path.size() > SongInfoIndex::maxPath) {
        emit errorFromIndex(tr("File non importato, path troppo lungo: ") + full);
        return false;
    }
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
    if (m_nextPosidx >= SongInfoIndex::maxSongs || m_nextId == SongInfoIndex::deletedId) {
        emit errorFromIndex(tr("File non importato, memoria piena: ") + full);
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
    // A folder that is no link may be another disk.
    if ((entry.isLink || entry.kind == FileKind::Folder) && leavesRoot(path, m_root)) {
        emit errorFromIndex(tr("File non importato, si trova fuori dalla memoria: ") + path);
        return {};
    }
    if (!LongNames::isLong(path))
        return path;
    const QString shortName = names.freeName(entry.name, entry.kind);
    if (!shortName.isEmpty()) {
        QString candidate = path.chopped(entry.name.size()) + shortName;
        const bool mayRename = this->mayRename(path, candidate);
        if (m_gone || RunGuard::endRequested())
            return {};
        // While the question was open a link may have taken its place.
        if (!mayRename)
            return leavesRoot(path, m_root) ? QString() : path;
        if (names.rename(m_renames, entry.name, shortName))
            return candidate;
    }
    // No other will get its name either.
    if (isWriteProtected(m_root) || whyUnwritable(path, 0) == RunReport::Reason::NotAllowed) {
        m_renameFailed = true;
        m_askRename = false;
        m_doRename = false;
    }
    emit errorFromIndex(tr("File non importato, impossibile rinominare: ") + path);
    return {};
}

/// Asks where the user wants to be asked. Once the program is to end nobody has answered, whatever
/// the dialog says; and while it was open another memory may have taken the place of this one.
bool Index::mayRename(const QString &path, const QString &candidate)
{
    if (m_askRename && !RunGuard::endRequested() && isSameMemory()) {
        m_memory.layMark();
        askRename(path, candidate);
    }
    return isSameMemory() && m_doRename;
}

void Index::askRename(const QString &path, const QString &candidate)
{
    enum Answer { Yes = 0, YesToAll = 1, No = 2, NoToAll = 3 };
    const int answer =
        m_question(path, tr("verrà rinominato: ") + candidate + QStringLiteral("\n\n") +
                             tr("Se il file non viene rinominato, è possibile che non venga "
                                "rilevato da Brisel."));
    m_doRename = answer == Yes || answer == YesToAll;
    m_askRename = answer == Yes || answer == No;
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
