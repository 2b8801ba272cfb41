#pragma once

#include "library/dialogs/nocopyrightdialog.h"
#include "library/progress.h"
