#pragma once

#include "base/runreport.h"
#include "songfile/fieldchange.h"

#include <QList>

namespace brisel
{

/// The name of \a field as RunReport::ChangedField has it, marked for translation in the context
/// "RunReport".
const char *fieldName(FieldChange::Field field);

/// \a changes for RunReport::addChanges().
QList<RunReport::ChangedField> reportedChanges(const QList<FieldChange> &changes);

} // namespace brisel
