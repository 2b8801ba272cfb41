// The catalogue's look-up by file name against a plain scan: each row "what/data/who", compared by
// ./bench/run.

#include "bench/benchprogram.h"
#include "db/cataloguesearch.h"
#include "db/database.h"
#include "tools/syntheticcatalogue.h"

#include <QCoreApplication>
#include <QDir>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <string>

using namespace brisel;

using namespace Qt::StringLiterals;
using BenchProgram::require;

namespace
{

QString titleOf(Database &database, const QString &name)
{
    SongsDbRecord record;
    return database.getRecordByFilename(name, record) ? record.title : QString();
}

QString artistOf(Database &database, const QString &title)
{
    SongsDbRecord record;
    return database.getRecordByTitle(title, record) ? record.artist : QString();
}

/// The artist of the only row with the title \a title.
QString artistByScan(const QString &title)
{
    QSqlQuery query(QSqlDatabase::database(u"con_songsdb"_s));
    query.setForwardOnly(true);
    require(query.exec(
                u"SELECT count(*),min(artist) FROM songs WHERE title like \"%1\""_s.arg(title)) &&
                query.next(),
            "the scan fails");
    return query.value(0).toInt() == 1 ? query.value(1).toString() : QString();
}

QString titleByScan(const QString &name)
{
    QSqlQuery query(QSqlDatabase::database(u"con_songsdb"_s));
    query.setForwardOnly(true);
    require(query.exec(u"SELECT title,artist,genre,author,length,bpm,key,markers,altartist FROM "
                       "songs WHERE filename like \"%1\""_s.arg(name)),
            "the scan fails");
    return query.next() ? query.value(0).toString() : QString();
}

/// Looks up the \a names, from all over the catalogue.
void lookUp(benchmark::State &state, const QStringList &names,
            const std::function<QString(const QString &)> &titleOfName)
{
    constexpr qsizetype stride = 4801;
    qsizetype next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(titleOfName(names.at(next)));
        next = (next + stride) % names.size();
    }
}

/// The guesses for songs from all over the catalogue, whose tag has the title and the artist and
/// whose file name has both. \a isFirst: each is the first search, which builds the index.
void guess(benchmark::State &state, Database &database, const QList<CatalogueRow> &rows,
           bool isFirst)
{
    constexpr qsizetype stride = 4801;
    auto search = std::make_unique<CatalogueSearch>(database);
    require(!search->whyUnavailable().has_value(), "no search by words");
    qsizetype next = 0;
    for (auto _ : state) {
        if (isFirst)
            search = std::make_unique<CatalogueSearch>(database);
        const CatalogueRow &row = rows.at(next);
        SongInfo info;
        info.title = row.title;
        info.artist = row.artist;
        require(!search->guesses(info, u"%1 - %2.mid"_s.arg(row.artist, row.title)).isEmpty(),
                "no guesses");
        next = (next + stride) % rows.size();
    }
}

} // namespace

int main(int argc, char **argv)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const bool isSmallest = BenchProgram::takeSmallest(argc, argv);
    const QList<CatalogueRow> rows = syntheticCatalogue(isSmallest ? 100 : fullCatalogueSize);
    QString error;
    require(folder.isValid() && QDir::setCurrent(folder.path()) &&
                writeCatalogue(u"songsdb_debug"_s, rows, error),
            "no catalogue");
    Database database;
    require(database.init(), "no database");

    QStringList known;
    QStringList unknown;
    QStringList wild;
    QStringList accented;
    QStringList inner;
    for (const CatalogueRow &row : rows) {
        known << row.fileName;
        unknown << row.fileName + u'X';
        wild << QString(row.fileName).replace(4, 1, u'_');
        accented << QString(row.fileName).replace(4, 1, QChar(u'\u00e0'));
        inner << u'%' + row.fileName.mid(2, 4) + u'%';
    }
    const auto ours = [&database](const QString &name) { return titleOf(database, name); };
    const auto add = [&](const std::string &what, const QStringList &names) {
        for (qsizetype i = 0; i < names.size(); i += 89)
            require(ours(names.at(i)) == titleByScan(names.at(i)), "the answers differ");
        benchmark::RegisterBenchmark(("look-up/" + what + "/ours").c_str(), lookUp, names, ours);
        benchmark::RegisterBenchmark(("look-up/" + what + "/LIKE scan").c_str(), lookUp, names,
                                     titleByScan);
    };
    add("known name", known);
    add("unknown name", unknown);
    add("wildcard", wild);
    add("accent", accented);
    add("wild ends", inner);
    QStringList titles;
    for (const CatalogueRow &row : rows)
        titles << row.title << row.title + u'X';
    const auto artist = [&database](const QString &title) { return artistOf(database, title); };
    for (qsizetype i = 0; i < titles.size(); i += 89)
        require(artist(titles.at(i)) == artistByScan(titles.at(i)), "the answers differ");
    benchmark::RegisterBenchmark("look-up/title/ours", lookUp, titles, artist);
    benchmark::RegisterBenchmark("look-up/title/LIKE scan", lookUp, titles, artistByScan);
    for (const bool isFirst : {true, false}) {
        const auto guesses = [&database, &rows, isFirst](benchmark::State &state) {
            guess(state, database, rows, isFirst);
        };
        benchmark::RegisterBenchmark(isFirst ? "guesses/first search/ours" : "guesses/later/ours",
                                     guesses);
    }
    return BenchProgram::run(argc, argv) ? 0 : 1;
}
