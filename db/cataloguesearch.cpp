#include "db/cataloguesearch.h"

#include "base/debugstream.h"
#include "db/sqliteconnection.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <algorithm>
#include <utility>
#include <vector>

namespace brisel
{

namespace
{

/// A single letter would find every word that begins with it.
constexpr qsizetype shortestStart = 2;

/// An expression of FTS5 for any of the \a words in \a columns; empty without words. Words have no
/// quotes.
QString wordsIn(const char *columns, const QStringList &words)
{
    QStringList terms;
    for (const QString &word : words)
        terms.append(QStringLiteral("\"%1\"%2")
                         .arg(word, word.size() < shortestStart ? QString() : QStringLiteral("*")));
    if (terms.isEmpty())
        return {};
    return QStringLiteral("{%1}:(%2)")
        .arg(QLatin1StringView(columns), terms.join(QStringLiteral(" OR ")));
}

QString expressionOf(const SongNameForm &form)
{
    QStringList parts{wordsIn("title", form.title), wordsIn("artist", form.artist),
                      wordsIn("title artist filename", form.any)};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(" OR "));
}

} // namespace

CatalogueSearch::CatalogueSearch(Database &catalogue, const QString &module)
    : m_catalogue(catalogue), m_module(module)
{
}

CatalogueSearch::~CatalogueSearch()
{
    removeSqliteConnection(m_words);
}

std::optional<Reason> CatalogueSearch::whyUnavailable()
{
    return prepare() ? std::nullopt : std::optional(unavailable);
}

QList<CatalogueSong> CatalogueSearch::find(const QString &text)
{
    Ranks ranks;
    collect({{}, {}, searchWords(text)}, ranks);
    return best(ranks);
}

QList<CatalogueSong> CatalogueSearch::guesses(const SongInfo &info, const QString &fileName)
{
    Ranks ranks;
    const QList<SongNameForm> forms = songNameForms(info, fileName);
    for (const SongNameForm &form : forms)
        collect(form, ranks);
    return best(ranks);
}

bool CatalogueSearch::prepare()
{
    if (!m_isBuilt.has_value())
        m_isBuilt = build();
    return *m_isBuilt;
}

/// The index has no texts: they are read from the catalogue.
bool CatalogueSearch::build()
{
    const QString catalogue = m_catalogue.catalogueUri();
    m_words = addSqliteConnection(QStringLiteral("con_words"));
    m_words.setDatabaseName(QStringLiteral(":memory:"));
    m_words.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI"));
    if (catalogue.isEmpty() || !m_words.open())
        return false;
    if (!exec(QStringLiteral("ATTACH ? AS catalogue"), catalogue))
        return false;
    const bool isBuilt =
        exec(QStringLiteral("CREATE VIRTUAL TABLE words USING %1(title,artist,filename,content='',"
                            "tokenize='unicode61 remove_diacritics 2')")
                 .arg(m_module)) &&
        exec(QStringLiteral("INSERT INTO words(rowid,title,artist,filename) SELECT rowid,"
                            "substr(title,1,1000),"
                            "substr(coalesce(nullif(artist,''),altartist),1,1000),"
                            "substr(filename,1,1000) FROM catalogue.songs ORDER BY rowid"));
    return exec(QStringLiteral("DETACH catalogue")) && isBuilt;
}

/// Runs \a statement, with \a value in its place if it is not empty. Returns false, logged, if
/// that fails.
bool CatalogueSearch::exec(const QString &statement, const QString &value)
{
    QSqlQuery query(m_words);
    bool isDone = query.prepare(statement);
    if (isDone && !value.isEmpty())
        query.addBindValue(value);
    isDone = isDone && query.exec();
    if (!isDone)
        debug() << "[CatalogueSearch] " << query.lastError().text();
    return isDone;
}

void CatalogueSearch::collect(const SongNameForm &form, Ranks &ranks)
{
    if (form.isEmpty() || !prepare())
        return;
    QSqlQuery query(m_words);
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT rowid,bm25(words,10,6,4) AS place FROM words "
                                 "WHERE words MATCH ? ORDER BY place,rowid LIMIT %1")
                      .arg(mostResults));
    query.addBindValue(expressionOf(form));
    if (!query.exec())
        debug() << "[CatalogueSearch] " << query.lastError().text();
    while (query.next()) {
        const qint64 row = query.value(0).toLongLong();
        const double rank = query.value(1).toDouble();
        const auto known = ranks.find(row);
        if (known == ranks.end())
            ranks.insert(row, rank);
        else
            *known = std::min(*known, rank);
    }
}

QList<CatalogueSong> CatalogueSearch::best(const Ranks &ranks)
{
    std::vector<std::pair<double, qint64>> rows;
    for (auto rank = ranks.cbegin(); rank != ranks.cend(); ++rank)
        rows.emplace_back(*rank, rank.key());
    std::sort(rows.begin(), rows.end());
    QList<CatalogueSong> songs;
    for (const auto &[rank, row] : rows) {
        if (songs.size() == mostResults)
            break;
        if (std::optional<CatalogueSong> song = m_catalogue.songAt(row); song.has_value())
            songs.append(*std::move(song));
    }
    return songs;
}

} // namespace brisel
