#pragma once

class QString;

namespace brisel
{

class Run;

/// Brings the index of the memory \a root up to date after songs there were changed, and with it
/// the playlists. Long names of other songs are not shortened. If no song is left, the index is
/// removed, and a memory that has no file of an index gets none. Returns false, reported, on
/// failure: the next update repairs the index.
[[nodiscard]] bool updateAfterChange(Run &run, const QString &root);

} // namespace brisel
