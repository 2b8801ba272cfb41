#include "index/memorycheck.h"
#include "fuzz/fuzzing.h"
#include "fuzz/memoryset.h"
#include "fuzz/targets.h"
#include "index/index.h"
#include "index/indexset.h"
#include "index/memorycheckrun.h"
#include "tests/memories/playerset.h"

#include <QDir>

#include <algorithm>

namespace
{

const QString playlist = QStringLiteral("playlist/play0001.dat");

/// The files that an input holds; the songs that a sound set would name are there always.
QStringList fileNames()
{
    return IndexSet::names() + QStringList{QStringLiteral("playlist/playlist.dat"), playlist,
                                           QStringLiteral("playlist/play0001.pts")};
}

/// The last piece takes files away, or puts folders in their places. False when a file of the set
/// is missing then, and the update has to build it anew.
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
    MemoryCheck check;
    REQUIRE(check.run(root));
    const QStringList findings = check.findings();
    REQUIRE(findings.size() <= MemoryCheckRun::mostFindings + 1);
    REQUIRE(std::none_of(findings.cbegin(), findings.cend(), [](const QString &line) {
        return line.isEmpty() || line.contains(u'\n') || line.contains(u'\r');
    }));
    REQUIRE(!check.hasDamage() || !findings.isEmpty());
    // Every file and record is looked at a few times, whatever the records say.
    REQUIRE(check.steps() < 1000 + input.size());
    REQUIRE(check.run(root) && check.findings() == findings);
}

/// True for a path that is read back from the index as it was written.
bool isPlain(const QByteArray &path)
{
    return std::all_of(path.cbegin(), path.cend(),
                       [](char byte) { return byte >= ' ' && byte <= '~' && byte != '?'; });
}

/// \a oldEntries were in the playlist before. One that somebody has given another title stays.
void checkUpdated(const QString &root, const QHash<QByteArray, quint32> &oldIds,
                  const QList<PlaylistEntry> &oldEntries)
{
    MemoryCheck check;
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
    REQUIRE(Index().updateIndex(root));
    checkUpdated(root, ids, entries);
}
