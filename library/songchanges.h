#pragma once

#include "base/runreport.h"
#include "songfile/fieldchange.h"

#include <QList>
#include <QStringList>

namespace brisel
{

/// The name of \a field as RunReport::ChangedField has it, marked for translation in the context
/// "RunReport".
const char *fieldName(FieldChange::Field field);

/// \a changes for RunReport::addChanges().
QList<RunReport::ChangedField> reportedChanges(const QList<FieldChange> &changes);

/// The bytes that the history takes, about, if all \a files are changed.
qint64 historyBytes(const QStringList &files);

} // namespace brisel
