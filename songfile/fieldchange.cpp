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
    const QList<FieldChange> fields = {
        {Field::Title, before.title, after.title},
        {Field::Artist, before.artist, after.artist},
        {Field::Genre, before.genre, after.genre},
        {Field::Author, before.author, after.author},
        {Field::Length, minutesText(before.length), minutesText(after.length)},
        {Field::Bpm, numberText(before.userBpm), numberText(after.userBpm)},
        {Field::Key, before.key, after.key},
        {Field::Markers, markersText(before.markers), markersText(after.markers)},
    };
    QList<FieldChange> changes;
    for (const FieldChange &field : fields) {
        if (field.before != field.after)
            changes.append(field);
    }
    return changes;
}

} // namespace brisel
