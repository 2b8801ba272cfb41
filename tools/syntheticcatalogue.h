#pragma once

#include "tools/cataloguefile.h"

namespace brisel
{

/// The number of rows in the publisher's own catalogue.
constexpr int fullCatalogueSize = 8642;

/// \a count synthetic rows (at most 1,000,000) like those of a real catalogue: about twenty genres,
/// a few hundred shared titles, markers in every second row, keys in most. The same count gives the
/// same rows; their file names are unique and unordered.
QList<CatalogueRow> syntheticCatalogue(int count = fullCatalogueSize);

} // namespace brisel
