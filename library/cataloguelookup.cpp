#include "library/cataloguelookup.h"

#include "db/database.h"

#include <QRegularExpression>

namespace brisel
{

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

std::optional<CatalogueHit> findInCatalogue(Database &catalogue, const CatalogueKeys &keys,
                                            const SongsDbRecord *chosen)
{
    if (chosen != nullptr)
        return CatalogueHit{*chosen, FoundBy::Hand, QStringLiteral("HAND: ") + chosen->title};
    SongsDbRecord record;
    if (catalogue.getRecordByFilename(keys.file, record))
        return CatalogueHit{record, FoundBy::FileName, QStringLiteral("FILENAME: ") + keys.file};
    if (!keys.longName.isEmpty() && catalogue.getRecordByFilename(keys.longName, record))
        return CatalogueHit{record, FoundBy::LongName,
                            QStringLiteral("ZBXLONGNAME: ") + keys.longName};
    if (catalogue.getRecordByTitle(keys.title, record))
        return CatalogueHit{record, FoundBy::Title, QStringLiteral("TITLE: ") + keys.title};
    return std::nullopt;
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

} // namespace brisel
