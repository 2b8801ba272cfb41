#pragma once

#include <string>

namespace brisel
{

/// A MIDI file of format 1 of about \a size bytes (at least 5,000), always the same for a size:
/// tracks with running status, bars that are repeated with other velocities, fills, bends, and a
/// page of lyrics.
std::string songBytes(int size);

} // namespace brisel
