#pragma once

#include "library/nocopyrightdialog.h"
#include "library/progress.h"
