#pragma once

#include "tools/demo/stage.h"

namespace brisel
{

/// Plays a song of the table, moves within it and stops it; makes no sound.
void listenToASong(Stage &stage);

} // namespace brisel
