#pragma once

#include "db/filenameindex.h"
#include "db/songsdbrecord.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class QTemporaryFile;

/// The two databases of the program: the reference catalogue of the publisher's songs, which is
/// only read (docs/formats/catalogue.md), and the user's library, which lives in memory.
///
/// Models on the library go before the Database: it closes and removes both connections.
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
    /// "songsdb_debug" in the working folder stands in for the built-in catalogue. False when a
    /// database can't be opened, or the catalogue's songs are no plain table, or the built-in
    /// catalogue can't be unpacked. Called once.
    bool init();

    /// The library's connection; not open before init().
    QSqlDatabase *userLibraryDb() { return &m_userLibraryDb; }
    /// Deletes every row of "usersongs"; false when that fails.
    bool clearUserLibraryDb();

    /// Reads the names of the catalogue, which the first look-up does otherwise: some tens of
    /// milliseconds that a run has better behind it before it shows its progress.
    void prepareLookUps() { indexFileNames(); }
    /// Finds the first catalogue row whose file name is LIKE \a fileName, which is put into the
    /// statement as it is: "%" and "_" are wildcards, the case of A to Z does not count, a double
    /// quote ends the text. False, with \a record unchanged, when there is none.
    bool getRecordByFilename(const QString &fileName, SongsDbRecord &record);
    /// The same with titles; a title that more than one row shares is never found.
    bool getRecordByTitle(const QString &title, SongsDbRecord &record);

    /// Reads a marker list as the catalogue stores it: bar;text; pairs. Pairs whose bar is no
    /// number or negative are left out.
    static void splitMarkers(const QString &text, QList<Marker> &markers);

    /// The genres of the catalogue, for choosers.
    const QStringList *genresList() const { return &m_genres; }
    /// The artists of the catalogue in their form for lists ("altartist"), for choosers.
    const QStringList *artistsList() const { return &m_artists; }

private:
    bool openUserLibrary();
    bool openCatalogue();
    bool unpackCatalogue();
    bool holdsPlainSongs() const;
    void closeConnections();
    void fillList(QStringList &list, const QString &statement) const;
    bool areNamesScanned() const;
    void indexFileNames();
    bool getIndexedRecord(const QString &fileName, SongsDbRecord &record);

    std::unique_ptr<QTemporaryFile> m_temporaryFile;
    QSqlDatabase m_songsDb;
    QSqlDatabase m_userLibraryDb;
    QStringList m_genres;
    QStringList m_artists;
    FileNameIndex m_fileNames;
    std::optional<QSqlQuery> m_recordByRowId; ///< prepared; empty when names can't be indexed
    bool m_hasTriedIndex = false;
};
