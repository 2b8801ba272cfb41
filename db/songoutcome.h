#pragma once

#include <QString>

#include <array>

namespace brisel
{

/// What became of a song of the library, in the order in which rows are sorted by it.
enum class SongOutcome {
    Imported,
    Updated,  ///< rewritten with the catalogue's data
    Edited,   ///< changed by hand
    Restored, ///< as it was before a change
    NotFound, ///< the catalogue does not have it
    Declined, ///< the user did not want it changed
    NotWritten,
    NotReadable,
};

inline constexpr std::array allSongOutcomes{SongOutcome::Imported,   SongOutcome::Updated,
                                            SongOutcome::Edited,     SongOutcome::Restored,
                                            SongOutcome::NotFound,   SongOutcome::Declined,
                                            SongOutcome::NotWritten, SongOutcome::NotReadable};

/// In the program's language, such as "non trovata nel database".
QString outcomeWord(SongOutcome outcome);

} // namespace brisel
