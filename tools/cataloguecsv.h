#pragma once

#include "tools/cataloguefile.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// Where a catalogue's source is wrong.
struct CatalogueCsvError {
    int line = 0; ///< counted from 1
    QString text;
};

/// Reads and checks the source of a catalogue (docs/formats/catalogue.md, "Source"). False, with
/// \a error filled, at the first line that breaks a rule.
bool readCatalogueCsv(const QByteArray &csv, QList<CatalogueRow> &rows, CatalogueCsvError &error);
