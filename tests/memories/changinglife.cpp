#include "tests/memories/changinglife.h"

#include "memory/copyback.h"
#include "memory/memoryclaim.h"
#include "memory/memorycontents.h"
#include "memory/songremoval.h"
#include "memory/songrename.h"
#include "tests/scriptedrun.h"
#include "tests/testfiles.h"

#include <QTemporaryDir>

namespace brisel
{

void ChangingLife::step()
{
    const int choice = below(m_random, 20);
    if (choice < 2)
        run(Work::Update, true);
    else if (choice < 3)
        run(Work::Rebuild, true);
    else if (choice < 5)
        run(Work::Send, true);
    else if (choice < 6)
        note(m_memory.addSong());
    else if (choice < 7)
        note(m_memory.giveTitle(anySong()));
    else if (choice < 10)
        removeSongs();
    else if (choice < 15)
        renameSong();
    else if (choice < 16)
        copySongsBack();
    else
        editPlaylist();
    m_memory.scan();
}

/// The absolute paths of one to three songs, perhaps one of them twice.
QStringList ChangingLife::somePaths()
{
    QStringList paths;
    for (int left = 1 + below(m_random, 3); left > 0; --left)
        paths.append(m_memory.root() + m_memory.songs().value(anySong()));
    return paths;
}

void ChangingLife::removeSongs()
{
    const QStringList paths = somePaths();
    if (m_memory.songs().size() <= paths.size())
        return;
    const int lostBefore = lostEntries();
    const bool isDone = perform(
        u"remove "_qs + paths.join(u", "_qs),
        [&] {
            MemoryClaim claim(m_memory.root());
            ScriptedRun run;
            return SongRemoval(claim, paths).run(run) == SongRemoval::Outcome::Done;
        },
        true, true);
    if (!isDone)
        return;
    for (const QString &path : paths) {
        if (QFileInfo::exists(path))
            fail(u"it is still there: "_qs + path);
    }
    if (lostEntries() > lostBefore)
        fail(u"entries of removed songs are left"_qs);
}

/// A new name: one of a few, the same in other letters, that of another song, or an invalid one.
QString ChangingLife::newBase(const QString &path)
{
    static const QStringList names{u"NEW"_qs,    u"Caff\u00E9"_qs, u"n\u00FC"_qs,
                                   u"\u042F"_qs, u"A?"_qs,         u"123456789"_qs,
                                   u"CON"_qs,    u"Alongn-1"_qs,   u"M1"_qs};
    const QString own = QFileInfo(path).completeBaseName();
    const int choice = below(m_random, 12);
    if (choice == 0)
        return own.toUpper() == own ? own.toLower() : own.toUpper();
    if (choice == 1)
        return QFileInfo(m_memory.songs().value(anySong())).completeBaseName();
    if (choice < 6)
        return u"N%1"_qs.arg(below(m_random, 100));
    return names.at(below(m_random, names.size()));
}

void ChangingLife::renameSong()
{
    const int song = anySong();
    const QString path = m_memory.root() + m_memory.songs().value(song);
    const QString base = newBase(path);
    QString problem;
    const auto rename = [&](bool isAsking) {
        MemoryClaim claim(m_memory.root());
        claim.prepare();
        ScriptedRun run;
        MemoryContents contents;
        (void)contents.read(m_memory.root(), run);
        SongRename work(m_memory.root(), contents, path);
        problem = work.problem(base);
        return isAsking ? SongRename::Outcome::Refused : work.run(run, claim, base);
    };
    const QString words = u"rename %1 %2 to %3"_qs.arg(QString::number(song), path, base);
    (void)rename(true);
    if (!problem.isEmpty()) {
        note(words + u", refused"_qs);
        if (rename(false) != SongRename::Outcome::Refused || !QFileInfo::exists(path))
            fail(u"an impossible name was given"_qs);
        return;
    }
    perform(
        words, [&] { return rename(false) == SongRename::Outcome::Done; }, true, true);
    if (m_memory.root() + m_memory.songs().value(song) != path)
        m_memory.noteRename(song);
}

void ChangingLife::copySongsBack()
{
    QStringList paths = somePaths();
    const QTemporaryDir folder;
    ScriptedRun run;
    note(u"copy back "_qs + paths.join(u", "_qs));
    MemoryContents contents;
    (void)contents.read(m_memory.root(), run);
    CopyBack copy(m_memory.root(), paths, folder.path(), contents);
    if (copy.run(run) != CopyBack::Outcome::Done)
        fail(u"songs were not copied"_qs);
    paths.removeDuplicates();
    QList<QByteArray> wanted;
    for (const QString &path : std::as_const(paths))
        wanted.append(fileContent(path));
    const QStringList names = QDir(folder.path()).entryList(QDir::Files);
    for (const QString &name : names)
        wanted.removeOne(fileContent(folder.filePath(name)));
    if (!wanted.isEmpty() || names.size() != paths.size())
        fail(u"the copies are not the songs"_qs);
}

} // namespace brisel
