#pragma once

#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "songfile/metasong.h"
#include "tests/midibytes.h"
#include "tests/testfiles.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <memory>

namespace brisel
{

/// Songs, a catalogue and a library of a few rows, for the tests of the workflows.
namespace Sample
{

/// A Standard MIDI File, format 0, of one note. The publisher's songs carry its copyright.
inline QByteArray midi(const QByteArray &title, bool published)
{
    QByteArray track = MidiBytes::metaEvent(3, title);
    if (published)
        track += MidiBytes::metaEvent(2, "(c) Kordia");
    const QByteArray note = QByteArray::fromHex("00903c40"
                                                "60803c40");
    return MidiBytes::file({track + note + MidiBytes::endOfTrack()});
}

inline SongInfo infoOf(const QString &path)
{
    MetaSong song;
    SongInfo info;
    if (song.importFile(path))
        song.getSongInfo(info);
    return info;
}

/// One row of a catalogue.
struct CatalogueRow {
    QString filename;
    QString title;
    QString artist = QStringLiteral("ARTIST");
    QString markers = {};
};

/// Makes the catalogue "songsdb_debug" in \a folder; it is used if that is the working folder.
inline void makeCatalogue(const QString &folder, const QList<CatalogueRow> &rows)
{
    const QString name = QStringLiteral("sample_catalogue");
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        database.setDatabaseName(folder + QStringLiteral("/songsdb_debug"));
        if (!database.open())
            qFatal("can't make the catalogue");
        QSqlQuery query(database);
        query.exec(QStringLiteral(
            "CREATE TABLE Songs(title varchar, artist varchar, genre varchar, author varchar, "
            "length integer, bpm integer, key varchar, filename varchar primary key, markers "
            "varchar, altartist varchar)"));
        for (const CatalogueRow &row : rows) {
            query.prepare(QStringLiteral("INSERT INTO Songs VALUES (?, ?, 'FOLK', 'AUTHOR', 185, "
                                         "120, 'A -', ?, ?, ?)"));
            query.addBindValue(row.title);
            query.addBindValue(row.artist);
            query.addBindValue(row.filename);
            query.addBindValue(row.markers);
            query.addBindValue(row.artist + QStringLiteral(" ALT"));
            if (!query.exec())
                qFatal("%s", qPrintable(query.lastError().text()));
        }
    }
    QSqlDatabase::removeDatabase(name);
}

/// A folder with a catalogue and songs, and the library table of them. It is the working folder
/// during the lifetime of this.
class Library
{
public:
    explicit Library(const QList<CatalogueRow> &catalogue = {})
    {
        makeCatalogue(m_folder.path(), catalogue);
        QDir::setCurrent(m_folder.path());
        m_database = std::make_unique<Database>();
        if (!m_database->init())
            qFatal("no database");
        m_model = std::make_unique<UserSongsRelTableModel>(nullptr, *m_database->userLibraryDb());
    }
    ~Library()
    {
        m_model.reset();
        m_database.reset();
        QDir::setCurrent(m_oldFolder);
    }
    Library(const Library &) = delete;
    Library &operator=(const Library &) = delete;

    Database &database() { return *m_database; }
    UserSongsRelTableModel &model() { return *m_model; }
    QString path(const QString &name) const { return m_folder.filePath(name); }

    /// Writes a file and appends it to the table as an import does.
    QString add(const QString &name, const QByteArray &content)
    {
        makeFile(path(name), content);
        SongInfo info = infoOf(path(name));
        info.fileName = path(name);
        info.shortName = name.section(u'/', -1);
        m_model->addSong(info);
        return path(name);
    }

    /// The statuses in the table's order, one digit for each row.
    QString statuses()
    {
        QString digits;
        for (int row = 0; row < m_model->goodRowCount(); ++row)
            digits += QString::number(m_model->status(row));
        return digits;
    }
    /// The texts that the table shows in the column \a name.
    QString shown(int row, const QString &name) const
    {
        return m_model->index(row, m_model->fieldIndex(name)).data().toString();
    }

private:
    QString m_oldFolder = QDir::currentPath();
    QTemporaryDir m_folder;
    std::unique_ptr<Database> m_database;
    std::unique_ptr<UserSongsRelTableModel> m_model;
};

} // namespace Sample

} // namespace brisel
