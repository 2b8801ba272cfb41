#include "library/transferplan.h"

#include "base/fatfolder.h"
#include "base/filecomparison.h"
#include "base/filefailure.h"
#include "base/folderlock.h"
#include "base/graphicsfiles.h"
#include "index/comingnames.h"
#include "index/indexset.h"
#include "index/memoryreasons.h"
#include "index/volumes.h"
#include "library/copychecks.h"
#include "library/pulledmemories.h"
#include "library/songplaces.h"

#include <QFileInfo>

#include <utility>

namespace brisel
{

TransferPlan::TransferPlan(QStringList files, QString chosen)
    : m_files(std::move(files)), m_chosen(std::move(chosen)),
      m_room(std::make_unique<CopyRoom>(QString())), m_graphics(std::make_unique<GraphicsFiles>()),
      m_places(std::make_unique<SongPlaces>())
{
}

TransferPlan::~TransferPlan() = default;

Transfer::Outcome TransferPlan::run(Run &run)
{
    const FolderLock lock(getRootDrivePath(m_chosen), FolderLock::Kind::Shared);
    if (lock.isBusy())
        return Transfer::Outcome::InUse;
    const auto [outcome, folder] = Transfer::plannedDestinationOf(m_chosen);
    if (outcome != Transfer::Outcome::Done)
        return outcome;
    m_folder = folder;
    m_root = getRoot(folder);
    m_memory = MemoryIdentity(m_root);
    m_present = fileKind(folder) == FileKind::Folder ? folder : m_root;
    m_room = std::make_unique<CopyRoom>(m_present);
    m_places->begin(m_root);
    run.begin(
        {tr("Piano del trasferimento"), tr("Confronto con la memoria..."), int(m_files.size())});
    const bool isDone = compareFiles(run, m_files);
    if (isDone) {
        readNames(run);
        update();
    }
    run.end();
    return isDone ? Transfer::Outcome::Done : Transfer::Outcome::Failed;
}

/// Returns false if the user has interrupted the run or the memory was pulled.
bool TransferPlan::compareFiles(Run &run, const QStringList &files)
{
    PulledMemories memories;
    (void)memories.pulledFrom(m_folder); // remembers it
    for (const QString &source : files)
        m_sources.insert(fileIdentity(source));
    for (const QString &source : files) {
        if (!run.mayGoOn())
            return false;
        Song song = look(run, source);
        song.isWanted = !song.failure.has_value();
        m_songs.append(std::move(song));
        run.setStep(int(m_songs.size()));
        run.processEvents();
        if (!memories.pulledFrom(m_folder).isEmpty()) {
            run.report().addShared(RunReport::Step::Copy, m_root, MemoryReason::gone);
            return false;
        }
    }
    return run.mayGoOn();
}

TransferPlan::Song TransferPlan::look(Run &run, const QString &source)
{
    Song song{source};
    song.place = m_places->placeOf(source, CopyChecks::destinationOf(source, m_folder), run);
    song.newPath = song.place;
    song.bytes = QFileInfo(source).size();
    song.there = fileState(song.place);
    QList<CopyRoom::Need> needs;
    const bool isThere = song.there.kind != FileKind::Missing;
    if (isThere && fileKind(source) != FileKind::Missing &&
        CopyChecks::isSamePath(source, song.place)) {
        song.isSame = true;
    } else {
        const QString companion = m_graphics->companionOf(source);
        song.failure = whyFailed(song);
        song.isSame = isThere && !song.failure.has_value() && hasSameContent(run, song, companion);
        needs.append(m_room->needOf(source, song.place));
        if (!companion.isEmpty()) {
            song.bytes += QFileInfo(companion).size();
            needs.append(m_room->needOf(companion, graphicsPath(song.place)));
        }
    }
    m_needs.append(needs);
    return song;
}

std::optional<Reason> TransferPlan::whyFailed(const Song &song) const
{
    if (const auto reason = CopyChecks::whyHopeless(song.source, song.place, m_sources))
        return reason;
    if (const auto reason = CopyChecks::whyNotOpened(song.source))
        return reason;
    const Reason reason = whyUnwritableIn(m_present, 0);
    return reason == FileReason::unwritable ? std::nullopt : std::optional(reason);
}

/// Graphics that are missing on the memory are something to do.
bool TransferPlan::hasSameContent(Run &run, const Song &song, const QString &companion) const
{
    if (!companion.isEmpty() && !isRegularFile(graphicsPath(song.place)))
        return false;
    return haveSameContent(song.source, song.place, [&run] {
        run.pulse();
        return run.mayGoOn();
    });
}

void TransferPlan::readNames(Run &run)
{
    m_names = std::make_unique<ComingNames>(m_root, m_folder, run);
    QList<ComingNames::Song> names;
    for (const Song &song : std::as_const(m_songs)) {
        const QString companion = m_graphics->companionOf(song.source);
        names.append(
            {QFileInfo(song.place).fileName(),
             companion.isEmpty() ? QString() : QFileInfo(graphicsPath(song.place)).fileName()});
    }
    m_names->setSongs(names);
}

bool TransferPlan::isTickable(qsizetype number) const
{
    const Outcome outcome = m_songs.at(number).outcome;
    return outcome != Outcome::Same && outcome != Outcome::Failed;
}

void TransferPlan::tick(const QList<qsizetype> &numbers, bool isWanted)
{
    for (const qsizetype number : numbers) {
        if (isTickable(number))
            m_songs[number].isWanted = isWanted;
    }
    update();
}

/// What depends on the ticks.
void TransferPlan::update()
{
    updatePlaces();
    updateRoom();
    updateNames();
    m_counts.clear();
    for (const Song &song : std::as_const(m_songs))
        ++m_counts[song.outcome];
}

bool TransferPlan::isTicked(qsizetype number) const
{
    return m_songs.at(number).isWanted && isTickable(number);
}

/// Ticked files of one name replace each other in their order.
void TransferPlan::updatePlaces()
{
    QHash<QString, qsizetype> copied;
    const bool isFat = isOnFat(m_present);
    for (qsizetype i = 0; i < m_songs.size(); ++i) {
        Song &song = m_songs[i];
        const QString key = isFat ? song.place.toLower() : song.place;
        song.replaced = copied.value(key, -1);
        if (song.failure.has_value())
            song.outcome = Outcome::Failed;
        else if (song.replaced >= 0)
            song.outcome = Outcome::ReplacesSong;
        else if (song.isSame)
            song.outcome = Outcome::Same;
        else
            song.outcome = song.there.kind == FileKind::Missing ? Outcome::New : Outcome::Replaces;
        if (isTicked(i))
            copied.insert(key, i);
    }
}

/// A file that does not fit leaves its room for smaller ones.
void TransferPlan::updateRoom()
{
    m_ticked = 0;
    m_bytes = 0;
    for (qsizetype i = 0; i < m_songs.size(); ++i) {
        m_ticked += isTicked(i) ? 1 : 0;
        m_bytes += isTicked(i) ? m_songs.at(i).bytes : 0;
    }
    const qint64 reserve = IndexSet::roomForUpdate(m_root, m_ticked);
    CopyRoom used = *m_room;
    used.restart(reserve);
    m_room->restart(reserve);
    for (qsizetype i = 0; i < m_songs.size(); ++i) {
        if (!isTicked(i))
            continue;
        const bool fits = used.fits(m_needs.at(i));
        for (const CopyRoom::Need &need : m_needs.at(i)) {
            m_room->add(need);
            if (fits)
                used.add(need);
        }
        if (!fits)
            m_songs[i].outcome = Outcome::NoRoom;
    }
}

void TransferPlan::updateNames()
{
    QList<bool> comes;
    for (qsizetype i = 0; i < m_songs.size(); ++i)
        comes.append(isTicked(i));
    m_names->predict(comes);
    m_shortened = 0;
    for (qsizetype i = 0; i < m_songs.size(); ++i) {
        Song &song = m_songs[i];
        song.newPath = comes.at(i) ? m_names->pathOf(i) : song.place;
        m_shortened += comes.at(i) && !m_names->renameOf(i).to.isEmpty() ? 1 : 0;
    }
}

PlannedCopies TransferPlan::copies() const
{
    PlannedCopies copies;
    copies.folder = m_folder;
    copies.memory = m_memory;
    for (const ComingNames::Rename &rename : m_names->folders())
        copies.renames.append({rename.from, rename.to});
    for (qsizetype i = 0; i < m_songs.size(); ++i) {
        const Song &song = m_songs.at(i);
        if (!isTicked(i))
            continue;
        copies.files.append(song.source);
        copies.places.append(song.place);
        if (song.there.kind != FileKind::Missing || song.replaced >= 0)
            copies.replacements.append({song.source, song.place, song.there});
        const ComingNames::Rename rename = m_names->renameOf(i);
        if (!rename.to.isEmpty())
            copies.renames.append({rename.from, rename.to});
    }
    return copies;
}

} // namespace brisel
