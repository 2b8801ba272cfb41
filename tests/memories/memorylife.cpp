#include "tests/memories/memorylife.h"
#include "tests/scriptedindex.h"
#include "tests/scriptedrun.h"

#include "index/index.h"
#include "index/indexset.h"
#include "index/memorycheck.h"
#include "library/filecopier.h"
#include "tests/shim/shim.h"
#include "tests/testfiles.h"

#include <algorithm>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace brisel
{

using namespace Sample;

namespace
{

QString playlistFile(int number, const QString &suffix)
{
    return u"playlist/play%1."_qs.arg(number, 4, 10, QChar(u'0')) + suffix;
}

bool isPlain(const QByteArray &path)
{
    return std::all_of(path.cbegin(), path.cend(),
                       [](char byte) { return byte >= ' ' && byte <= '~' && byte != '?'; });
}

/// Runs \a work in a process that is killed at its step \a at below \a folder. Returns false if it
/// was killed; otherwise \a result is the result of \a work.
bool runCut(const QString &folder, int at, const std::function<bool()> &work, bool &result)
{
    const pid_t child = ::fork();
    if (child == 0) {
        Shim::arm(QFile::encodeName(folder).constData(), at, Shim::Kill);
        ::_exit(work() ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
        return false;
    if (!WIFEXITED(status))
        qFatal("a run crashed");
    result = WEXITSTATUS(status) == 1;
    return true;
}

} // namespace

MemoryLife::MemoryLife(unsigned seed) : m_random(seed), m_memory(m_random) {}

QString MemoryLife::live()
{
    for (int songs = 3 + below(m_random, 8); songs > 0; --songs)
        note(m_memory.addSong());
    m_memory.scan();
    run(Work::Update, false);
    for (int steps = 4 + below(m_random, 7); steps > 0 && m_problem.isEmpty(); --steps)
        step();
    if (m_problem.isEmpty())
        run(Work::Update, false);
    if (m_problem.isEmpty())
        checkReport();
    if (m_problem.isEmpty())
        checkSendingAgain();
    return m_problem.isEmpty() ? QString() : m_history.join(u"\n  "_qs) + u"\n  => "_qs + m_problem;
}

void MemoryLife::step()
{
    const int choice = below(m_random, 20);
    if (choice < 3)
        run(Work::Update, true);
    else if (choice < 5)
        run(Work::Rebuild, true);
    else if (choice < 8)
        run(Work::Send, true);
    else if (choice < 10)
        note(m_memory.addSong());
    else if (choice < 11)
        note(m_memory.giveTitle(anySong()));
    else if (choice < 12)
        note(m_memory.remove(anySong()));
    else if (choice == 12) {
        const int song = anySong();
        m_playlists.lose(song);
        note(m_memory.moveByHand(song));
    } else if (choice < 16)
        editPlaylist();
    else if (choice == 16)
        writeStalePathFile();
    else
        damage();
    m_memory.scan();
}

/// Any song but the first one, which is kept: a memory without songs has no index.
int MemoryLife::anySong()
{
    const QList<int> songs = m_memory.songs().keys();
    return songs.size() < 2 ? m_memory.songs().firstKey()
                            : songs.at(1 + below(m_random, songs.size() - 1));
}

void MemoryLife::damage()
{
    if (below(m_random, 4) == 0) {
        note(damagePathFile(m_memory.root(), m_random).description);
        return;
    }
    // If a file of the set is missing, the next run installs the files that a cut run has staged.
    const bool mayRemove = !m_memory.card().has(u".brisel2pc/swap"_qs);
    const QHash<QByteArray, quint32> before = certainIds(m_memory.root());
    const SetDamage done = damageSet(m_memory.root(), m_random, mayRemove);
    note(done.description);
    m_isDamaged = true;
    m_songs.areIdsLost = m_songs.areIdsLost || done.isOfIds;
    if (!done.isOfPath)
        return;
    const QHash<QByteArray, quint32> after = certainIds(m_memory.root());
    for (auto path = before.cbegin(); path != before.cend(); ++path) {
        if (!after.contains(path.key()))
            m_songs.doubtful.insert(m_memory.songAt(path.key()));
    }
}

void MemoryLife::run(Work work, bool mayBeCut)
{
    QStringList files;
    QString words = work == Work::Update ? u"update"_qs : u"rebuild"_qs;
    if (work == Work::Send)
        words = m_memory.pickSongs(files);
    const int answer = below(m_random, 4);
    const auto answers = static_cast<unsigned>(m_random());
    perform(
        words, [&] { return runNow(work, files, answer, answers); }, mayBeCut,
        work != Work::Rebuild);
}

bool MemoryLife::perform(const QString &words, const std::function<bool()> &now, bool mayBeCut,
                         bool keepsIds)
{
    const int cut = mayBeCut && below(m_random, 3) == 0 ? 1 + below(m_random, 200) : 0;
    // The ids to keep are those of the present set.
    QHash<QByteArray, quint32> oldIds;
    const QStringList &names = IndexSet::names();
    const bool isWhole = std::all_of(names.cbegin(), names.cend(), [this](const QString &name) {
        return m_memory.card().has(name);
    });
    if (keepsIds && isWhole && !m_memory.card().has(u".brisel2pc/swap"_qs))
        oldIds = certainIds(m_memory.root());
    bool result = false;
    bool isDone = true;
    if (cut > 0)
        isDone = runCut(m_memory.root(), cut, now, result);
    else
        result = now();
    note(words + (isDone ? u""_qs : u", cut at step %1"_qs.arg(cut)));
    const QString problem = m_memory.scan();
    if (!problem.isEmpty())
        fail(problem);
    else if (isDone && !result)
        fail(u"the run failed"_qs);
    else if (isDone)
        check(oldIds);
    else
        m_memory.dateSentSongs();
    return isDone;
}

/// \a answer: the answer to the question before a file is replaced. \a answers: the seed of the
/// answers before a name is shortened.
bool MemoryLife::runNow(Work work, const QStringList &files, int answer, unsigned answers)
{
    bool isCopied = true;
    if (work == Work::Send) {
        ScriptedRun run;
        run.answers = QList<Run::Answer>(files.size(), static_cast<Run::Answer>(answer));
        FileCopier copier(run);
        copier.setMemory(m_memory.root(), IndexSet::roomForUpdate(m_memory.root(), files.size()));
        isCopied = copier.copyFiles(files, m_memory.sendFolder());
        m_memory.dateSentSongs();
    }
    std::mt19937 random(answers);
    ScriptedIndex index;
    index.setRenameQuestion(
        [&random](const QString &, const QString &) { return below(random, 4); });
    return (work == Work::Rebuild ? index.createIndex(m_memory.root())
                                  : index.updateIndex(m_memory.root())) &&
           isCopied;
}

void MemoryLife::check(const QHash<QByteArray, quint32> &oldIds)
{
    bool isBuilt = false;
    const PlayerSet fresh = m_memory.freshSet(isBuilt);
    const PlayerSet set(m_memory.root());
    if (!isBuilt || !fresh.problem().isEmpty())
        return fail(u"no fresh set: "_qs + fresh.problem());
    if (!set.problem().isEmpty())
        return fail(set.problem());
    if (set.lines() != fresh.lines()) {
        const QStringList wanted = fresh.lines() + QStringList(u"the end"_qs);
        const QStringList there = set.lines() + QStringList(u"the end"_qs);
        const auto other =
            std::mismatch(wanted.cbegin(), wanted.cend(), there.cbegin(), there.cend());
        return fail(
            u"the set says\n    %1\nand should say\n    %2"_qs.arg(*other.second, *other.first));
    }
    checkIds(set, oldIds);
    checkPlaylists(set, fresh);
    m_isDamaged = false;
    m_songs = PlaylistModel::Songs();
}

void MemoryLife::checkIds(const PlayerSet &set, const QHash<QByteArray, quint32> &oldIds)
{
    for (auto id = set.paths().cbegin(); id != set.paths().cend(); ++id) {
        if (isPlain(*id) && oldIds.contains(*id) && oldIds.value(*id) != id.key())
            fail(u"%1 has the id %2 instead of %3"_qs.arg(QString::fromLatin1(*id))
                     .arg(id.key())
                     .arg(oldIds.value(*id)));
    }
}

void MemoryLife::checkPlaylists(const PlayerSet &set, const PlayerSet &fresh)
{
    const auto titleOf = [](const QByteArray &record) {
        return QByteArray(record.mid(4, 58).constData());
    };
    for (auto id = fresh.paths().cbegin(); id != fresh.paths().cend(); ++id)
        m_songs.titles.insert(m_memory.songAt(*id), titleOf(fresh.records().value(id.key())));
    m_deadEntries = 0;
    for (const int number : m_playlists.numbers()) {
        const QString name = playlistFile(number, u"dat"_qs);
        QList<PlaylistModel::Played> now;
        for (const PlaylistEntry &entry : playlistEntries(m_memory.card().path(name))) {
            const auto path = set.paths().constFind(entry.id);
            if (path == set.paths().cend()) {
                ++m_deadEntries;
                continue;
            }
            now.append({m_memory.songAt(*path), entry.title});
            if (entry.title != titleOf(set.records().value(entry.id)))
                fail(u"%1: \"%2\" plays %3"_qs.arg(name, QString::fromLatin1(entry.title),
                                                   QString::fromLatin1(*path)));
        }
        const QString problem = m_playlists.compare(number, now, m_songs);
        if (!problem.isEmpty())
            fail(problem);
    }
}

/// The program's own check must find the dead entries and nothing else.
void MemoryLife::checkReport()
{
    ScriptedCheck check;
    if (!check.run(m_memory.root()))
        fail(u"the check did not finish"_qs);
    else if (check.hasDamage() || check.findings().size() != m_deadEntries)
        fail(u"%1 dead entries, and the check finds\n    "_qs.arg(m_deadEntries) +
             check.findings().join(u"\n    "_qs));
}

void MemoryLife::checkSendingAgain()
{
    const QStringList files = m_memory.sentSongs();
    const auto before = m_memory.songs();
    note(u"send all again"_qs);
    if (!runNow(Work::Send, files, int(Run::Answer::YesToAll), 1))
        return fail(u"the run failed"_qs);
    const QString problem = m_memory.scan();
    if (!problem.isEmpty())
        return fail(problem);
    if (m_memory.songs().keys() != before.keys())
        fail(u"other songs are there"_qs);
    check({});
}

/// The user changes or makes a playlist on the player, which knows the songs from the set.
void MemoryLife::editPlaylist()
{
    constexpr int most = 3;
    const PlayerSet set(m_memory.root());
    if (m_isDamaged || !set.problem().isEmpty())
        return;
    const int number = 1 + below(m_random, most);
    const QString name = playlistFile(number, u"dat"_qs);
    QByteArray content = m_memory.card().read(name);
    if (!m_playlists.numbers().contains(number)) {
        content.clear();
        m_memory.card().write(u"playlist/playlist.dat"_qs,
                              (m_playlists.numbers().isEmpty()
                                   ? QByteArray()
                                   : m_memory.card().read(u"playlist/playlist.dat"_qs)) +
                                  field(QByteArray(1, static_cast<char>(number)), 32));
    }
    // A song that is not at the path in the set can't be played, and is not kept.
    const auto isPlayed = [&](quint32 id) {
        return m_memory.songAt(set.paths().value(id)) != PlaylistModel::lost;
    };
    QList<QByteArray> records;
    const QList<PlaylistEntry> old = playlistEntries(m_memory.card().path(name));
    for (qsizetype i = 0; i * 64 < content.size(); ++i) {
        if (!set.paths().contains(old.at(i).id) || isPlayed(old.at(i).id))
            records.append(content.mid(i * 64, 64));
    }
    for (qsizetype last = records.size() - 1; last > 0; --last)
        records.swapItemsAt(last, below(m_random, last + 1));
    if (!records.isEmpty() && below(m_random, 3) == 0)
        records.resize(below(m_random, records.size()));
    QList<quint32> ids = set.records().keys();
    ids.removeIf([&](quint32 id) { return !isPlayed(id); });
    std::sort(ids.begin(), ids.end());
    for (int more = ids.isEmpty() ? 0 : below(m_random, 5); more > 0; --more)
        records.append(set.records().value(ids.at(below(m_random, ids.size()))));
    m_memory.card().write(name, records.join());
    QList<PlaylistModel::Played> entries;
    QStringList songs;
    for (const PlaylistEntry &entry : playlistEntries(m_memory.card().path(name))) {
        const int song = m_memory.songAt(set.paths().value(entry.id));
        songs.append(QString::number(song));
        entries.append({song, entry.title});
    }
    m_playlists.fill(number, entries);
    note(u"fill playlist %1 with %2"_qs.arg(QString::number(number), songs.join(u' ')));
}

int MemoryLife::lostEntries() const
{
    const PlayerSet set(m_memory.root());
    int lost = 0;
    for (const int number : m_playlists.numbers()) {
        const QString name = playlistFile(number, u"dat"_qs);
        for (const PlaylistEntry &entry : playlistEntries(m_memory.card().path(name)))
            lost += m_memory.songAt(set.paths().value(entry.id)) == PlaylistModel::lost ? 1 : 0;
    }
    return lost;
}

/// Writes a path file with other songs, as an older state of the playlist leaves it.
void MemoryLife::writeStalePathFile()
{
    if (m_playlists.numbers().isEmpty())
        return;
    QList<int> numbers = m_playlists.numbers();
    std::sort(numbers.begin(), numbers.end());
    const int number = numbers.at(below(m_random, numbers.size()));
    QByteArray paths;
    for (int left = below(m_random, 5); left > 0; --left)
        paths += field(codePageBytes(m_memory.songs().value(anySong())), 64);
    const QString name = playlistFile(number, u"pts"_qs);
    if (QFileInfo(m_memory.card().path(name)).isDir())
        return;
    m_memory.card().write(name, paths);
    note(u"stale path file of playlist %1"_qs.arg(number));
}

void MemoryLife::note(const QString &action)
{
    m_history.append(action);
}

void MemoryLife::fail(const QString &problem)
{
    if (m_problem.isEmpty())
        m_problem = problem;
}

} // namespace brisel
