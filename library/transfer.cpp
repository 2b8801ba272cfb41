#include "library/transfer.h"

#include "base/filecomparison.h"
#include "base/filefailure.h"
#include "base/fileidentity.h"
#include "base/flushing.h"
#include "base/folderlock.h"
#include "base/memoryidentity.h"
#include "index/givennames.h"
#include "index/index.h"
#include "index/indexset.h"
#include "index/memoryreasons.h"
#include "index/volumes.h"
#include "library/filecopier.h"
#include "library/transferplan.h"
#include "library/workflowlog.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <utility>

namespace brisel
{

static const QString songsName = QStringLiteral("songs");

static bool isReserved(const QString &folderName)
{
    for (const QString &reserved :
         {QStringLiteral("SFX"), QStringLiteral("BRIDGE"), QStringLiteral("PLAYLIST")}) {
        if (folderName.compare(reserved, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

Transfer::Destination Transfer::plannedDestinationOf(const QString &chosen)
{
    QString folder = QDir::cleanPath(chosen);
    if (isSystemDisk(folder))
        return {Outcome::SystemDisk, folder};
    if (isRoot(folder)) {
        const bool isMemory = fileKind(folder) == FileKind::Folder;
        folder += u'/' + songsName;
        const bool isFree = isMemory && !entryExists(folder) && !isWriteProtected(chosen);
        if (!isFree && !QFileInfo(folder).isDir())
            return {Outcome::NoSongsFolder, folder};
        // "songs" may be a link that leads off the memory.
        if (isSystemDisk(folder))
            return {Outcome::SystemDisk, folder};
    }
    if (isReserved(folder.mid(folder.lastIndexOf(u'/') + 1)))
        return {Outcome::ReservedFolder, folder};
    return {Outcome::Done, folder};
}

Transfer::Destination Transfer::destinationOf(const QString &chosen)
{
    Destination planned = plannedDestinationOf(chosen);
    if (planned.outcome != Outcome::Done || !isRoot(QDir::cleanPath(chosen)) ||
        QFileInfo(planned.folder).isDir())
        return planned;
    const QDir memory(QDir::cleanPath(chosen));
    if (!memory.mkdir(songsName))
        return {Outcome::NoSongsFolder, planned.folder};
    // The songs could reach a FAT disk before the beginning of their folder.
    (void)flushFolder(memory.path());
    return planned;
}

Transfer::Transfer(QStringList files, QString chosen)
    : m_copies{std::move(files)}, m_chosen(std::move(chosen))
{
}

Transfer::Transfer(const TransferPlan &plan) : m_copies(plan.copies()), m_chosen(plan.chosen()) {}

Transfer::Outcome Transfer::run(Run &run)
{
    // The user agreed to a plan for one memory.
    if (!m_copies.folder.isEmpty() && !m_copies.memory.isThere()) {
        run.report().add(RunReport::Step::Copy, getRoot(m_chosen), MemoryReason::gone);
        return Outcome::Failed;
    }
    const FolderLock lock(getRootDrivePath(m_chosen), FolderLock::Kind::Exclusive);
    if (lock.isBusy()) {
        run.report().add(RunReport::Step::Copy, getRoot(m_chosen), MemoryReason::inUse);
        return Outcome::InUse;
    }
    const auto [outcome, folder] = destinationOf(m_chosen);
    if (outcome == Outcome::NoSongsFolder)
        run.report().add(RunReport::Step::Copy, folder, whyUnwritable(folder, 1));
    if (outcome != Outcome::Done)
        return outcome;
    return send(run, folder) ? Outcome::Done : Outcome::Failed;
}

bool Transfer::send(Run &run, const QString &folder)
{
    logBanner("TRASFERIMENTO FILE");
    run.begin({tr("Trasferimento"), tr("Trasferimento file..."), int(m_copies.files.size())});
    const QString root = getRoot(folder);
    const MemoryIdentity memory(root);
    FileCopier copier(run);
    // Room for the new index, too: songs without an index are useless.
    copier.setMemory(root, IndexSet::roomForUpdate(root, m_copies.files.size()));
    // Otherwise the memory is not as the plan found it.
    if (folder == m_copies.folder) {
        answerAsPlanned(run);
        copier.setPlaces(m_copies.places);
    }
    const bool areAllCopied = copier.copyFiles(m_copies.files, folder);
    m_placed = copier.placed();
    m_shortage = copier.shortage();
    m_speed = copier.speed();
    run.end();
    if (copier.copied() == 0)
        return areAllCopied;
    // The mount folder of a memory that was pulled may still be there.
    if (!memory.isThere()) {
        run.report().add(RunReport::Step::Index, root, MemoryReason::gone);
        return false;
    }
    // The player can't use the copied songs without the index.
    return updateIndex(run, folder) && areAllCopied;
}

QStringList Transfer::placesThere(Run &run) const
{
    GivenNames names;
    names.setRoot(getRoot(m_chosen));
    (void)names.load(); // without them only songs that the index renamed are not found
    QStringList places(m_placed.size());
    QList<qsizetype> unsure;
    QSet<QString> taken;
    for (qsizetype file = m_placed.size() - 1; file >= 0; --file) {
        const PlacedSong &song = m_placed.at(file);
        if (song.state == PlacedSong::State::Missing)
            continue;
        places[file] = names.placeOf(song.place);
        // Of two copies in one place, the last one is there.
        if (song.state == PlacedSong::State::Kept || taken.contains(song.place.toLower()))
            unsure.prepend(file);
        else
            taken.insert(song.place.toLower());
    }
    if (!unsure.isEmpty())
        compare(run, unsure, places);
    return places;
}

/// Clears the \a places of those \a files that have another content.
void Transfer::compare(Run &run, const QList<qsizetype> &files, QStringList &places) const
{
    run.begin({tr("Trasferimento"), tr("Confronto delle song..."), int(files.size())});
    const auto mayGoOn = [&run] {
        run.processEvents();
        return run.mayGoOn();
    };
    int done = 0;
    for (const qsizetype file : files) {
        if (!mayGoOn() || !haveSameContent(m_copies.files.at(file), places.at(file), mayGoOn))
            places[file].clear();
        run.setStep(++done);
    }
    run.end();
}

void Transfer::answerAsPlanned(Run &run) const
{
    for (const PlannedCopies::Replacement &replacement : m_copies.replacements) {
        if (fileState(replacement.place) == replacement.there)
            run.prepareYes(Run::Question::Replace, replacement.place, replacement.source);
    }
    for (const PlannedCopies::Rename &rename : m_copies.renames)
        run.prepareYes(Run::Question::Rename, rename.from, rename.to);
}

bool Transfer::updateIndex(Run &run, const QString &path)
{
    const QString root = getRoot(path);
    if (!QFileInfo::exists(root)) {
        run.report().add(RunReport::Step::Index, root, MemoryReason::gone);
        return false;
    }
    run.begin({tr("Aggiornamento"), tr("Aggiornamento database..."), 0, false});
    Index index(run);
    const bool isComplete = index.updateIndex(root);
    if (!isComplete)
        run.report().add(RunReport::Step::Index, root, index.failure());
    run.end();
    return isComplete;
}

} // namespace brisel
