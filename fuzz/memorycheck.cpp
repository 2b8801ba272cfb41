#include "index/memorycheck.h"
#include "fuzz/fuzzing.h"
#include "fuzz/memoryset.h"
#include "fuzz/targets.h"
#include "index/index.h"
#include "index/indexset.h"
#include "index/memoryfindings.h"
#include "tests/memories/playerset.h"
#include "tests/scriptedindex.h"

#include <QDir>

#include <algorithm>

namespace brisel
{

namespace
{

const QString playlist = QStringLiteral("playlist/play0001.dat");

/// The files that an input contains; the songs of a sound set always exist.
QStringList fileNames()
{
    return IndexSet::names() + QStringList{QStringLiteral("playlist/playlist.dat"), playlist,
                                           QStringLiteral("playlist/play0001.pts")};
}

/// Makes the memory of \a input. The last piece removes files, or replaces them by folders. Returns
/// false if a file of the set is missing, so that the update must rebuild the set.
bool makeMemory(const QString &root, const QByteArray &input)
{
    makeSampleMemory(root);
    const QStringList names = fileNames();
    const QList<QByteArray> files = splitInput(input, static_cast<int>(names.size()) + 1);
    for (qsizetype i = 0; i < names.size(); ++i)
        putFile(root + u'/' + names.at(i), files.at(i));
    for (const char other : files.last()) {
        const auto number = static_cast<quint8>(other);
        const QString path = root + u'/' + names.at(number / 2 % names.size());
        if (QFile::remove(path) && number % 2 != 0)
            REQUIRE(QDir().mkdir(path));
    }
    const QStringList &set = IndexSet::names();
    return std::all_of(set.cbegin(), set.cend(), [&root](const QString &name) {
        return QFileInfo::exists(root + u'/' + name);
    });
}

void checkFindings(const QString &root, const QByteArray &input)
{
    ScriptedCheck check;
    REQUIRE(check.run(root));
    const QStringList findings = check.findings();
    REQUIRE(findings.size() <= MemoryFindings::mostFindings + 1);
    REQUIRE(std::none_of(findings.cbegin(), findings.cend(), [](const QString &line) {
        return line.isEmpty() || line.contains(u'\n') || line.contains(u'\r');
    }));
    REQUIRE(!check.hasDamage() || !findings.isEmpty());
    // Every file and record is read only a few times, for any content of the records.
    REQUIRE(check.pulses() < 1000 + input.size());
    REQUIRE(check.run(root) && check.findings() == findings);
}

/// True for a path that is read back from the index as it was written.
bool isPlain(const QByteArray &path)
{
    return std::all_of(path.cbegin(), path.cend(),
                       [](char byte) { return byte >= ' ' && byte <= '~' && byte != '?'; });
}

/// \a oldEntries: the playlist before the update. An entry whose title was changed is kept.
void checkUpdated(const QString &root, const QHash<QByteArray, quint32> &oldIds,
                  const QList<PlaylistEntry> &oldEntries)
{
    ScriptedCheck check;
    REQUIRE(check.run(root) && !check.hasDamage());
    const PlayerSet set(root);
    REQUIRE(set.problem().isEmpty());
    for (auto path = set.paths().cbegin(); path != set.paths().cend(); ++path)
        REQUIRE(!isPlain(*path) || oldIds.value(*path, path.key()) == path.key());
    const QList<PlaylistEntry> entries = playlistEntries(root + u'/' + playlist);
    REQUIRE(entries.size() == oldEntries.size());
    for (qsizetype i = 0; i < entries.size(); ++i) {
        const PlaylistEntry &entry = entries.at(i);
        const auto record = set.records().constFind(entry.id);
        REQUIRE(record == set.records().cend() || entry == oldEntries.at(i) ||
                entry.title == QByteArray(record->mid(4, 58).constData()));
    }
}

} // namespace

void checkMemoryCheck(const QByteArray &input)
{
    const QString root = scratchFolder() + QStringLiteral("/memory");
    const bool isWhole = makeMemory(root, input);
    checkFindings(root, input);
    const QHash<QByteArray, quint32> ids =
        isWhole ? certainIds(root) : QHash<QByteArray, quint32>();
    const QList<PlaylistEntry> entries = playlistEntries(root + u'/' + playlist);
    REQUIRE(ScriptedIndex().updateIndex(root));
    checkUpdated(root, ids, entries);
}

} // namespace brisel
