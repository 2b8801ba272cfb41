#include "library/filecopier.h"

#include "base/debugstream.h"
#include "base/filefailure.h"
#include "base/fileidentity.h"
#include "index/memoryreasons.h"
#include "library/backuplist.h"
#include "library/copychecks.h"
#include "library/copyroom.h"
#include "library/numberednames.h"
#include "library/safecopy.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace brisel
{

namespace
{

Reason whyNotCopied(CopyResult result, const QString &source, const QString &destination)
{
    if (const std::optional<Reason> reason = CopyChecks::whyNotOpened(source))
        return *reason;
    return result == CopyResult::SourceFailed
               ? FileReason::truncated
               : whyUnwritable(destination, QFileInfo(source).size());
}

} // namespace

void FileCopier::setMemory(const QString &root, qint64 reserve)
{
    m_lot.setMemory(root);
    m_memory = root;
    m_reserve = reserve;
}

bool FileCopier::copyFiles(const QStringList &files, const QString &destDir)
{
    begin(files, destDir);
    findPlaces(files);
    if (!hasRoom(files))
        return false;
    countBytes(files);
    const bool isDone = copyEach(files);
    m_run.hideSpace();
    return isDone;
}

void FileCopier::begin(const QStringList &files, const QString &destDir)
{
    m_copied = 0;
    m_errors = 0;
    m_graphics = GraphicsFiles();
    m_firstLot.invalidate();
    m_isMeasured = false;
    m_speed = 0;
    m_shortage.clear();
    m_placed = QList<PlacedSong>(files.size());
    m_sources.clear();
    m_memories = PulledMemories();
    m_destination = destDir;
    for (const QString &source : files) {
        m_sources.insert(fileIdentity(source));
        pulledMemory(source);
    }
}

bool FileCopier::copyEach(const QStringList &files)
{
    int processed = 0;
    for (const QString &source : files) {
        if (!m_run.mayGoOn()) {
            finishLot();
            noteFilesLeft(files, processed);
            m_copied = 0;
            return false;
        }
        showSpace(processed);
        if (copyOne(source, processed++)) {
            m_run.setStep(processed);
            m_run.processEvents();
        }
    }
    finishLot();
    if (m_memories.pulledFrom(m_destination).isEmpty())
        m_songPlaces.remember();
    return m_errors == 0 && m_run.mayGoOn();
}

/// Returns false if the song is not copied: it exists, is not wanted, or its memory was removed.
bool FileCopier::copyOne(const QString &source, qsizetype number)
{
    PlacedSong &placed = m_placed[number];
    const QString place = placed.place = m_places.at(number);
    if (!pulledMemory(source).isEmpty()) {
        finishLot();
        note(source, MemoryReason::gone);
        ++m_errors;
        return false;
    }
    if (fileKind(source) != FileKind::Missing && CopyChecks::isSamePath(source, place)) {
        m_run.report().count(RunReport::Success::Copied);
        ++m_copied;
        placed.state = PlacedSong::State::There;
        return false;
    }
    debug() << "Copying file:" << source << "to:" << place;
    if (m_lot.isFull() || m_lot.holds(place))
        finishLot();
    if (!mayCopyTo(source, place)) {
        placed.state = PlacedSong::State::Kept;
        return false;
    }
    if (!m_firstLot.isValid())
        m_firstLot.start();
    copySong({source, place, number});
    return true;
}

/// Returns false, reported, if a file at \a place must stay.
bool FileCopier::mayCopyTo(const QString &source, const QString &place)
{
    if (m_isNumbered && entryExists(place)) {
        note(source, FileCopier::alreadyThere);
        ++m_errors;
        return false;
    }
    if (fileKind(place) == FileKind::Missing || CopyChecks::whyHopeless(source, place, m_sources) ||
        mayOverwrite(source, place))
        return true;
    note(source, Run::isEnding() ? Run::interrupted : FileCopier::kept);
    return false;
}

/// Finds the destination of each file.
void FileCopier::findPlaces(const QStringList &files)
{
    m_songPlaces.begin(m_memory);
    m_places = m_plannedPlaces;
    if (!m_places.isEmpty())
        return;
    if (m_list != nullptr || m_isNumbered) {
        const QStringList taken = m_isNumbered
                                      ? QDir(m_destination)
                                            .entryList(QDir::AllEntries | QDir::Hidden |
                                                           QDir::System | QDir::NoDotAndDotDot,
                                                       QDir::Unsorted)
                                      : QStringList(BackupList::fileName());
        const QStringList names = numberedNames(files, taken);
        for (const QString &name : names)
            m_places.append(m_destination + u'/' + name);
        return;
    }
    for (const QString &source : files)
        m_places.append(
            m_songPlaces.placeOf(source, CopyChecks::destinationOf(source, m_destination), m_run));
}

/// Checks first whether all files fit: the sizes of new files, and the growth of replaced ones.
bool FileCopier::hasRoom(const QStringList &files)
{
    CopyRoom room(m_destination, m_reserve);
    for (qsizetype i = 0; i < files.size(); ++i) {
        const QString &place = m_places.at(i);
        if (CopyChecks::isSamePath(files.at(i), place))
            continue;
        room.add(room.needOf(files.at(i), place));
        if (const QString companion = m_graphics.companionOf(files.at(i)); !companion.isEmpty())
            room.add(room.needOf(companion, graphicsPath(place)));
    }
    m_shortage = room.shortage();
    if (m_shortage.isEmpty())
        return true;
    m_run.report().addMessage(m_shortage + u' ' + m_destination);
    return false;
}

/// Stores the sizes of the songs with their graphics files.
void FileCopier::countBytes(const QStringList &files)
{
    m_bytes.clear();
    m_bytesLeft = 0;
    for (const QString &source : files) {
        qint64 bytes = 0;
        if (!CopyChecks::isSamePath(source, m_places.at(m_bytes.size()))) {
            bytes = QFileInfo(source).size();
            if (const QString companion = m_graphics.companionOf(source); !companion.isEmpty())
                bytes += QFileInfo(companion).size();
        }
        m_bytes.append(bytes);
        m_bytesLeft += bytes;
    }
}

/// Called before the file \a next is copied.
void FileCopier::showSpace(int next)
{
    m_run.showSpace(m_destination, m_bytesLeft);
    m_bytesLeft -= m_bytes.at(next);
}

void FileCopier::noteFilesLeft(const QStringList &files, int first)
{
    for (const QString &source : files.mid(first))
        note(source, Run::interrupted);
}

void FileCopier::note(const QString &path, Reason reason)
{
    const QString memory = reason.isSkip() ? QString() : pulledMemory(path);
    const RunReport::Step step =
        reason == FileReason::missing ? RunReport::Step::Find : RunReport::Step::Copy;
    if (memory.isEmpty())
        m_run.report().add(step, path, reason);
    else
        m_run.report().addShared(RunReport::Step::Copy, memory, MemoryReason::gone);
}

/// The memory of \a source, or of the destination, if it was pulled since the run began.
QString FileCopier::pulledMemory(const QString &source)
{
    const QString memory = m_memories.pulledFrom(m_destination);
    return memory.isEmpty() ? m_memories.pulledFrom(source) : memory;
}

void FileCopier::noteCopy(CopyResult result, const QString &source, const QString &destination)
{
    if (result != CopyResult::Done)
        note(source, whyNotCopied(result, source, destination));
}

bool FileCopier::mayOverwrite(const QString &source, const QString &destination)
{
    if (m_run.isAsking(Run::Question::Replace, destination, source))
        finishLot();
    return m_run.ask(Run::Question::Replace, destination, {}, source);
}

void FileCopier::copySong(Song song)
{
    if (const std::optional<Reason> reason =
            CopyChecks::whyHopeless(song.source, song.place, m_sources)) {
        note(song.source, *reason);
        ++m_errors;
        return;
    }
    if (!copyFile(song, song.source, song.place, song.isStaged)) {
        ++m_errors;
        return;
    }
    song.isThere = true;
    song.companion = m_graphics.companionOf(song.source);
    if (!song.companion.isEmpty()) {
        song.companionPlace = graphicsPath(song.place);
        // An empty one was left by a cut; the graphics of a song with a given name were sent with
        // it before.
        const bool isOwn = song.place != CopyChecks::destinationOf(song.source, m_destination);
        const bool isFree = !entryExists(song.companionPlace) ||
                            (!m_isNumbered && isRegularFile(song.companionPlace) &&
                             (isOwn || QFileInfo(song.companionPlace).size() == 0));
        if (isFree && !m_lot.holds(song.companionPlace)) {
            song.hasFailed =
                !copyFile(song, song.companion, song.companionPlace, song.isCompanionStaged) ||
                song.hasFailed;
        } else {
            note(song.companion, FileCopier::alreadyThere);
            song.hasFailed = true;
        }
    }
    if (song.isStaged || song.isCompanionStaged)
        m_staged.append(song);
    else
        finishSong(song);
}

/// Stages a copy of \a source, the song itself or its graphics file; if the lot uses the room for
/// it, copies it at once. Returns false, reported, on failure.
bool FileCopier::copyFile(Song &song, const QString &source, const QString &place, bool &isStaged)
{
    const bool isNew = m_isNumbered || fileKind(place) == FileKind::Missing;
    CopyResult result = isNew || isRegularFile(place) ? copyIntoLot(m_lot, source, {place, isNew})
                                                      : CopyResult::TargetFailed;
    isStaged = result == CopyResult::Done;
    if (result == CopyResult::TargetFailed) {
        finishLot(&song);
        result = isNew ? copyToNewFile(source, place) : copyOverFile(source, place);
    }
    if (result == CopyResult::Done && !isStaged && !addToList(source, place))
        result = CopyResult::SourceFailed;
    noteCopy(result, source, place);
    return result == CopyResult::Done;
}

/// Commits the copies, and counts and reports them. The song \a current may already be in the lot
/// while its graphics file is copied.
void FileCopier::finishLot(Song *current)
{
    const QList<Song> songs = std::exchange(m_staged, {});
    const qint64 bytes = m_lot.bytes();
    const QList<WriteResult> results = m_lot.commit();
    measure(bytes);
    auto result = results.cbegin();
    for (Song song : songs) {
        if (song.isStaged)
            finishFile(song, song.source, song.place, *result++);
        if (song.isCompanionStaged)
            finishFile(song, song.companion, song.companionPlace, *result++);
        finishSong(song);
    }
    if (current != nullptr && std::exchange(current->isStaged, false))
        finishFile(*current, current->source, current->place, *result);
}

/// Keeps the speed of the first lot, which had \a bytes. The flush of fewer takes longer than
/// writing them.
void FileCopier::measure(qint64 bytes)
{
    constexpr qint64 fewest = 1 << 20;
    constexpr qint64 msPerSecond = 1000;
    if (std::exchange(m_isMeasured, m_firstLot.isValid()) || bytes < fewest)
        return;
    m_speed = bytes * msPerSecond / std::max<qint64>(m_firstLot.elapsed(), 1);
}

void FileCopier::finishFile(Song &song, const QString &source, const QString &place,
                            WriteResult result)
{
    const bool isThere = result == WriteResult::Done;
    if (isThere && addToList(source, place))
        return;
    noteCopy(isThere ? CopyResult::SourceFailed : CopyResult::TargetFailed, source, place);
    song.isThere = song.isThere && source != song.source;
    song.hasFailed = true;
}

/// Returns false if the copy at \a place can't be read for the list of a backup.
bool FileCopier::addToList(const QString &source, const QString &place)
{
    return m_list == nullptr || m_list->add(source, place);
}

void FileCopier::finishSong(const Song &song)
{
    if (song.isThere)
        m_placed[song.number].state = PlacedSong::State::There;
    if (song.hasFailed) {
        ++m_errors;
        return;
    }
    m_run.report().count(RunReport::Success::Copied);
    ++m_copied;
}

} // namespace brisel
