#pragma once

#include "tools/demo/stage.h"

/// The pages that only tell: help and about.
void readHelp(Stage &stage);
void readAbout(Stage &stage);
