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

} // namespace brisel
