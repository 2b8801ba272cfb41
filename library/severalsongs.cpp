#include "library/severalsongs.h"

#include "library/songfilename.h"

#include <QSqlTableModel>

#include <optional>

namespace brisel
{

namespace
{

/// The text in \a column that all \a rows have; nothing if they differ.
std::optional<QString> sharedText(const QSqlTableModel &model, const QList<int> &rows,
                                  const QString &column)
{
    const int number = model.fieldIndex(column);
    std::optional<QString> text;
    for (const int row : rows) {
        const QString shown = model.index(row, number).data().toString();
        if (text.has_value() && *text != shown)
            return std::nullopt;
        text = shown;
    }
    return text;
}

/// All different texts in the column of the formats.
QString formatsOf(const QSqlTableModel &model, const QList<int> &rows)
{
    const int number = model.fieldIndex(QStringLiteral("type"));
    QStringList formats;
    for (const int row : rows) {
        const QString format = model.index(row, number).data().toString();
        if (!formats.contains(format))
            formats.append(format);
    }
    formats.sort();
    return formats.join(QStringLiteral(", "));
}

/// Reads "mm:ss".
int secondsIn(const QString &length)
{
    return length.section(u':', 0, 0).toInt() * 60 + length.section(u':', 1).toInt();
}

} // namespace

SharedSongs SharedSongs::of(const QSqlTableModel &model, const QList<int> &rows)
{
    using Field = SongFields::Field;
    SharedSongs songs;
    songs.songs = static_cast<int>(rows.size());
    songs.info.format = formatsOf(model, rows);
    const auto share = [&](Field field, const QString &column) {
        const std::optional<QString> text = sharedText(model, rows, column);
        if (text.has_value())
            songs.shared.insert(field);
        return text.value_or(QString());
    };
    songs.info.title = share(Field::Title, QStringLiteral("title"));
    songs.info.artist = share(Field::Artist, QStringLiteral("artist"));
    songs.info.genre = share(Field::Genre, QStringLiteral("genre"));
    songs.info.author = share(Field::Author, QStringLiteral("author"));
    songs.info.key = share(Field::Key, QStringLiteral("key"));
    songs.info.length = secondsIn(share(Field::Length, QStringLiteral("length")));
    songs.info.userBpm = share(Field::Bpm, QStringLiteral("userbpm")).toInt();
    return songs;
}

SongFields SeveralEdit::apply(SongInfo &info, const QString &path) const
{
    using Field = SongFields::Field;
    SongFields written = fields;
    const auto take = [&](Field field, auto SongInfo::*datum) {
        if (fields.holds(field))
            info.*datum = data.*datum;
    };
    take(Field::Title, &SongInfo::title);
    take(Field::Artist, &SongInfo::artist);
    take(Field::Genre, &SongInfo::genre);
    take(Field::Author, &SongInfo::author);
    take(Field::Key, &SongInfo::key);
    take(Field::Length, &SongInfo::length);
    take(Field::Bpm, &SongInfo::userBpm);
    if (fromName == FromName::Nothing)
        return written;
    written.insert(Field::Title);
    const NamedSong named = songFromFileName(path);
    info.title = fromName == FromName::Title ? titleFromFileName(path) : named.title;
    if (fromName == FromName::TitleAndArtist && !named.artist.isEmpty()) {
        info.artist = named.artist;
        written.insert(Field::Artist);
    }
    return written;
}

} // namespace brisel
