#include "db/songoutcome.h"

#include <QCoreApplication>

namespace brisel
{

static const char *sourceWord(SongOutcome outcome)
{
    switch (outcome) {
    case SongOutcome::Updated:
        return QT_TRANSLATE_NOOP("SongOutcome", "sincronizzata con il database");
    case SongOutcome::Edited:
        return QT_TRANSLATE_NOOP("SongOutcome", "modificata a mano");
    case SongOutcome::Restored:
        return QT_TRANSLATE_NOOP("SongOutcome", "ripristinata");
    case SongOutcome::NotFound:
        return QT_TRANSLATE_NOOP("SongOutcome", "non trovata nel database");
    case SongOutcome::Declined:
        return QT_TRANSLATE_NOOP("SongOutcome", "rifiutata");
    case SongOutcome::NotWritten:
        return QT_TRANSLATE_NOOP("SongOutcome", "non scritta");
    case SongOutcome::NotReadable:
        return QT_TRANSLATE_NOOP("SongOutcome", "non leggibile");
    case SongOutcome::Imported:
        break;
    }
    return QT_TRANSLATE_NOOP("SongOutcome", "importata");
}

QString outcomeWord(SongOutcome outcome)
{
    return QCoreApplication::translate("SongOutcome", sourceWord(outcome));
}

} // namespace brisel
