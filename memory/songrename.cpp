#include "memory/songrename.h"

#include "base/bytes.h"
#include "base/filefailure.h"
#include "base/fileidentity.h"
#include "index/chosennames.h"
#include "index/givennames.h"
#include "index/indexrecords.h"
#include "index/longnames.h"
#include "index/songinfoindex.h"
#include "memory/indexafterchange.h"
#include "memory/memoryclaim.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace brisel
{

namespace
{

/// \a character, or its number if it can't be shown.
QString shown(const QString &character)
{
    const QList<uint> code = character.toUcs4();
    return code.isEmpty() || QChar::isPrint(code.first())
               ? character
               : QString::asprintf("U+%04X", code.first());
}

} // namespace

SongRename::SongRename(const QString &root, const MemoryContents &contents, const QString &path,
                       const SongFiles::Place &place)
    : m_root(root), m_contents(contents),
      m_folder(QFileInfo(place.problem ? path : place.path).path()),
      m_name(QFileInfo(place.problem ? path : place.path).fileName()), m_obstacle(place.problem),
      m_companion(LongNames(m_folder).companionOf(m_name))
{
    const QString folder = m_folder.mid(m_root.size());
    if (!m_obstacle && pathFromBytes(pathBytes(folder)) != folder)
        m_obstacle = unknownFolder;
    const QStringList entries = QDir(m_folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QString &entry : entries) {
        if (entry != m_name && entry != m_companion)
            m_taken.insert(foldedText(entry));
    }
    findNamesOfPlaylists();
}

QString SongRename::base() const
{
    return m_name.chopped(suffix().size());
}

QString SongRename::suffix() const
{
    return m_name.mid(m_name.lastIndexOf(u'.'));
}

/// A file that got the path of a missing song would be played in its place.
void SongRename::findNamesOfPlaylists()
{
    const QByteArray own = pathSortKey(m_folder.mid(m_root.size()) + u'/' + m_name);
    QSet<QByteArray> paths;
    for (const MemoryContents::Playlist &playlist : m_contents.playlists()) {
        for (qsizetype at = 0; fits(playlist.songs, at, IndexRecord::size);
             at += IndexRecord::size) {
            const qsizetype song = m_contents.positionOf(be32At(playlist.songs, at));
            paths.insert(song < 0 ? fieldAt(playlist.paths, at, PathRecord::pathWidth)
                                  : m_contents.pathBytes(song));
        }
    }
    for (const QByteArray &path : std::as_const(paths))
        m_promised.insert(pathSortKey(pathFromBytes(path)));
    m_promised.remove(own);
}

QString SongRename::problem(const QString &base) const
{
    const QString wrong = shown(ChosenNames::wrongCharacter(base));
    switch (ChosenNames::problemOf(base)) {
    case ChosenNames::Problem::None:
        break;
    case ChosenNames::Problem::Empty:
        return tr("Scrivere un nome");
    case ChosenNames::Problem::TooLong:
        return tr("Il nome può avere al massimo %1 caratteri").arg(ChosenNames::longest);
    case ChosenNames::Problem::Forbidden:
        return tr("In un nome non è permesso il carattere «%1»").arg(wrong);
    case ChosenNames::Problem::NotInPlayer:
        return tr("Brisel non conosce il carattere «%1»").arg(wrong);
    case ChosenNames::Problem::Edge:
        return tr("Il nome non può cominciare o finire con uno spazio");
    case ChosenNames::Problem::Reserved:
        return tr("Questo nome è riservato ai sistemi operativi");
    }
    return problemOfPlace(base);
}

/// The same for a name that is possible in other folders.
QString SongRename::problemOfPlace(const QString &base) const
{
    const QString name = newName(base);
    const QString below = m_folder.mid(m_root.size()) + u'/' + name;
    const QString companion =
        m_companion.isEmpty() ? QString() : base + m_companion.mid(m_companion.lastIndexOf(u'.'));
    if (name == m_name)
        return tr("La song ha già questo nome");
    if (m_taken.contains(foldedText(name)) || m_taken.contains(foldedText(companion)))
        return tr("Nella cartella c'è già un file con questo nome");
    if (below.size() > SongInfoIndex::maxPath)
        return tr("Il percorso della song sulla memoria sarebbe troppo lungo");
    if (m_promised.contains(pathSortKey(below)))
        return tr("Una playlist contiene ancora una song cancellata con questo nome");
    return {};
}

SongRename::Outcome SongRename::run(Run &run, MemoryClaim &claim, const QString &base)
{
    const QString path = m_folder + u'/' + m_name;
    run.report().addOperation(RunReport::Operation::Renaming);
    std::optional<Reason> refusal = claim.refusal();
    if (!refusal)
        refusal = m_obstacle;
    if (!refusal && !problem(base).isEmpty())
        refusal = invalidName;
    QString now;
    bool isFlushed = false;
    if (!refusal) {
        GivenNames given;
        given.setRoot(m_root);
        (void)given.load(); // on failure only this song's names are known
        MemoryRenames renames;
        renames.setRoot(m_root, given);
        renames.setMustStoreNames();
        now = rename(renames, newName(base));
        if (now == m_name)
            refusal = entryExists(path) ? unchangeable : FileReason::missing;
        isFlushed = renames.flush();
    }
    if (refusal) {
        run.report().add(RunReport::Step::Rename, path, *refusal);
        return Outcome::Refused;
    }
    const bool hasNewName = now == newName(base);
    if (hasNewName)
        run.report().count(RunReport::Success::Renamed);
    else
        run.report().add(RunReport::Step::Rename, m_folder + u'/' + now, keptBetween);
    if (!isFlushed)
        run.report().add(RunReport::Step::Rename, path, FileReason::unwritable);
    return updateAfterChange(run, m_root) && isFlushed && hasNewName ? Outcome::Done
                                                                     : Outcome::Failed;
}

/// Returns the name that the song has afterwards.
///
/// Where names that differ only in letter case are one, such a change needs a name in between. It
/// is stored like the others.
QString SongRename::rename(MemoryRenames &renames, const QString &to) const
{
    LongNames names(m_folder);
    if (!isSameFile(m_folder + u'/' + m_name, m_folder + u'/' + to))
        return names.rename(renames, m_name, to) ? to : m_name;
    QString between;
    for (int number = 1; between.isEmpty() || m_taken.contains(foldedText(between)); ++number)
        between = QStringLiteral("REN%1").arg(number) + suffix();
    if (!names.rename(renames, m_name, between))
        return m_name;
    if (LongNames(m_folder).rename(renames, between, to))
        return to;
    // If it keeps the name in between, the index must follow it there.
    return LongNames(m_folder).rename(renames, between, m_name) ? m_name : between;
}

} // namespace brisel
