#pragma once

#include <string>

/// A MIDI file of format 1 of about \a size bytes (at least 5,000), the same for the same size:
/// tracks with running status, bars that come again with other velocities, fills, bends, and a page
/// of lyrics.
std::string songBytes(int size);
