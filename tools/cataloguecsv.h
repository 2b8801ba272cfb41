#pragma once

#include "tools/cataloguefile.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace brisel
{

/// An error in a catalogue's source.
struct CatalogueCsvError {
    int line = 0; ///< counted from 1
    QString text;
};

/// Reads and checks the source of a catalogue (docs/formats/catalogue.md, "Source"). Returns false,
/// with \a error filled, at the first invalid line.
bool readCatalogueCsv(const QByteArray &csv, QList<CatalogueRow> &rows, CatalogueCsvError &error);

} // namespace brisel
