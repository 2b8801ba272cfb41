#pragma once

#include "tools/demo/stage.h"

namespace brisel
{

/// The pages without actions: help and about.
void readHelp(Stage &stage);
void readAbout(Stage &stage);

} // namespace brisel
