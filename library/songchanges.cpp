#include "library/songchanges.h"

#include <QFileInfo>

namespace brisel
{

const char *fieldName(FieldChange::Field field)
{
    using Field = FieldChange::Field;
    switch (field) {
    case Field::Title:
        return QT_TRANSLATE_NOOP("RunReport", "Titolo");
    case Field::Artist:
        return QT_TRANSLATE_NOOP("RunReport", "Artista");
    case Field::Genre:
        return QT_TRANSLATE_NOOP("RunReport", "Genere");
    case Field::Author:
        return QT_TRANSLATE_NOOP("RunReport", "Autore");
    case Field::Length:
        return QT_TRANSLATE_NOOP("RunReport", "Durata");
    case Field::Bpm:
        return QT_TRANSLATE_NOOP("RunReport", "Bpm");
    case Field::Key:
        return QT_TRANSLATE_NOOP("RunReport", "Tonalità");
    case Field::Markers:
        return QT_TRANSLATE_NOOP("RunReport", "Marker");
    }
    return "?";
}

QList<RunReport::ChangedField> reportedChanges(const QList<FieldChange> &changes)
{
    QList<RunReport::ChangedField> fields;
    for (const FieldChange &change : changes)
        fields.append({fieldName(change.field), change.before, change.after});
    return fields;
}

qint64 historyBytes(const QStringList &files)
{
    constexpr qint64 entry = 4096; // with the tag of an MP3
    qint64 bytes = 0;
    for (const QString &path : files) {
        const QFileInfo file(path);
        const bool isMp3 = file.suffix().compare(QLatin1String("mp3"), Qt::CaseInsensitive) == 0;
        bytes += entry + (isMp3 ? 0 : file.size() / 2); // compressed
    }
    return bytes;
}

} // namespace brisel
