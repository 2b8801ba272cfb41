#pragma once

#include "base/reason.h"
#include "db/database.h"
#include "db/songnameforms.h"

#include <QHash>
#include <QList>
#include <QSqlDatabase>
#include <QString>

#include <optional>

namespace brisel
{

/// A search by words in the titles, artists and file names of the catalogue, best first: by
/// SQLite's FTS5, in a database in memory. Case and accents don't matter; a word of two or more
/// characters also finds words that begin with it. No text is read as syntax of a query.
///
/// The index is built by the first search. Results are in a stable order: songs of the same rank in
/// the order of the catalogue.
class CatalogueSearch
{
public:
    static constexpr int mostResults = 50;

    /// SQLite was built without FTS5, or the catalogue can't be read any more.
    static constexpr Reason unavailable{
        QT_TRANSLATE_NOOP("RunReport", "la ricerca per parole non è disponibile")};

    /// \a catalogue outlives the search and is open. \a module: the module of SQLite that makes the
    /// index; tests give one that does not exist.
    explicit CatalogueSearch(Database &catalogue, const QString &module = QStringLiteral("fts5"));
    ~CatalogueSearch();
    CatalogueSearch(const CatalogueSearch &) = delete;
    CatalogueSearch &operator=(const CatalogueSearch &) = delete;

    /// Why each search has an empty result; empty if searches work. Builds the index.
    std::optional<Reason> whyUnavailable();

    /// The songs with any of the words of \a text, at most mostResults.
    QList<CatalogueSong> find(const QString &text);

    /// The songs that the file \a fileName (without folder) with the data \a info may be: those of
    /// all songNameForms(), each with its best rank. At most mostResults.
    QList<CatalogueSong> guesses(const SongInfo &info, const QString &fileName);

private:
    using Ranks = QHash<qint64, double>; ///< by row; a lower one is better

    bool prepare();
    bool build();
    bool exec(const QString &statement, const QString &value = {});
    void collect(const SongNameForm &form, Ranks &ranks);
    QList<CatalogueSong> best(const Ranks &ranks);

    Database &m_catalogue;
    const QString m_module;
    QSqlDatabase m_words;
    std::optional<bool> m_isBuilt; ///< empty before the first search
};

} // namespace brisel
