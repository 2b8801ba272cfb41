#include "index/memorycheck.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "index/indexreader.h"
#include "index/indexset.h"
#include "index/memorycheckrun.h"

#include <algorithm>

namespace
{

/// The files that an input holds; the songs that a sound set would name are there always.
QStringList fileNames()
{
    return IndexSet::names() + QStringList{QStringLiteral("playlist/playlist.dat"),
                                           QStringLiteral("playlist/play0001.dat"),
                                           QStringLiteral("playlist/play0001.pts")};
}

void makeCard(const QString &root, const QByteArray &input)
{
    static bool hasSongs = false;
    for (const char *name : {"/AMAPOLA.MID", "/ROCK/BLUE.MP3", "/ROCK/GREEN.ZB4", "/Zeta.kar",
                             "/CAF\xC9.MID", "/CIELITO.ZB5"}) {
        if (!hasSongs)
            putFile(root + QString::fromLatin1(name), "song");
    }
    hasSongs = true;
    const QStringList names = fileNames();
    const QList<QByteArray> files = splitInput(input, static_cast<int>(names.size()));
    for (qsizetype i = 0; i < files.size(); ++i)
        putFile(root + u'/' + names.at(i), files.at(i));
}

} // namespace

void checkMemoryCheck(const QByteArray &input)
{
    const QString root = scratchFolder() + QStringLiteral("/memory");
    makeCard(root, input);
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
    // What is sound can be updated.
    IndexSet set;
    set.setRoot(root);
    QList<SongInfoIndex> songs;
    REQUIRE(check.hasDamage() || IndexReader().read(set, root, songs));
}
