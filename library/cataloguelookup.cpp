#include "library/cataloguelookup.h"

#include "db/database.h"

#include <QRegularExpression>

QString catalogueKey(const QString &name)
{
    static const QRegularExpression extension(QStringLiteral("\\.[\\w\\p{M}]{3}\\z"),
                                              QRegularExpression::UseUnicodePropertiesOption);
    return name.toUpper().remove(extension);
}

CatalogueKeys catalogueKeys(const QString &shortName, const SongInfo &info)
{
    return {catalogueKey(shortName), catalogueKey(info.zbxLongName), info.title.toUpper()};
}

bool findInCatalogue(Database &catalogue, const CatalogueKeys &keys, SongsDbRecord &record,
                     QString &trace)
{
    if (catalogue.getRecordByFilename(keys.file, record)) {
        trace = QStringLiteral("FILENAME: ") + keys.file;
        return true;
    }
    if (!keys.longName.isEmpty() && catalogue.getRecordByFilename(keys.longName, record)) {
        trace = QStringLiteral("ZBXLONGNAME: ") + keys.longName;
        return true;
    }
    if (catalogue.getRecordByTitle(keys.title, record)) {
        trace = QStringLiteral("TITLE: ") + keys.title;
        return true;
    }
    return false;
}

SongInfo mergedWithCatalogue(const SongInfo &info, const SongsDbRecord &record)
{
    SongInfo merged = info;
    merged.title = record.title;
    merged.artist = record.artist;
    merged.altArtist = record.altArtist;
    merged.genre = record.genre;
    merged.author = record.author;
    merged.length = record.length;
    merged.userBpm = record.bpm;
    merged.key = record.key;
    merged.markers = record.markers;
    return merged;
}
