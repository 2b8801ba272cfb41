#include "songfile/fieldchange.h"

#include "songfile/songinfo.h"

#include <QStringList>

namespace brisel
{

namespace
{

QString numberText(int number)
{
    return number == 0 ? QString() : QString::number(number);
}

QString minutesText(int seconds)
{
    constexpr int inMinute = 60;
    if (seconds <= 0)
        return numberText(seconds);
    const QChar zero = u'0';
    return QStringLiteral("%1:%2")
        .arg(seconds / inMinute, 2, 10, zero)
        .arg(seconds % inMinute, 2, 10, zero);
}

/// "bar text", separated by semicolons.
QString markersText(const QList<Marker> &markers)
{
    QStringList texts;
    for (const Marker &marker : markers)
        texts.append(QString::number(marker.bar) + u' ' + marker.text);
    return texts.join(QStringLiteral("; "));
}

} // namespace

QList<FieldChange> fieldChanges(const SongInfo &before, const SongInfo &after)
{
    using Field = FieldChange::Field;
    QList<FieldChange> changes;
    const auto compare = [&](Field field, auto SongInfo::*member, auto text) {
        if (before.*member != after.*member)
            changes.append({field, text(before.*member), text(after.*member)});
    };
    const auto plainText = [](const QString &text) { return text; };
    compare(Field::Title, &SongInfo::title, plainText);
    compare(Field::Artist, &SongInfo::artist, plainText);
    compare(Field::Genre, &SongInfo::genre, plainText);
    compare(Field::Author, &SongInfo::author, plainText);
    compare(Field::Length, &SongInfo::length, minutesText);
    compare(Field::Bpm, &SongInfo::userBpm, numberText);
    compare(Field::Key, &SongInfo::key, plainText);
    compare(Field::Markers, &SongInfo::markers, markersText);
    return changes;
}

SongInfo withChanges(SongInfo now, const SongInfo &before, const SongInfo &after)
{
    const auto take = [&](auto SongInfo::*field) {
        if (before.*field != after.*field)
            now.*field = after.*field;
    };
    for (QString SongInfo::*field :
         {&SongInfo::title, &SongInfo::artist, &SongInfo::genre, &SongInfo::author, &SongInfo::key})
        take(field);
    take(&SongInfo::length);
    take(&SongInfo::userBpm);
    return now;
}

} // namespace brisel
