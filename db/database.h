#pragma once

#include "db/cataloguesource.h"
#include "db/filenameindex.h"
#include "db/songsdbrecord.h"

#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>

#include <optional>

namespace brisel
{

/// The two databases of the program: the reference catalogue of the publisher's songs, which is
/// read-only (docs/formats/catalogue.md), and the user's library, which is in memory.
///
/// Models on the library must be destroyed before the Database, which closes and removes both
/// connections.
class Database
{
public:
    /// The state of one library row, as stored in its "status" column.
    enum statusEnum {
        Imported = 0, ///< added by an import
        Updated = 1,  ///< rewritten with the catalogue's data
        Edited = 2,   ///< changed by hand
        Failed = 3,   ///< not found in the catalogue, or could not be rewritten
    };

    /// Opens nothing.
    Database();
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    /// Opens both databases, creates the table "usersongs" and fills the two lists. A file
    /// "songsdb_debug" in the working folder replaces the built-in catalogue. Returns false if a
    /// database can't be opened, the catalogue's songs are not a plain table, or the built-in
    /// catalogue can't be unpacked. Must be called once.
    bool init();

    /// The library's connection; not open before init().
    QSqlDatabase *userLibraryDb() { return &m_userLibraryDb; }
    /// Deletes all rows of "usersongs"; returns false if that fails.
    bool clearUserLibraryDb();

    /// Reads the catalogue, which otherwise the first look-up does. It takes tens of
    /// milliseconds, so a run calls it before it shows its progress.
    void prepareLookUps() { indexNames(); }
    /// Finds the first catalogue row whose file name is LIKE \a fileName, which is inserted into
    /// the statement without escaping: "%" and "_" are wildcards, A to Z are case-insensitive, a
    /// double quote ends the text. Returns false, with \a record unchanged, if there is no such
    /// row.
    bool getRecordByFilename(const QString &fileName, SongsDbRecord &record);
    /// Like getRecordByFilename() for titles, but does not find a title that several rows share.
    bool getRecordByTitle(const QString &title, SongsDbRecord &record);

    /// The catalogue's file as a URI for ATTACH; empty if it is no longer the file that was opened.
    QString catalogueUri() const;
    /// The row with this rowid, if there is one.
    std::optional<CatalogueSong> songAt(qint64 row) const;

    /// Parses a marker list of the catalogue: bar;text; pairs. Skips pairs whose bar is not a
    /// number or negative.
    static void splitMarkers(const QString &text, QList<Marker> &markers);

    /// The genres of the catalogue, for combo boxes.
    const QStringList *genresList() const { return &m_genres; }
    /// The artists of the catalogue in their form for lists ("altartist"), for combo boxes.
    const QStringList *artistsList() const { return &m_artists; }

private:
    bool openUserLibrary();
    bool openCatalogue();
    bool holdsPlainSongs() const;
    void closeConnections();
    void fillList(QStringList &list, const QString &statement) const;
    bool areNamesScanned() const;
    void indexNames();
    bool fillIndex();
    bool getIndexedRecord(std::optional<qint64> row, SongsDbRecord &record) const;

    CatalogueSource m_catalogue;
    QSqlDatabase m_songsDb;
    QSqlDatabase m_userLibraryDb;
    QStringList m_genres;
    QStringList m_artists;
    FileNameIndex m_fileNames;
    FileNameIndex m_titles;
    QHash<qint64, QString> m_records; ///< joined, by rowid; those beyond a limit are missing
    bool m_hasTriedIndex = false;
    bool m_isIndexed = false;
};

} // namespace brisel
