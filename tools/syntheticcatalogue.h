#pragma once

#include "tools/cataloguefile.h"

/// How many rows the publisher's own catalogue has.
constexpr int fullCatalogueSize = 8642;

/// \a count made-up rows (at most 1,000,000) in the forms of a real catalogue: about twenty genres,
/// a few hundred shared titles, markers in every second row, keys in most. The same count gives the
/// same rows; their file names are unique and in no order.
QList<CatalogueRow> syntheticCatalogue(int count = fullCatalogueSize);
