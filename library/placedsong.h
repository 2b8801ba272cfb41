#pragma once

#include <QString>

namespace brisel
{

/// What became of one file that was to be copied.
struct PlacedSong {
    enum class State {
        Missing, ///< it was not copied
        Kept,    ///< not copied, because a file at its place was not to be replaced
        There,   ///< copied, or it is the file at its place
    };

    QString place = {}; ///< an absolute path
    State state = State::Missing;
};

} // namespace brisel
