#include "index/index.h"

#include "base/fileidentity.h"
#include "base/filewriting.h"
#include "base/lettercase.h"
#include "base/runguard.h"
#include "index/entrylist.h"
#include "index/longnames.h"

#include <QFileInfo>

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

void Index::scanFiles(const QString &longFolder)
{
    const QString folder = renameLongFileName(longFolder);
    const QString identity = fileIdentity(folder);
    // A link to a folder above would lead round for ever.
    if (folder.isEmpty() || m_visitedFolders.contains(identity))
        return;
    m_visitedFolders.insert(identity);
    for (const FolderEntry &entry : visibleEntries(folder)) {
        if (RunGuard::endRequested())
            return;
        const QString path = folder + u'/' + entry.name;
        if (entry.kind == FileKind::Regular)
            scanFile(path);
        else if (!isSameName(entry.name, m_sfxFolder) && !isSameName(entry.name, m_bridgeFolder))
            scanFiles(path);
    }
}

void Index::scanFile(const QString &longPath)
{
    emit currentPathChanged(longPath);
    if (!checkFileExt(suffixOf(longPath)))
        return;
    const QString path = renameLongFileName(longPath);
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
    // Read back as Latin-1, a path with other characters may be that of another song now.
    if (!isAscii(known.path)) {
        known.date = 0;
        known.time = 0;
    }
    // Renamed in letter case only: on a memory that tells them apart the old name finds nothing.
    if (known.absolutePath != full && fileKind(known.absolutePath) == FileKind::Missing) {
        known.absolutePath = full;
        known.setPath(path);
        m_modified = true;
    }
}

QString Index::renameLongFileName(const QString &path)
{
    if (isSameName(path, m_root) || !LongNames::isLong(path))
        return path;
    QString candidate = LongNames::freeShortPath(path);
    if (!candidate.isEmpty()) {
        if (m_askRename && !RunGuard::endRequested())
            askRename(path, candidate);
        // Once the program is to end nobody has answered, whatever the dialog says.
        if (RunGuard::endRequested())
            return {};
        if (!m_doRename)
            return path;
        if (LongNames::rename(path, candidate)) {
            m_renamedIn.insert(QFileInfo(candidate).path());
            return candidate;
        }
    }
    emit errorFromIndex(tr("File non importato, impossibile rinominare: ") + path);
    return {};
}

/// The new names reach the disk before an index that tells them.
bool Index::flushRenames()
{
    return std::all_of(m_renamedIn.cbegin(), m_renamedIn.cend(), flushFolder);
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
